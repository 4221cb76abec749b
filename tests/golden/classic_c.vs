# A Classic C game, medium: a bar in the well clears both rows of the bomb,
# which goes off and raises the garbage.
0 game classic c 0 0 1
0 next 0
0 next 2
0 next 3
0 next 1
0 next 0
0 next 5
0 next 1
0 next 2
@play mark
+0p mark
+0 field 17 ############.
+0 field 18 012301230123.
+0 field 19 340120..1234.
+0 field 20 #1#2#3..4#1#.
+0p key up Down
+1p key tap Up
+2p key down Right
+45 key up Right
+1p key down Down
@sound 1 mark
+0p key up Down
+2p key down Left
+45 key up Left
+1p key down Down
@sound 1 mark
+0p key up Down
+2p key down Right
+45 key up Right
+1p key down Down
@sound 1 mark
+0p key up Down
+1p key tap Up
+2p key down Left
+45 key up Left
+1p key down Down
@sound 1 mark
+0p key up Down
+1p key tap Up
+2p key down Right
+45 key up Right
+1p key down Down
@sound 1 mark
+0p key up Down
+1p key down Down
@sound 1 mark
+0p key up Down
+600 quit

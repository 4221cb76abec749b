# A Classic A game at level 5 on a stack with a well at the right:
# bars turned into the well clear four rows at once.
0 game classic a 5 0 0
0 next 0
0 next 3
0 next 5
0 next 0
0 next 6
0 next 1
0 next 4
0 next 2
0 next 0
0 next 1
0 next 1
0 next 2
@play mark
+0p mark
+0 field 13 123401234012.
+0 field 14 #3#3#3#3#3#3.
+0 field 15 40404040404..
+0 field 16 012340123401.
+0 field 17 123401234012.
+0 field 18 #3#3#3#3#3#3.
+0 field 19 40404040404..
+0 field 20 012340123401.
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
+2p key down Right
+45 key up Right
+1p key down Down
@sound 1 mark
+0p key up Down
+1p key down Down
@sound 1 mark
+0p key up Down
+2p key down Left
+45 key up Left
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
+1p key tap Up
+2p key down Left
+45 key up Left
+1p key down Down
@sound 1 mark
+0p key up Down
+600 quit

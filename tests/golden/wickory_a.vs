# A Wickory A game at level 2 from height 1: two rocks at the start, a
# detonator that touches nothing (the fault), then a fuse of bars from the
# second detonator to two charges (the explosion, the collapse and a rock).
0 game wickory a 2 1 0
0 next 13
0 next 13
0 next 1
0 next 1
0 next 1
@play mark
+0p key down Down
+100 key up Down
+0 field 17 .............
+0 field 18 .............
+0 field 19 .............
+0 field 20 .............
+0 stamp 12 0 0 -1 19
+0 stamp 0 0 0 2 19
+0 stamp 0 0 0 7 19
+0 stamp 12 0 0 9 19
+2 key down Down
+700 key up Down
+60 quit

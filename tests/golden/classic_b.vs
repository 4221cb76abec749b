# A Classic B game at level 3 with 3 lines to go: the first bar in the well
# brings the counter to 0 and wins the game.
0 game classic b 3 0 0
0 next 0
0 next 3
0 next 6
0 next 0
0 next 5
0 next 4
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
+0 set Lines 3
+0 set LinesShown 3
+0p key up Down
+1p key tap Up
+2p key down Right
+45 key up Right
+1p key down Down
@sound 1 mark
# Won: the game-over show (no polls there: Down stays held) with its fireworks.
@gameover mark
+720 quit

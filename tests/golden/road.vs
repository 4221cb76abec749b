# The whole road from start-up: the loading, the introduction, the menu
# (Classic and Type A chosen with the pointer, then Start), a game lost at
# once with a score that makes the table, the game-over show, a name typed
# on the keyboard, the final screen, the menu again and its exit tab.
@menu mark
# The menu's reveal: one frame per y = 300, 295, ..., 0.
+61 mark
+2 pointer 600 150
+0 mouse click 1
+2 pointer 535 255
+0 mouse click 1
+2 pointer 700 490
+0 mouse click 1
# Rows 1 to 20 filled at the first poll of play: the piece in row 0 lands
# at once and the next one cannot enter.
@play mark
+0p set Score 5000
+0 set ScoreShown 5000
+0 field 1 ############.
+0 field 2 ############.
+0 field 3 ############.
+0 field 4 ############.
+0 field 5 ############.
+0 field 6 ############.
+0 field 7 ############.
+0 field 8 ############.
+0 field 9 ############.
+0 field 10 ############.
+0 field 11 ############.
+0 field 12 ############.
+0 field 13 ############.
+0 field 14 ############.
+0 field 15 ############.
+0 field 16 ############.
+0 field 17 ############.
+0 field 18 ############.
+0 field 19 ############.
+0 field 20 ############.
+0 set NextDropTime 0
@highscore mark
+300 key tap R
+2 key tap O
+2 key tap A
+2 key tap D
+2 key tap Return
@final mark
+400 mouse click 1
@menu mark
+61 mark
+2 pointer 745 30
+0 mouse click 1

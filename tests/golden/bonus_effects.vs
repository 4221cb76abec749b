# A Bonus A game at level 9 on a built stack, with every bonus effect:
# the bomb, ColumnClear, ColumnFill, SingleClear, SingleFall, Earthquake.
0 game bonus a 9 0 0
0 next 6
0 next 12
0 next 3
0 next 13
0 next 13
0 next 14
0 next 14
0 next 15
0 next 4
0 next 12
0 next 1
@play mark
+0p field 13 ..#....#...#.
+0 field 14 #.##..###.##.
+0 field 15 ###.#.######.
+0 field 16 #####.###.###
+0 field 17 .############
+0 field 18 ####.########
+0 field 19 ##.#####.####
+0 field 20 ######.######
+0 key tap Left
# The first column piece lands one column right of its spawn: ColumnClear.
@sound 131 mark
+1p key tap Right
# The second is flipped after 150 passes: ColumnFill.
@sound 131 mark
+150p key tap Up
# The first line piece lands: SingleClear.
@sound 130 mark
+1p key tap Left
# The second is flipped at once: SingleFall.
@sound 130 mark
+1p key tap Up
# The earthquake starts, the line check after it, the next piece.
@sound 12 mark
+400 quit

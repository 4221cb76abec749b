// The effects of the four bonus pieces. Each runs its whole animation before
// it returns (the game waits meanwhile) and leaves the rows it completes to
// the line check that called it. None of them scores.
#pragma once

namespace bonus {

// The one effect of the landed or flipped bonus piece, by PieceKind and
// FlipAction; nothing for other kinds. The line check calls it after paying
// the bonus piece's 100 points.
void RunBonusEffect();

// Kind 12, landed or flipped: the 3 x 3 square blown out, the columns above
// collapsing into it.
void BombLand();
// Kind 13 landed: the column below the block popped, the column above slid down.
void ColumnClear();
// Kind 13 flipped: the block driven down through the empty cells, leaving new blocks.
void ColumnFill();
// Kind 14 landed: the block's row swept out to the right.
void SingleClear();
// Kind 14 flipped: a new row unfolded at the top and rained onto the stacks.
void SingleFall();
// Kind 15, landed or flipped: the field shaken, every gap closed by one cell.
void Earthquake();

}  // namespace bonus

// The sparks of the falling bonus pieces: the bomb's fuse, the column
// piece's top edge, the line piece's left edge. Emitters add sparks and then
// move and draw all live ones; finishers only move and draw, so the sparks
// burn out after the emission stops. Drawn on the back buffer, never in the
// field.
#pragma once

namespace bonus {

void BombSparks();
void ColumnSparks();
void LineSparks();
void BombSparkFinish();
void ColumnSparkFinish();
void LineSparkFinish();

// The emitter of the falling piece's kind (12 bomb, 13 column, 14 line;
// none for the others), as every drawing of the falling piece runs it.
void PieceSparks();

}  // namespace bonus

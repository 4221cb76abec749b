// The Wickory field: every frame of a fuse game composed on the back buffer,
// and the charge list kept beside the field's pixels.
#pragma once
#include <string>

namespace fuse {

// The frame without the falling piece; the caller adds the piece and presents.
void DrawFuseField();

// Registers a charge cell at field (x, y); a 201st is not registered.
void RegisterCharge(int x, int y);
// Rebuilds the charge list from the field's pixels (ChargeColour1 at each
// cell's probe point), up to the list's 200.
void RebuildCharges();

// The automation's `field ROW CELLS` in Wickory: as in the block game, and
// `r` a small rock.
void PaintFuseFieldRow(int row, const std::string& cells);
// The automation's `stamp`: kind, rotation and fuse set stamped at box
// (20 col, 20 row) as a landing stamps it, a charge registered as landing
// registers it. The detonator is never stamped.
void StampPiece(int kind, int rot, int fuseSet, int col, int row);

}  // namespace fuse

// The playfield is pixels: a cell is empty when the pixel at its centre in
// display::Assets.FieldSurfaces[0] is 0. Screen = field + (181, 147).
#pragma once
#include <string>

namespace game {

inline constexpr int kFieldLeft = 181, kFieldTop = 147;
inline constexpr int kFieldWidth = 260, kFieldHeight = 420;

// The probe: true when the field pixel at (x, y) is not 0. Outside the field
// it reads 0 (empty).
bool Occupied(double x, double y);
// Paints the rectangle (x1, y1)-(x2, y2) of the field in an RGB colour with
// the surface's box drawing (black erases; red is the Type C bomb's square).
void PaintField(int x1, int y1, int x2, int y2, int r, int g, int b);

// The automation's `field ROW CELLS`: 13 cells, '.' black, '0'..'4' that
// garbage tile, '#' tile 0, painted opaque.
void PaintFieldRow(int row, const std::string& cells);
// Offers the painter to the automation while a game runs, withdraws it after.
void OfferFieldPainter(bool on);

}  // namespace game

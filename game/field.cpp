// The playfield's only questions: one pixel read at a cell centre, and boxes
// painted into the field surface.
#include "game/field.h"

#include <string>

#include "core/hooks.h"
#include "display/assets.h"
#include "display/surface.h"

namespace game {

bool Occupied(double x, double y) {
  display::ReadPixel(display::Assets.FieldSurfaces[0], x, y);
  return display::Display.PixelValue != 0;
}

void PaintField(int x1, int y1, int x2, int y2, int r, int g, int b) {
  display::Surface& field = display::Assets.FieldSurfaces[0];
  display::SetForeColour(field, r, g, b);
  display::SetFillColour(field, r, g, b);
  display::DrawBox(field, x1, y1, x2, y2);
}

void PaintFieldRow(int row, const std::string& cells) {
  display::Surface& field = display::Assets.FieldSurfaces[0];
  for (int c = 0; c < 13 && c < static_cast<int>(cells.size()); ++c) {
    char ch = cells[c];
    int tile = ch == '#' ? 0 : ch >= '0' && ch <= '4' ? ch - '0' : 5;  // 5 is the black eraser
    display::BltOpaque(field, 20 * c, 20 * row, 20, 20, display::Assets.FillTiles[tile], 0, 0, 20, 20);
  }
}

void OfferFieldPainter(bool on) {
  if (on)
    core::SetFieldPainter(PaintFieldRow);
  else
    core::SetFieldPainter(nullptr);
}

}  // namespace game

// The game's name as title art, and falling pieces, shared by the menu
// picture and the introduction.
#include "tools/assetgen/scenes_title.h"

#include <cmath>

namespace scenes {

namespace {

// The seven four-cell shapes as cell offsets, with their colours.
struct Shape {
  int cells[4][2];
  uint32_t colour;
};
const Shape kShapes[7] = {
    {{{0, 0}, {1, 0}, {2, 0}, {3, 0}}, 0x2FD3E0}, {{{0, 0}, {1, 0}, {2, 0}, {2, 1}}, 0x3A6BF0},
    {{{0, 0}, {1, 0}, {0, 1}, {1, 1}}, 0xF5D92A}, {{{0, 1}, {1, 1}, {1, 0}, {2, 0}}, 0x3CCB48},
    {{{0, 0}, {1, 0}, {2, 0}, {1, 1}}, 0xC040E0}, {{{0, 0}, {1, 0}, {1, 1}, {2, 1}}, 0xE8303A},
    {{{0, 0}, {1, 0}, {2, 0}, {0, 1}}, 0xF58A1F}};

}  // namespace

void FallingPiece(cairo_t* cr, int shape, double x, double y, double cell, double angle, double alpha) {
  const Shape& s = kShapes[shape % 7];
  cairo_save(cr);
  cairo_translate(cr, x, y);
  cairo_rotate(cr, angle);
  cairo_translate(cr, -cell * 1.5, -cell);
  // A dark rim first so that the piece reads against anything.
  Source(cr, Hex(0x05060E), alpha);
  for (const auto& c : s.cells) cairo_rectangle(cr, c[0] * cell - 1.5, c[1] * cell - 1.5, cell + 3, cell + 3);
  cairo_fill(cr);
  for (const auto& c : s.cells) GlossyBlock(cr, c[0] * cell, c[1] * cell, cell, Hex(s.colour), alpha);
  cairo_restore(cr);
}

void TitleLogo(cairo_t* cr, double cx, double top, double scale) {
  Lettering bonus;
  bonus.size = 50 * scale;
  bonus.italic = true;
  Letter(cr, bonus, "Bonus", cx - 150 * scale, top + 52 * scale);

  Lettering vorrel;
  vorrel.size = 118 * scale;
  vorrel.outlineWidth = 9 * scale;
  Letter(cr, vorrel, "VORREL", cx, top + 158 * scale);

  // "plus Wickory" in ember tones, with a burning fuse running off its end.
  Lettering plus;
  plus.size = 46 * scale;
  plus.italic = true;
  plus.top = Hex(0xFFE68A);
  plus.mid = Hex(0xFF8A1E);
  plus.bottom = Hex(0xA8200A);
  double w = TextWidth(cr, plus, "plus Wickory");
  double px = cx + 40 * scale;
  Letter(cr, plus, "plus Wickory", px, top + 218 * scale);
  double fx = px + w / 2 + 6 * scale, fy = top + 205 * scale;
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_width(cr, 5 * scale);
  Source(cr, Hex(0x1A0E02));
  cairo_move_to(cr, fx, fy);
  cairo_curve_to(cr, fx + 14 * scale, fy - 4 * scale, fx + 12 * scale, fy - 24 * scale, fx + 26 * scale, fy - 30 * scale);
  cairo_stroke_preserve(cr);
  cairo_set_line_width(cr, 2.5 * scale);
  Source(cr, Hex(0xC8A070));
  cairo_stroke(cr);
  double sx = fx + 26 * scale, sy = fy - 30 * scale;
  Glow(cr, sx, sy, 16 * scale, Hex(0xFFB030), 0.9);
  cairo_set_line_width(cr, 1.4 * scale);
  Source(cr, Hex(0xFFF0A0));
  for (int i = 0; i < 8; ++i) {
    double a = i * M_PI / 4 + 0.3, r0 = 3 * scale, r1 = (i % 2 ? 8 : 13) * scale;
    cairo_move_to(cr, sx + r0 * std::cos(a), sy + r0 * std::sin(a));
    cairo_line_to(cr, sx + r1 * std::cos(a), sy + r1 * std::sin(a));
  }
  cairo_stroke(cr);
  Source(cr, Hex(0xFFFFF0));
  cairo_arc(cr, sx, sy, 2.5 * scale, 0, 2 * M_PI);
  cairo_fill(cr);
}

}  // namespace scenes

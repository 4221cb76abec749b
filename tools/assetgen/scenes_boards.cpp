// Keyed pictures: the "PAUSED" and "GAME OVER" boards shown in the field's
// place, and the title art of the introduction. Black is the colour key.
#include <cmath>
#include <string>

#include "tools/assetgen/scenes_art.h"

namespace {

using scenes::Col;
using scenes::Hex;

// A board of the field's size: a rounded plate in the given tones with a
// bevelled rim, faint diagonal lines and rivets.
void Board(cairo_t* cr, double w, double h, Col top, Col bottom, Col rim) {
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, h);
  cairo_pattern_add_color_stop_rgb(g, 0, top.r, top.g, top.b);
  cairo_pattern_add_color_stop_rgb(g, 1, bottom.r, bottom.g, bottom.b);
  scenes::RoundRect(cr, 1, 1, w - 2, h - 2, 18);
  cairo_set_source(cr, g);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(g);
  cairo_save(cr);
  cairo_clip(cr);
  scenes::Source(cr, Hex(0xFFFFFF), 0.035);
  cairo_set_line_width(cr, 6);
  for (double d = -h; d < w + h; d += 22) {
    cairo_move_to(cr, d, 0);
    cairo_line_to(cr, d + h, h);
  }
  cairo_stroke(cr);
  cairo_restore(cr);
  cairo_set_line_width(cr, 4);
  scenes::RoundRect(cr, 4, 4, w - 8, h - 8, 15);
  scenes::Source(cr, rim);
  cairo_stroke(cr);
  cairo_set_line_width(cr, 1.5);
  scenes::RoundRect(cr, 10, 10, w - 20, h - 20, 11);
  scenes::Source(cr, scenes::Lerp(rim, Hex(0xFFFFFF), 0.4), 0.6);
  cairo_stroke(cr);
  for (auto [x, y] : {std::pair{20.0, 20.0}, {w - 20, 20.0}, {20.0, h - 20}, {w - 20, h - 20}}) {
    cairo_pattern_t* r = cairo_pattern_create_radial(x - 1.5, y - 1.5, 0.5, x, y, 5);
    cairo_pattern_add_color_stop_rgb(r, 0, 1, 0.95, 0.75);
    cairo_pattern_add_color_stop_rgb(r, 1, rim.r * 0.5, rim.g * 0.5, rim.b * 0.5);
    cairo_set_source(cr, r);
    cairo_arc(cr, x, y, 5, 0, 2 * M_PI);
    cairo_fill(cr);
    cairo_pattern_destroy(r);
  }
}

void SmallText(cairo_t* cr, const std::string& text, double cx, double y, double size, Col c) {
  assetgen::SetFont(cr, "DejaVu Sans", true, size);
  cairo_text_extents_t te;
  cairo_text_extents(cr, text.c_str(), &te);
  cairo_move_to(cr, cx - te.x_advance / 2 + 1, y + 1);
  scenes::Source(cr, Hex(0x02040C), 0.9);
  cairo_show_text(cr, text.c_str());
  cairo_move_to(cr, cx - te.x_advance / 2, y);
  scenes::Source(cr, c);
  cairo_show_text(cr, text.c_str());
}

void Pause(cairo_t* cr, double w, double h) {
  Board(cr, w, h, Hex(0x16245A), Hex(0x070C26), Hex(0x6C8CE0));
  // A round pause sign above the word.
  double cx = w / 2, cy = h * 0.36;
  scenes::Glow(cr, cx, cy, 70, Hex(0x4A7CFF), 0.35);
  cairo_arc(cr, cx, cy, 42, 0, 2 * M_PI);
  scenes::Source(cr, Hex(0x1A0E02));
  cairo_fill(cr);
  cairo_arc(cr, cx, cy, 38, 0, 2 * M_PI);
  cairo_pattern_t* g = cairo_pattern_create_linear(0, cy - 38, 0, cy + 38);
  cairo_pattern_add_color_stop_rgb(g, 0, 1, 0.93, 0.55);
  cairo_pattern_add_color_stop_rgb(g, 0.5, 0.93, 0.68, 0.12);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.55, 0.32, 0.03);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  scenes::Source(cr, Hex(0x10183E));
  scenes::RoundRect(cr, cx - 17, cy - 20, 11, 40, 3);
  scenes::RoundRect(cr, cx + 6, cy - 20, 11, 40, 3);
  cairo_fill(cr);
  scenes::Lettering l;
  l.size = 50;
  scenes::Letter(cr, l, "PAUSED", cx, h * 0.58);
  SmallText(cr, "Press Esc to play on", cx, h * 0.68, 14, Hex(0xA8C4FF));
}

void GameOverBoard(cairo_t* cr, double w, double h) {
  Board(cr, w, h, Hex(0x3A0A12), Hex(0x0C0410), Hex(0xC05A2A));
  double cx = w / 2;
  // A burst behind the words.
  for (int i = 0; i < 18; ++i) {
    double a0 = 2 * M_PI * i / 18, a1 = a0 + M_PI / 18;
    cairo_move_to(cr, cx, h * 0.46);
    cairo_line_to(cr, cx + 200 * std::cos(a0), h * 0.46 + 200 * std::sin(a0));
    cairo_line_to(cr, cx + 200 * std::cos(a1), h * 0.46 + 200 * std::sin(a1));
    cairo_close_path(cr);
  }
  cairo_pattern_t* g = cairo_pattern_create_radial(cx, h * 0.46, 10, cx, h * 0.46, 170);
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 0.6, 0.2, 0.55);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 0.3, 0.1, 0);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  scenes::Glow(cr, cx, h * 0.46, 110, Hex(0xFF7A20), 0.45);
  scenes::Lettering l;
  l.size = 64;
  scenes::Letter(cr, l, "GAME", cx, h * 0.43);
  scenes::Letter(cr, l, "OVER", cx, h * 0.60);
}

}  // namespace

// scene_board pause|gameover: a 260 x 420 board for the field's place.
ASSETGEN_GENERATOR(scene_board) {
  if (entry.args.size() != 1) assetgen::Fail(entry, "expects pause or gameover");
  assetgen::Canvas c(entry.width, entry.height);
  if (entry.args[0] == "pause") Pause(c.cr(), entry.width, entry.height);
  else if (entry.args[0] == "gameover") GameOverBoard(c.cr(), entry.width, entry.height);
  else assetgen::Fail(entry, "unknown board " + entry.args[0]);
  scenes::KeyEdges(c);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

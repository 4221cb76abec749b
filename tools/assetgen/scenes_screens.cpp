// The final screen and the high-score entry screen: space backdrops with
// navy panels exactly where the game writes the score, the table, the
// credits, the name and the on-screen keyboard.
#include <cmath>

#include "tools/assetgen/scenes_title.h"

namespace {

using scenes::Col;
using scenes::Hex;

void Caption(cairo_t* cr, const char* text, double x, double y, double size, Col c) {
  assetgen::SetFont(cr, "DejaVu Sans", true, size);
  cairo_move_to(cr, x + 1, y + 1);
  scenes::Source(cr, Hex(0x02030A), 0.9);
  cairo_show_text(cr, text);
  cairo_move_to(cr, x, y);
  scenes::Source(cr, c);
  cairo_show_text(cr, text);
}

// Debris of a blown-up stack drifting through the picture.
void Debris(cairo_t* cr, double cx, double cy, uint64_t seed) {
  assetgen::Random rnd(seed);
  const uint32_t hues[7] = {0xE8303A, 0xF58A1F, 0xF5D92A, 0x3CCB48, 0x2FD3E0, 0x3A6BF0, 0xC040E0};
  scenes::Glow(cr, cx, cy, 150, Hex(0xFF7A20), 0.55);
  scenes::Glow(cr, cx, cy, 50, Hex(0xFFF0B0), 0.8);
  for (int i = 0; i < 40; ++i) {
    double a = rnd.Range(0, 2 * M_PI), r = 30 + 170 * std::pow(rnd.Uniform(), 0.7);
    double s = 8 + 14 * (1 - r / 200);
    double x = cx + r * std::cos(a) * 1.3, y = cy + r * std::sin(a) * 0.6;
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, rnd.Range(-0.8, 0.8));
    cairo_rectangle(cr, -s / 2 - 1, -s / 2 - 1, s + 2, s + 2);
    scenes::Source(cr, Hex(0x05060E));
    cairo_fill(cr);
    scenes::GlossyBlock(cr, -s / 2, -s / 2, s, Hex(hues[rnd.Int(7)]));
    cairo_restore(cr);
  }
}

}  // namespace

ASSETGEN_GENERATOR(scene_final) {
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  scenes::Ramp ramp{{0.0, Hex(0x0A0310)}, {0.45, Hex(0x3A0C2E)}, {0.8, Hex(0x8A2A3A)}, {1.0, Hex(0xFFB070)}};
  scenes::SpaceBackdrop(cr, 800, 600, ramp, Hex(0x3040C0), 777);
  Debris(cr, 215, 262, 778);
  scenes::Lettering l;
  l.size = 58;
  scenes::Letter(cr, l, "GAME OVER", 215, 68);
  // The score in 50-pixel letters from (20, 110).
  scenes::Panel(cr, 8, 88, 416, 80, 12, 0.85);
  Caption(cr, "FINAL SCORE", 22, 104, 11, Hex(0xA8C4FF));
  // The table: names from (20, 400), scores from (230, 400), rows 35 apart.
  scenes::Panel(cr, 8, 350, 416, 236, 12, 0.85);
  scenes::Lettering h;
  h.size = 24;
  scenes::Letter(cr, h, "HIGH SCORES", 215, 386);
  cairo_set_line_width(cr, 1);
  scenes::Source(cr, Hex(0x6C8CE0), 0.35);
  for (int r = 1; r < 5; ++r) {
    cairo_move_to(cr, 20, 400 + 35 * r - 5);
    cairo_line_to(cr, 412, 400 + 35 * r - 5);
  }
  cairo_stroke(cr);
  // The white credits scroll over the right part.
  scenes::Panel(cr, 430, -20, 380, 640, 20, 0.8);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}

ASSETGEN_GENERATOR(scene_newhigh) {
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  scenes::Ramp ramp{{0.0, Hex(0x040818)}, {0.45, Hex(0x122a60)}, {0.8, Hex(0x2A7AA8)}, {1.0, Hex(0xC8F0FF)}};
  scenes::SpaceBackdrop(cr, 800, 600, ramp, Hex(0xC09020), 901);
  // Bursts of light behind the heading.
  scenes::Glow(cr, 400, 120, 300, Hex(0xFFC040), 0.3);
  assetgen::Random rnd(902);
  for (int b = 0; b < 5; ++b) {
    double bx = 80 + b * 160 + rnd.Range(-30, 30), by = rnd.Range(40, 200);
    Col hue = scenes::Hsv(rnd.Uniform(), 0.65, 1);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    for (int i = 0; i < 28; ++i) {
      double a = 2 * M_PI * i / 28, r0 = 10, r1 = rnd.Range(35, 60);
      cairo_set_line_width(cr, 2);
      scenes::Source(cr, hue, 0.55);
      cairo_move_to(cr, bx + r0 * std::cos(a), by + r0 * std::sin(a));
      cairo_line_to(cr, bx + r1 * std::cos(a), by + r1 * std::sin(a));
      cairo_stroke(cr);
      // Each trail ends in a bright star that droops a little.
      double ex = bx + (r1 + 4) * std::cos(a), ey = by + (r1 + 4) * std::sin(a) + 3;
      scenes::Glow(cr, ex, ey, 7, hue, 0.8);
      scenes::Source(cr, scenes::Lerp(hue, Hex(0xFFFFFF), 0.6));
      cairo_arc(cr, ex, ey, 1.6, 0, 2 * M_PI);
      cairo_fill(cr);
    }
    scenes::Glow(cr, bx, by, 30, hue, 0.6);
  }
  scenes::Lettering l;
  l.size = 76;
  scenes::Letter(cr, l, "New High Score!", 400, 160);
  scenes::Lettering sub;
  sub.size = 26;
  sub.top = Hex(0xE8F2FF);
  sub.mid = Hex(0x9AC0FF);
  sub.bottom = Hex(0x4A70C8);
  scenes::Letter(cr, sub, "Enter your name", 400, 232);
  // Name plate (70-pixel letters at y 280..349) and the keyboard (100..699 x 360..574).
  scenes::Panel(cr, 40, 268, 720, 88, 14, 0.75);
  scenes::Panel(cr, 86, 356, 628, 232, 14, 0.85);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}

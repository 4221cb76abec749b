// menu.bmp: the title picture on the left, the control panel on the right.
// The panel is light so that the dark olive table rows and the light blue
// headings read on it; darker strips sit behind the gold track name and the
// light blue headings.
#include <cmath>
#include <tuple>

#include "tools/assetgen/scenes_title.h"

namespace {

using scenes::Col;
using scenes::Hex;

// A heap of landed blocks at the bottom left, the well the pieces fall into.
void Heap(cairo_t* cr) {
  const double cell = 26, x0 = 24;
  const int heights[15] = {3, 4, 4, 2, 3, 5, 4, 3, 3, 2, 4, 3, 5, 4, 3};
  const uint32_t hues[7] = {0xE8303A, 0xF58A1F, 0xF5D92A, 0x3CCB48, 0x2FD3E0, 0x3A6BF0, 0xC040E0};
  assetgen::Random rnd(31);
  for (int c = 0; c < 15; ++c)
    for (int r = 0; r < heights[c]; ++r) {
      double x = x0 + c * cell, y = 600 - (r + 1) * cell;
      cairo_rectangle(cr, x - 1, y - 1, cell + 2, cell + 2);
      scenes::Source(cr, Hex(0x05060E));
      cairo_fill(cr);
      double fade = 0.55 + 0.45 * (1 - r / 6.0);
      scenes::GlossyBlock(cr, x, y, cell, scenes::Scale(Hex(hues[rnd.Int(7)]), fade));
    }
}

void ControlPanel(cairo_t* cr) {
  // Tab strip on top, then the frosted panel with a navy rim.
  scenes::Panel(cr, 440, 2, 356, 56, 10, 0.92);
  double x = 446, y = 64, w = 346, h = 530;
  scenes::RoundRect(cr, x - 4, y - 4, w + 8, h + 8, 16);
  cairo_pattern_t* rim = cairo_pattern_create_linear(0, y, 0, y + h);
  cairo_pattern_add_color_stop_rgb(rim, 0, 0.16, 0.24, 0.52);
  cairo_pattern_add_color_stop_rgb(rim, 1, 0.05, 0.08, 0.24);
  cairo_set_source(cr, rim);
  cairo_fill(cr);
  cairo_pattern_destroy(rim);
  scenes::RoundRect(cr, x, y, w, h, 12);
  cairo_pattern_t* g = cairo_pattern_create_linear(x, y, x + w * 0.4, y + h);
  cairo_pattern_add_color_stop_rgb(g, 0, 0.85, 0.88, 0.96);
  cairo_pattern_add_color_stop_rgb(g, 0.5, 0.78, 0.82, 0.93);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.69, 0.74, 0.88);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  // Faint diagonal pinstripes give the glass some texture.
  cairo_save(cr);
  scenes::RoundRect(cr, x, y, w, h, 12);
  cairo_clip(cr);
  cairo_set_line_width(cr, 1);
  scenes::Source(cr, Hex(0x2A3C80), 0.05);
  for (double d = x - h; d < x + w; d += 9) {
    cairo_move_to(cr, d, y + h);
    cairo_line_to(cr, d + h, y);
  }
  cairo_stroke(cr);
  cairo_restore(cr);
  // Glass sheen across the top of the panel.
  cairo_save(cr);
  scenes::RoundRect(cr, x, y, w, h, 12);
  cairo_clip(cr);
  cairo_move_to(cr, x, y);
  cairo_line_to(cr, x + w, y);
  cairo_line_to(cr, x + w, y + 60);
  cairo_curve_to(cr, x + w * 0.6, y + 110, x + w * 0.3, y + 40, x, y + 120);
  cairo_close_path(cr);
  scenes::Source(cr, Hex(0xFFFFFF), 0.25);
  cairo_fill(cr);
  cairo_restore(cr);
  // Heading rail for the light blue table headings, strip for the gold track name.
  for (auto [rx, ry, rw, rh] : {std::tuple{462.0, 289.0, 304.0, 24.0}, std::tuple{563.0, 401.0, 184.0, 22.0}}) {
    scenes::RoundRect(cr, rx, ry, rw, rh, rh / 2);
    cairo_pattern_t* s = cairo_pattern_create_linear(0, ry, 0, ry + rh);
    cairo_pattern_add_color_stop_rgb(s, 0, 0.05, 0.08, 0.22);
    cairo_pattern_add_color_stop_rgb(s, 1, 0.10, 0.15, 0.36);
    cairo_set_source(cr, s);
    cairo_fill_preserve(cr);
    cairo_pattern_destroy(s);
    cairo_set_line_width(cr, 1.2);
    scenes::Source(cr, Hex(0xFFFFFF), 0.7);
    cairo_stroke(cr);
  }
}

}  // namespace

ASSETGEN_GENERATOR(scene_menu) {
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  scenes::Ramp ramp{{0.0, Hex(0x03061A)}, {0.4, Hex(0x141A5A)}, {0.75, Hex(0x3A3AA8)}, {1.0, Hex(0x9AD8FF)}};
  scenes::SpaceBackdrop(cr, 800, 600, ramp, Hex(0xB040C0), 4242);
  scenes::Glow(cr, 220, 150, 240, Hex(0x4060FF), 0.35);
  // Pieces tumbling down towards the heap, with faint trails.
  struct Fall {
    int shape;
    double x, y, cell, angle;
  };
  const Fall falls[6] = {{0, 80, 330, 22, 0.25}, {3, 330, 300, 24, -0.3}, {6, 200, 400, 26, 0.1},
                         {4, 380, 420, 18, 0.6}, {2, 60, 450, 20, -0.2}, {5, 260, 290, 16, 0.9}};
  for (const Fall& f : falls) {
    cairo_pattern_t* t = cairo_pattern_create_linear(0, f.y - 120, 0, f.y);
    cairo_pattern_add_color_stop_rgba(t, 0, 0.6, 0.7, 1, 0);
    cairo_pattern_add_color_stop_rgba(t, 1, 0.6, 0.7, 1, 0.18);
    cairo_set_source(cr, t);
    cairo_rectangle(cr, f.x - f.cell * 1.2, f.y - 120, f.cell * 2.4, 110);
    cairo_fill(cr);
    cairo_pattern_destroy(t);
    scenes::FallingPiece(cr, f.shape, f.x, f.y, f.cell, f.angle);
  }
  Heap(cr);
  scenes::TitleLogo(cr, 215, 20, 0.74);
  ControlPanel(cr);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}

// Night pictures of the reward shows: the city sky for the fireworks and
// the launch site for the rocket.
#include <cmath>
#include <tuple>

#include "tools/assetgen/scenes_art.h"

namespace {

using scenes::Col;
using scenes::Hex;

void Sky(cairo_t* cr, double horizon, std::initializer_list<std::pair<double, uint32_t>> stops) {
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, horizon);
  for (auto [at, rgb] : stops) {
    Col c = Hex(rgb);
    cairo_pattern_add_color_stop_rgb(g, at, c.r, c.g, c.b);
  }
  cairo_set_source(cr, g);
  cairo_paint(cr);
  cairo_pattern_destroy(g);
}

void Moon(cairo_t* cr, double x, double y, double r) {
  scenes::Glow(cr, x, y, r * 4, Hex(0xB0C8FF), 0.25);
  cairo_arc(cr, x, y, r, 0, 2 * M_PI);
  cairo_pattern_t* g = cairo_pattern_create_radial(x - r * 0.3, y - r * 0.3, r * 0.1, x, y, r);
  cairo_pattern_add_color_stop_rgb(g, 0, 1, 1, 0.95);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.75, 0.8, 0.9);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  scenes::Source(cr, Hex(0x8890A8), 0.35);
  for (auto [dx, dy, rr] : {std::tuple{-0.3, 0.1, 0.22}, {0.25, -0.2, 0.15}, {0.15, 0.4, 0.12}}) {
    cairo_arc(cr, x + dx * r, y + dy * r, rr * r, 0, 2 * M_PI);
    cairo_fill(cr);
  }
}

// A row of buildings with lit windows; returns nothing, draws from 'base' up.
void Skyline(cairo_t* cr, assetgen::Random& rnd, double base, double minH, double maxH, Col body, double lit) {
  double x = -20;
  while (x < 820) {
    double w = rnd.Range(38, 90), h = rnd.Range(minH, maxH), top = base - h;
    scenes::Source(cr, body);
    cairo_rectangle(cr, x, top, w, h + 200);
    cairo_fill(cr);
    if (rnd.Int(4) == 0) {  // spire with a red warning light
      cairo_rectangle(cr, x + w / 2 - 1.5, top - 30, 3, 30);
      cairo_fill(cr);
      scenes::Glow(cr, x + w / 2, top - 30, 8, Hex(0xFF3020), 0.9);
    }
    for (double wy = top + 8; wy < base - 6; wy += 11)
      for (double wx = x + 6; wx < x + w - 8; wx += 9)
        if (rnd.Uniform() < lit) {
          scenes::Source(cr, scenes::Lerp(Hex(0xFFD070), Hex(0xFFF4D0), rnd.Uniform()), rnd.Range(0.5, 0.95));
          cairo_rectangle(cr, wx, wy, 4, 6);
          cairo_fill(cr);
        }
    x += w + rnd.Range(-6, 10);
  }
}

}  // namespace

ASSETGEN_GENERATOR(scene_worksback) {
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  Sky(cr, 520, {{0, 0x01030C}, {0.45, 0x060C2A}, {0.85, 0x1C1C52}, {1, 0x4A2A5E}});
  assetgen::Random rnd(515);
  scenes::Stars(cr, rnd, 260, 800, 360, 0.9);
  Moon(cr, 660, 190, 26);
  Skyline(cr, rnd, 470, 60, 150, Hex(0x0E1230), 0.12);
  Skyline(cr, rnd, 520, 30, 110, Hex(0x070918), 0.25);
  // River: dark water with the city's light broken into ripples.
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 520, 0, 600);
  cairo_pattern_add_color_stop_rgb(g, 0, 0.06, 0.06, 0.18);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.02, 0.02, 0.07);
  cairo_set_source(cr, g);
  cairo_rectangle(cr, 0, 520, 800, 80);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  for (int i = 0; i < 240; ++i) {
    double x = rnd.Range(0, 800), y = rnd.Range(524, 598), w = rnd.Range(3, 14);
    scenes::Source(cr, rnd.Int(6) ? Hex(0xFFD070) : Hex(0xC0D0FF), rnd.Range(0.1, 0.45) * (1 - (y - 520) / 100));
    cairo_rectangle(cr, x, y, w, 1.2);
    cairo_fill(cr);
  }
  scenes::Source(cr, Hex(0xB0C8FF), 0.25);
  cairo_rectangle(cr, 650, 530, 20, 2);
  cairo_rectangle(cr, 646, 545, 28, 2);
  cairo_rectangle(cr, 652, 562, 16, 2);
  cairo_fill(cr);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}

namespace {

void Mountains(cairo_t* cr, uint64_t seed, double base, double amp, Col c) {
  scenes::Noise n(seed);
  cairo_move_to(cr, 0, 600);
  for (int x = 0; x <= 800; x += 5) cairo_line_to(cr, x, base - amp * n.Fbm(x / 120.0, 0.3, 4));
  cairo_line_to(cr, 800, 600);
  cairo_close_path(cr);
  scenes::Source(cr, c);
  cairo_fill(cr);
}

// The service tower beside the pad: a lattice of girders with a swing arm.
void Tower(cairo_t* cr, double x, double top, double bottom) {
  const double w = 34;
  scenes::Source(cr, Hex(0x3A3040));
  cairo_set_line_width(cr, 3);
  cairo_rectangle(cr, x, top, w, bottom - top);
  cairo_stroke(cr);
  cairo_set_line_width(cr, 1.5);
  for (double y = top; y < bottom; y += w) {
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x + w, std::min(y + w, bottom));
    cairo_move_to(cr, x + w, y);
    cairo_line_to(cr, x, std::min(y + w, bottom));
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x + w, y);
  }
  cairo_stroke(cr);
  cairo_set_line_width(cr, 4);
  for (double y : {top + 60, top + 200}) {
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x - 22, y);
  }
  cairo_stroke(cr);
  scenes::Glow(cr, x + w / 2, top - 6, 14, Hex(0xFF3020), 0.9);
  for (double y : {top + 30, top + 160, top + 290})
    scenes::Glow(cr, x + w + 4, y, 18, Hex(0xFFE8A0), 0.7);
}

}  // namespace

ASSETGEN_GENERATOR(scene_rocketback) {
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  Sky(cr, 470, {{0, 0x030618}, {0.5, 0x18163E}, {0.8, 0x5A2A58}, {1, 0xE07A3A}});
  assetgen::Random rnd(606);
  scenes::Stars(cr, rnd, 200, 800, 300, 0.9);
  Moon(cr, 150, 110, 18);
  Mountains(cr, 607, 470, 90, Hex(0x2A1A36));
  Mountains(cr, 608, 480, 40, Hex(0x16101E));
  // The plain, with a road of lights leading to the pad.
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 470, 0, 600);
  cairo_pattern_add_color_stop_rgb(g, 0, 0.10, 0.08, 0.12);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.05, 0.05, 0.07);
  cairo_set_source(cr, g);
  cairo_rectangle(cr, 0, 478, 800, 122);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  for (int i = 0; i < 9; ++i) scenes::Glow(cr, 60 + i * 42, 560 - i * 5, 5, Hex(0xFFC060), 0.9);
  // Control bunker with lit windows.
  scenes::Source(cr, Hex(0x2A2834));
  cairo_rectangle(cr, 140, 470, 150, 40);
  cairo_fill(cr);
  for (int i = 0; i < 6; ++i) {
    scenes::Source(cr, Hex(0xFFD880), 0.85);
    cairo_rectangle(cr, 152 + i * 23, 482, 12, 7);
    cairo_fill(cr);
  }
  // Searchlights sweep up past where the rocket will stand.
  for (auto [x0, x1] : {std::pair{380.0, 600.0}, std::pair{700.0, 470.0}}) {
    cairo_pattern_t* beam = cairo_pattern_create_linear(x0, 560, x1, 0);
    cairo_pattern_add_color_stop_rgba(beam, 0, 0.85, 0.9, 1, 0.22);
    cairo_pattern_add_color_stop_rgba(beam, 1, 0.85, 0.9, 1, 0);
    cairo_set_source(cr, beam);
    cairo_move_to(cr, x0 - 3, 560);
    cairo_line_to(cr, x1 - 45, 0);
    cairo_line_to(cr, x1 + 45, 0);
    cairo_line_to(cr, x0 + 3, 560);
    cairo_close_path(cr);
    cairo_fill(cr);
    cairo_pattern_destroy(beam);
    scenes::Source(cr, Hex(0x3A3844));
    cairo_rectangle(cr, x0 - 8, 556, 16, 10);
    cairo_fill(cr);
    scenes::Glow(cr, x0, 558, 14, Hex(0xE8F0FF), 0.9);
  }
  Tower(cr, 628, 150, 500);
  // The pad: deck at y 500, where every rocket stands, over a flame pit.
  scenes::Source(cr, Hex(0x1E1C24));
  cairo_move_to(cr, 420, 512);
  cairo_line_to(cr, 450, 500);
  cairo_line_to(cr, 610, 500);
  cairo_line_to(cr, 640, 512);
  cairo_line_to(cr, 640, 546);
  cairo_line_to(cr, 420, 546);
  cairo_close_path(cr);
  cairo_fill(cr);
  g = cairo_pattern_create_linear(0, 500, 0, 512);
  cairo_pattern_add_color_stop_rgb(g, 0, 0.55, 0.52, 0.58);
  cairo_pattern_add_color_stop_rgb(g, 1, 0.36, 0.34, 0.40);
  cairo_set_source(cr, g);
  cairo_move_to(cr, 420, 512);
  cairo_line_to(cr, 450, 500);
  cairo_line_to(cr, 610, 500);
  cairo_line_to(cr, 640, 512);
  cairo_close_path(cr);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  scenes::Source(cr, Hex(0x08070A));
  cairo_rectangle(cr, 504, 512, 52, 34);  // flame pit
  cairo_fill(cr);
  scenes::Source(cr, Hex(0xE8C040));
  for (double x = 424; x < 636; x += 16) {  // hazard stripes along the deck edge
    cairo_move_to(cr, x, 514);
    cairo_line_to(cr, x + 8, 514);
    cairo_line_to(cr, x + 4, 520);
    cairo_line_to(cr, x - 4, 520);
    cairo_close_path(cr);
  }
  cairo_fill(cr);
  for (double x : {452.0, 606.0}) scenes::Glow(cr, x, 498, 10, Hex(0xFFE0A0), 0.8);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}

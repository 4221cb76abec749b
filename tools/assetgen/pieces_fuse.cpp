// The Wickory pictures besides the fuse pieces: the charge and its glow, the
// detonator, rocks and the crack.
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "tools/assetgen/pieces_art.h"
#include "tools/assetgen/pieces_draw.h"

namespace assetgen::pieces {
namespace {

const double kStick[4][2] = {{4.5, 4.5}, {15.5, 4.5}, {4.5, 15.5}, {15.5, 15.5}};

// The ends of four sticks of dynamite, one in each quarter of the cell;
// heat 0..1 makes them glow.
void Sticks(cairo_t* cr, double heat, double radius) {
  const Rgb red = Hex(205, 38, 28), hot = Hex(255, 190, 60);
  for (auto& s : kStick) {
    Rgb c = Mix(red, hot, heat);
    cairo_pattern_t* p = cairo_pattern_create_radial(s[0] - 1.2, s[1] - 1.2, 0.3, s[0], s[1], radius);
    Rgb lit = Mix(c, {1, 1, 1}, 0.45), dark = Scale(c, 0.5);
    cairo_pattern_add_color_stop_rgb(p, 0, lit.r, lit.g, lit.b);
    cairo_pattern_add_color_stop_rgb(p, 0.7, c.r, c.g, c.b);
    cairo_pattern_add_color_stop_rgb(p, 1, dark.r, dark.g, dark.b);
    cairo_arc(cr, s[0], s[1], radius, 0, 2 * M_PI);
    cairo_set_source(cr, p);
    cairo_fill(cr);
    cairo_pattern_destroy(p);
    // The paper ring of the stick and its little wick hole.
    cairo_arc(cr, s[0], s[1], radius * 0.45, 0, 2 * M_PI);
    Source(cr, Mix(Hex(240, 220, 190), hot, heat), 0.8);
    cairo_fill(cr);
    cairo_arc(cr, s[0], s[1], radius * 0.18, 0, 2 * M_PI);
    Source(cr, Hex(60, 25, 15));
    cairo_fill(cr);
  }
}

}  // namespace

bmp::Image565 ChargeFrame(int frame) {
  // Frames 0..11 pulse once; frame 12 rests.
  double heat = frame < kChargeRest ? std::sin(M_PI * (frame + 0.5) / kChargeRest) : 0;
  bmp::Image565 img = Render(20, 20, [&](cairo_t* cr) {
    cairo_rectangle(cr, 0, 0, 20, 20);
    Source(cr, Hex(70, 24, 16));
    cairo_fill(cr);
    cairo_rectangle(cr, 1, 1, 18, 18);
    Source(cr, Hex(110, 38, 22));
    cairo_fill(cr);
    Sticks(cr, heat, 4.2);
    if (heat > 0) {
      cairo_pattern_t* p = cairo_pattern_create_radial(10, 10, 0, 10, 10, 11);
      cairo_pattern_add_color_stop_rgba(p, 0, 1, 0.85, 0.3, 0.7 * heat);
      cairo_pattern_add_color_stop_rgba(p, 1, 1, 0.4, 0.1, 0);
      cairo_rectangle(cr, 0, 0, 20, 20);
      cairo_set_source(cr, p);
      cairo_fill(cr);
      cairo_pattern_destroy(p);
    }
    DrawCord(cr, 0, 0, kLeft | kRight | kUp | kDown);
  });
  ScrubFireCodes(img);
  PaintFuse(img, 0, 0, kLeft | kRight | kUp | kDown);
  PaintChargeCentre(img, 0, 0);
  return img;
}

bmp::Image565 GlowTile(int n) {
  // The charge burning bright; rows and columns 9 and 10 stay black (the
  // field keeps its pixels there) but for the two charge colours.
  static const double flicker[8] = {0.55, 0.75, 0.95, 1.0, 0.85, 0.7, 0.9, 0.65};
  bmp::Image565 img = Render(20, 20, [&](cairo_t* cr) {
    Sticks(cr, flicker[n], 4.4 + 0.3 * flicker[n]);
    cairo_pattern_t* p = cairo_pattern_create_radial(10, 10, 0, 10, 10, 12);
    cairo_pattern_add_color_stop_rgba(p, 0, 1, 1, 0.6, 0.55 * flicker[n]);
    cairo_pattern_add_color_stop_rgba(p, 1, 1, 0.5, 0, 0.1);
    cairo_set_operator(cr, CAIRO_OPERATOR_ATOP);
    cairo_set_source(cr, p);
    cairo_paint(cr);
    cairo_pattern_destroy(p);
  });
  ScrubFireCodes(img);
  for (int i = 0; i < 20; ++i)
    for (int k : {9, 10}) {
      Put(img, i, k, 0);
      Put(img, k, i, 0);
    }
  PaintChargeCentre(img, 0, 0);
  return img;
}

bmp::Image565 DetonatorFrame(int frame) {
  // The plunger goes down and comes back up; the lamp blinks.
  static const int press[8] = {0, 1, 2, 3, 3, 2, 1, 0};
  bool lamp = frame < 4;
  bmp::Image565 img = Render(20, 20, [&](cairo_t* cr) {
    double hy = 1 + press[frame];
    // Rod, then handle.
    cairo_rectangle(cr, 9, hy + 2, 2, 9 - hy);
    Source(cr, Hex(190, 195, 205));
    cairo_fill(cr);
    cairo_rectangle(cr, 9, hy + 2, 1, 9 - hy);
    Source(cr, Hex(240, 240, 250));
    cairo_fill(cr);
    cairo_rectangle(cr, 3, hy, 14, 3);
    Source(cr, Hex(40, 30, 25));
    cairo_fill(cr);
    cairo_rectangle(cr, 4, hy + 0.5, 12, 1.5);
    Source(cr, Hex(200, 60, 40));
    cairo_fill(cr);
    // The box.
    DrawBlock(cr, 1, 8, 18, {Finish::Gloss, Hex(60, 110, 70)});
    // Hazard stripe.
    cairo_rectangle(cr, 3, 15, 14, 2);
    Source(cr, Hex(250, 200, 40));
    cairo_fill(cr);
    cairo_save(cr);
    cairo_rectangle(cr, 3, 15, 14, 2);
    cairo_clip(cr);
    for (int k = 0; k < 5; ++k) {
      cairo_move_to(cr, 1 + 4 * k, 17);
      cairo_line_to(cr, 3 + 4 * k, 15);
      cairo_line_to(cr, 5 + 4 * k, 15);
      cairo_line_to(cr, 3 + 4 * k, 17);
      cairo_close_path(cr);
    }
    Source(cr, Hex(30, 30, 30));
    cairo_fill(cr);
    cairo_restore(cr);
    // The lamp.
    cairo_arc(cr, 14.5, 11.5, 1.6, 0, 2 * M_PI);
    Source(cr, lamp ? Hex(255, 70, 50) : Hex(90, 20, 20));
    cairo_fill(cr);
    if (lamp) {
      cairo_arc(cr, 14.1, 11.1, 0.6, 0, 2 * M_PI);
      Source(cr, Hex(255, 220, 200));
      cairo_fill(cr);
    }
  });
  ScrubFireCodes(img);
  return img;
}

bmp::Image565 Rock(int side) {
  const int s = 20 * side;
  bmp::Image565 img = Render(s, s, [&](cairo_t* cr) {
    // A knobbly outline well outside every cell centre.
    const int n = 12 + 6 * side;
    const double c = s / 2.0;
    std::vector<std::pair<double, double>> v;
    for (int i = 0; i < n; ++i) {
      double a = 2 * M_PI * i / n + 0.2;
      double ca = std::cos(a), sa = std::sin(a);
      double e = 1.0 / std::pow(std::pow(std::fabs(ca), 3) + std::pow(std::fabs(sa), 3), 1 / 3.0);
      uint32_t h = (i + 1) * 2654435761u + side * 40503u;
      double dent = ((h >> 8) % 100) / 100.0 * (1 + 1.1 * side);
      double r = (c - 0.5) * e - dent;
      v.push_back({c + r * ca, c + r * sa});
    }
    auto blob = [&](double k) {
      cairo_move_to(cr, c + (v[0].first - c) * k, c + (v[0].second - c) * k);
      for (auto& p : v) cairo_line_to(cr, c + (p.first - c) * k, c + (p.second - c) * k);
      cairo_close_path(cr);
    };
    auto outline = [&] { blob(1); };
    const Rgb stone = Hex(128, 120, 110);
    outline();
    Source(cr, Scale(stone, 0.55));
    cairo_fill(cr);
    cairo_save(cr);
    outline();
    cairo_clip(cr);
    // Layers towards the light give the boulder its roundness.
    const double shades[4] = {0.8, 0.98, 1.12, 1.28};
    for (int t = 0; t < 4; ++t) {
      double k = 0.97 - 0.16 * t, o = -s * 0.045 * (t + 1);
      cairo_save(cr);
      cairo_translate(cr, c + o, c + o);
      cairo_rotate(cr, 0.15 * t);
      cairo_translate(cr, -c, -c);
      blob(k);
      cairo_restore(cr);
      Source(cr, Scale(stone, shades[t]));
      cairo_fill(cr);
    }
    // Pits and a crack.
    for (int k = 0; k < 2 * side * side; ++k) {
      uint32_t h = (k + 1) * 2246822519u + side * 3266489917u;
      double x = 0.2 * s + ((h >> 4) % 1000) / 1000.0 * 0.6 * s;
      double y = 0.2 * s + ((h >> 14) % 1000) / 1000.0 * 0.6 * s;
      double r = 0.8 + ((h >> 24) % 10) / 10.0;
      cairo_arc(cr, x, y, r, 0, 2 * M_PI);
      Source(cr, Scale(stone, 0.6), 0.8);
      cairo_fill(cr);
      cairo_arc(cr, x, y, r, 0.1 * M_PI, 0.9 * M_PI);
      cairo_set_line_width(cr, 0.7);
      Source(cr, Mix(stone, {1, 1, 1}, 0.45), 0.8);
      cairo_stroke(cr);
    }
    cairo_move_to(cr, s * 0.62, s * 0.12);
    cairo_line_to(cr, s * 0.55, s * 0.33);
    cairo_line_to(cr, s * 0.66, s * 0.47);
    cairo_line_to(cr, s * 0.6, s * 0.62);
    cairo_set_line_width(cr, 0.9);
    Source(cr, Scale(stone, 0.35), 0.85);
    cairo_stroke(cr);
    cairo_restore(cr);
    outline();
    cairo_set_line_width(cr, 1.2);
    Source(cr, Scale(stone, 0.3));
    cairo_stroke(cr);
  });
  ScrubFireCodes(img);
  return img;
}

bmp::Image565 Cracked() {
  // Cracks running from the middle to the edges; black elsewhere (clear).
  bmp::Image565 img = Render(20, 20, [](cairo_t* cr) {
    const double rays[6][4] = {{10, 10, 1, 3}, {10, 10, 18, 1}, {10, 10, 19, 13},
                               {10, 10, 12, 19}, {10, 10, 1, 16}, {10, 10, 4, 8}};
    const double kinks[6][2] = {{6, 6}, {14, 6}, {15, 11}, {10, 15}, {6, 12}, {7, 9}};
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    for (int pass = 0; pass < 2; ++pass) {
      for (int i = 0; i < 6; ++i) {
        double o = pass == 0 ? 0.6 : 0;
        cairo_move_to(cr, rays[i][0] + o, rays[i][1] + o);
        cairo_line_to(cr, kinks[i][0] + o, kinks[i][1] + o);
        cairo_line_to(cr, rays[i][2] + o, rays[i][3] + o);
      }
      cairo_move_to(cr, 14 + (pass ? 0 : 0.6), 6 + (pass ? 0 : 0.6));
      cairo_line_to(cr, 17 + (pass ? 0 : 0.6), 8 + (pass ? 0 : 0.6));
      cairo_set_line_width(cr, pass == 0 ? 1.1 : 1.3);
      if (pass == 0) cairo_set_source_rgba(cr, 0.95, 0.9, 0.8, 0.7);
      else cairo_set_source_rgb(cr, 0.12, 0.09, 0.07);
      cairo_stroke(cr);
    }
  });
  ScrubFireCodes(img);
  return img;
}

}  // namespace assetgen::pieces

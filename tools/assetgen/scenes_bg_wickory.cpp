// Wickory: the cellar of a blasting crew. Stone, bricks, crates, cracked rock
// and fire, all lit from below by embers; the setting changes every three levels.
#include <algorithm>
#include <cmath>

#include "tools/assetgen/scenes_bg.h"

namespace scenes {

namespace {

double Smooth(double a, double b, double v) {
  double t = std::clamp((v - a) / (b - a), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

// Three ember tints so that neighbouring levels differ in warmth.
Col Ember(int level) {
  const Col tints[3] = {Hex(0xFF7A1A), Hex(0xFF3A10), Hex(0xFFB030)};
  return tints[level % 3];
}

Ramp Fire() {
  return Ramp{{0.0, Hex(0x0A0302)}, {0.3, Hex(0x4A0A04)}, {0.55, Hex(0xB02A08)},
              {0.78, Hex(0xF2800E)}, {0.92, Hex(0xFFD040)}, {1.0, Hex(0xFFF6C0)}};
}

// Warm light rising from the bottom edge and from a few glowing spots.
double Underlight(int y, double strength) { return strength * std::exp(-(kBgH - y) / 90.0); }

void RisingEmbers(cairo_t* cr, assetgen::Random& rnd, int count, Col tint) {
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  for (int i = 0; i < count; ++i) {
    double x = rnd.Range(0, kBgW), y = rnd.Range(20, kBgH);
    double r = 0.5 + 1.3 * std::pow(rnd.Uniform(), 2);
    double a = rnd.Range(0.4, 1.0) * (0.4 + 0.6 * y / kBgH);
    double drift = rnd.Range(-4, 4);
    cairo_set_line_width(cr, r * 1.2);
    Source(cr, tint, a * 0.45);
    cairo_move_to(cr, x, y);
    cairo_curve_to(cr, x + drift, y + 4, x - drift, y + 8, x + drift * 0.5, y + 6 + r * 8);
    cairo_stroke(cr);
    Glow(cr, x, y, r * 4, tint, a * 0.5);
    Source(cr, Lerp(tint, Hex(0xFFF4C0), 0.6), a);
    cairo_arc(cr, x, y, r, 0, 2 * M_PI);
    cairo_fill(cr);
  }
}

void StoneWall(Pixels& p, int level, uint64_t seed) {
  Noise n(seed);
  Col ember = Ember(level);
  double cw = 34 + 6 * (level % 3), ch = 22 + 4 * (level % 3);
  p.Fill([&](int x, int y) {
    Cells c = Voronoi(x / cw, y / ch, seed, 0.8);
    double gap = c.f2 - c.f1;
    double tex = 0.75 + 0.5 * n.Fbm(x / 5.0, y / 5.0, 3);
    Col stone = Lerp(Hex(0x2C2722), Hex(0x5C5044), Unit(c.id));
    double rim = Smooth(0.02, 0.3, gap);
    double lit = 0.45 + 0.45 * std::pow(y / (double)kBgH, 1.5);
    Col col = Scale(stone, tex * (0.35 + 0.65 * rim) * lit);
    if (gap < 0.045) col = Hex(0x0E0908);
    return Add(col, Scale(ember, Underlight(y, 0.75) * (0.3 + 0.7 * rim)));
  });
}

void BrickWall(Pixels& p, int level, uint64_t seed) {
  Noise n(seed);
  Col ember = Ember(level);
  double bh = 13 + 2 * (level % 3), bw = bh * 2.6;
  double tx[2] = {30.0 + 10 * (level % 3), 370.0 - 12 * (level % 3)}, ty = 60 + 30 * (level % 3);
  p.Fill([&](int x, int y) {
    int row = static_cast<int>(y / bh);
    double ox = (row & 1) ? bw / 2 : 0;
    int col = static_cast<int>(std::floor((x + ox) / bw));
    double lx = std::fmod(x + ox, bw), ly = std::fmod(y, bh);
    uint32_t h = Hash(seed, (static_cast<uint64_t>(row) << 20) ^ static_cast<uint32_t>(col + 1000));
    Col brick = Lerp(Hex(0x5A2418), Hex(0x8A4A2E), Unit(h));
    double tex = 0.78 + 0.4 * n.Fbm(x / 4.0, y / 4.0, 3);
    bool mortar = lx < 2 || ly < 2;
    Col c = mortar ? Hex(0x2A2420) : Scale(brick, tex * (ly < 4 ? 1.15 : 1.0));
    double light = 0.25;
    for (double t : tx) light += 0.9 * std::exp(-std::hypot(x - t, (y - ty) * 1.2) / 70.0);
    c = Scale(c, light);
    return Add(c, Scale(ember, Underlight(y, 0.45)));
  });
}

void Crates(Pixels& p, int level, uint64_t seed) {
  Noise n(seed);
  Col ember = Ember(level);
  double s = 62 + 10 * (level % 3);
  p.Fill([&](int x, int y) {
    // Crates stacked from the floor; each row shifted by a random amount.
    double fromFloor = kBgH - y;
    int row = static_cast<int>(fromFloor / s);
    double shift = Unit(Hash(seed, row)) * s;
    int col = static_cast<int>(std::floor((x + shift) / s));
    double lx = std::fmod(x + shift, s) / s, ly = 1 - std::fmod(fromFloor, s) / s;
    uint32_t h = Hash(seed + 1, (static_cast<uint64_t>(row) << 16) ^ static_cast<uint32_t>(col + 500));
    double grain = 0.5 + 0.5 * std::sin((ly * 26 + 5 * n.Fbm(x / 30.0, y / 4.0, 3)) * 3.1);
    Col wood = Lerp(Hex(0x5E3A1A), Hex(0x9A6A36), Unit(h) * 0.6 + 0.25 * grain);
    double frame = 0.1;
    bool border = lx < frame || lx > 1 - frame || ly < frame || ly > 1 - frame;
    bool brace = std::abs(lx - ly) < 0.07 && !border;
    bool seam = !border && std::fmod(ly * 5, 1.0) < 0.06;
    Col c = wood;
    if (border || brace) c = Scale(Lerp(wood, Hex(0xB08048), 0.3), 1.1);
    if (seam) c = Scale(wood, 0.45);
    if (lx < 0.015 || lx > 0.985 || ly < 0.015 || ly > 0.985) c = Hex(0x120A06);
    double nail = std::min({std::hypot(lx - 0.05, ly - 0.05), std::hypot(lx - 0.95, ly - 0.05),
                            std::hypot(lx - 0.05, ly - 0.95), std::hypot(lx - 0.95, ly - 0.95)});
    if (nail < 0.025) c = Hex(0x8A8A90);
    // Lit from the embers on the floor; the upper crates fade into the dark.
    double lit = (0.25 + 0.5 * std::pow(y / (double)kBgH, 1.6)) * (0.8 + 0.2 * ly);
    return Add(Scale(c, lit), Scale(ember, Underlight(y, 0.5)));
  });
}

void LavaCracks(Pixels& p, int level, uint64_t seed) {
  Noise n(seed);
  Ramp fire = Fire();
  double cell = 40 + 12 * (level % 3);
  p.Fill([&](int x, int y) {
    double wx = x + 12 * (n.Fbm(x / 50.0, y / 50.0, 3) - 0.5), wy = y + 12 * (n.Fbm(y / 50.0, x / 50.0, 3) - 0.5);
    Cells c = Voronoi(wx / cell, wy / cell, seed, 0.95);
    double gap = c.f2 - c.f1;
    double rock = 0.5 + 0.5 * n.Fbm(x / 7.0, y / 7.0, 4);
    Col base = Scale(Lerp(Hex(0x1C1816), Hex(0x3A302A), Unit(c.id)), rock);
    double width = 0.03 + 0.05 * n.Fbm(x / 30.0, y / 30.0, 2);
    double heat = std::exp(-gap / width * 1.5);
    return Add(Scale(base, 1 - 0.6 * heat), Scale(fire.At(0.35 + 0.65 * heat), heat * 1.2));
  });
}

void SmokeSky(Pixels& p, int level, uint64_t seed) {
  Noise n(seed), m(seed + 3);
  Ramp fire = Fire();
  p.Fill([&](int x, int y) {
    double v = y / (double)kBgH;
    double smoke = n.Fbm(x / 70.0 + m.Fbm(x / 90.0, y / 90.0, 2) * 2, y / 45.0, 5);
    double horizon = std::exp(-(1 - v) * 3.2);
    double t = std::clamp(horizon * (0.5 + 0.7 * smoke) + 0.12 * smoke, 0.0, 1.0);
    return fire.At(t * 0.95);
  });
}

void Skyline(cairo_t* cr, uint64_t seed) {
  // Ruined battlements and chimneys against the glow.
  assetgen::Random rnd(seed);
  Source(cr, Hex(0x0C0604));
  double x = -10;
  cairo_move_to(cr, x, kBgH);
  while (x < kBgW + 10) {
    double w = rnd.Range(14, 40), h = rnd.Range(235, 275);
    cairo_line_to(cr, x, h);
    if (rnd.Int(3) == 0) {  // chimney or tower
      cairo_line_to(cr, x + w * 0.3, h);
      cairo_line_to(cr, x + w * 0.3, h - rnd.Range(15, 40));
      cairo_line_to(cr, x + w * 0.5, h - rnd.Range(15, 40));
      cairo_line_to(cr, x + w * 0.5, h);
    }
    cairo_line_to(cr, x + w, h);
    x += w;
  }
  cairo_line_to(cr, kBgW + 10, kBgH);
  cairo_close_path(cr);
  cairo_fill(cr);
}

void Mine(cairo_t* cr, Pixels& p, assetgen::Canvas& canvas, int level, uint64_t seed) {
  Noise n(seed);
  Col ember = Ember(level);
  double vx = 200 + 40 * ((level % 3) - 1), vy = 130;
  p.Fill([&](int x, int y) {
    double rock = n.Fbm(x / 18.0, y / 12.0, 5);
    double d = std::hypot((x - vx) / 200.0, (y - vy) / 150.0);
    // Deep in the tunnel it is dark; the walls near us catch the lamps.
    Col c = Scale(Lerp(Hex(0x221A14), Hex(0x5A4836), rock), 0.1 + 0.8 * Smooth(0.05, 1.1, d));
    return Add(c, Scale(ember, 0.25 * Smooth(0.3, 1.2, d) * y / kBgH));
  });
  Paint(p, canvas);
  // Rails and sleepers run to the far end.
  for (int i = 0; i < 14; ++i) {
    double t = std::pow(0.8, i), y = vy + (kBgH + 40 - vy) * t, half = 150 * t;
    Source(cr, Scale(Hex(0x5A3A1E), 0.3 + 0.6 * t));
    cairo_rectangle(cr, vx - half, y - 5 * t, 2 * half, 9 * t);
    cairo_fill(cr);
  }
  cairo_set_line_width(cr, 2);
  for (double side : {-1.0, 1.0}) {
    cairo_pattern_t* g = cairo_pattern_create_linear(0, vy, 0, kBgH);
    cairo_pattern_add_color_stop_rgb(g, 0, 0.1, 0.08, 0.08);
    cairo_pattern_add_color_stop_rgb(g, 1, 0.75, 0.6, 0.5);
    cairo_set_source(cr, g);
    cairo_move_to(cr, vx + side * 2, vy);
    cairo_line_to(cr, vx + side * 110 * 1.15, kBgH + 40);
    cairo_stroke(cr);
    cairo_pattern_destroy(g);
  }
  // Timber frames receding towards the far end of the tunnel.
  for (int i = 5; i >= 0; --i) {
    double k = std::pow(0.62, i);
    double w = 420 * k, h = 330 * k, x0 = vx - w / 2, y0 = vy - h * 0.45;
    double post = 26 * k, shade = 0.2 + 0.8 * std::pow(1 - i / 6.0, 2);
    Col wood = Scale(Hex(0x8A5A2C), shade);
    Source(cr, wood);
    cairo_rectangle(cr, x0, y0, post, h);
    cairo_rectangle(cr, x0 + w - post, y0, post, h);
    cairo_rectangle(cr, x0 - post * 0.3, y0, w + post * 0.6, post);
    cairo_fill(cr);
    Source(cr, Scale(wood, 0.5));
    cairo_rectangle(cr, x0 + post * 0.7, y0 + post, post * 0.3, h - post);
    cairo_rectangle(cr, x0 + w - post, y0 + post, post * 0.3, h - post);
    cairo_rectangle(cr, x0 - post * 0.3, y0 + post * 0.75, w + post * 0.6, post * 0.25);
    cairo_fill(cr);
    if (i == 1 || i == 2) {
      for (double lx : {x0 + post * 1.8, x0 + w - post * 1.8}) {
        double ly = y0 + post * 2.2;
        Glow(cr, lx, ly, 70 * k + 10, ember, 0.7);
        Source(cr, Hex(0xFFE0A0));
        cairo_arc(cr, lx, ly, 3 * k + 1, 0, 2 * M_PI);
        cairo_fill(cr);
      }
    }
  }
}

void Firestorm(Pixels& p, int level, uint64_t seed) {
  Noise n(seed), m(seed + 5);
  Ramp fire = Fire();
  double scale = 34 + 6 * (level % 3);
  p.Fill([&](int x, int y) {
    double v = y / (double)kBgH;
    double warp = m.Fbm(x / 60.0, y / 60.0, 3);
    double f = n.Fbm(x / scale + warp, y / (scale * 0.45) + 2 * warp, 5);
    double t = std::clamp(f * 1.25 * (0.25 + 0.95 * v * v) + 0.1 * v - 0.12, 0.0, 1.0);
    return fire.At(t);
  });
}

}  // namespace

void WickoryBackground(assetgen::Canvas& canvas, int level) {
  cairo_t* cr = canvas.cr();
  uint64_t seed = 3000 + level * 43;
  assetgen::Random rnd(seed);
  Pixels px(kBgW, kBgH);
  Col ember = Ember(level);
  switch (level / 3) {
    case 0: StoneWall(px, level, seed); Paint(px, canvas); RisingEmbers(cr, rnd, 25, ember); break;
    case 1: BrickWall(px, level, seed); Paint(px, canvas); RisingEmbers(cr, rnd, 30, ember); break;
    case 2: Crates(px, level, seed); Paint(px, canvas); RisingEmbers(cr, rnd, 35, ember); break;
    case 3: LavaCracks(px, level, seed); Paint(px, canvas); RisingEmbers(cr, rnd, 40, ember); break;
    case 4:
      SmokeSky(px, level, seed);
      Paint(px, canvas);
      Skyline(cr, seed);
      RisingEmbers(cr, rnd, 90, ember);
      break;
    case 5: Mine(cr, px, canvas, level, seed); RisingEmbers(cr, rnd, 30, ember); break;
    default: Firestorm(px, level, seed); Paint(px, canvas); RisingEmbers(cr, rnd, 70, Hex(0xFFD060)); break;
  }
}

}  // namespace scenes

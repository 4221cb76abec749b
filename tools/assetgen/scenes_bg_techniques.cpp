#include <algorithm>
#include <cmath>

#include "tools/assetgen/scenes_bg.h"

namespace scenes {

namespace {

double Smooth(double a, double b, double v) {
  double t = std::clamp((v - a) / (b - a), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

}  // namespace

void Nebula(Pixels& p, const Ramp& ramp, Col accent, double scale, uint64_t seed) {
  Noise n1(seed), n2(seed + 1), n3(seed + 2), n4(seed + 3), n5(seed + 4);
  p.Fill([&](int x, int y) {
    double u = x * scale / p.h, v = y * scale / p.h;
    // Domain warping gives the billowing shape, ridged noise the filaments.
    double qx = n1.Fbm(u, v, 4), qy = n2.Fbm(u + 5.2, v + 1.3, 4);
    double d = n3.Fbm(u + 2.5 * qx, v + 2.5 * qy, 5);
    double ridge = 1 - std::abs(2 * n4.Fbm(u * 1.4 + 2 * qy, v * 1.4 + 2 * qx, 4) - 1);
    double dens = Smooth(0.3, 0.8, d);
    Col c = ramp.At(dens * 0.72 + std::pow(ridge, 8) * 0.3 * (0.3 + dens));
    double m = Smooth(0.42, 0.68, n5.Fbm(u * 0.6 + qx, v * 0.6 - qy, 3));
    return Add(c, Scale(accent, m * (0.15 + 0.85 * dens) * 0.75));
  });
}

void Plasma(Pixels& p, const Ramp& ramp, double freq, double bands, uint64_t seed) {
  assetgen::Random rnd(seed);
  double a = rnd.Range(0.6, 1.4), b = rnd.Range(0.6, 1.4), c = rnd.Range(0.4, 1.0);
  double cx = rnd.Range(0.2, 1.1), cy = rnd.Range(0.2, 0.8), ph = rnd.Range(0, 6.28);
  Noise n(seed);
  p.Fill([&](int x, int y) {
    double u = x * freq / p.h, v = y * freq / p.h;
    double s = std::sin(u * a * 6 + ph) + std::sin(v * b * 7) + std::sin((u + v) * c * 5) +
               std::sin(std::hypot(u - cx * freq, v - cy * freq) * 6) + 1.5 * n.Fbm(u, v, 3);
    double t = 0.5 + 0.5 * std::sin(s * bands);
    return ramp.At(t * t);
  });
}

void Crystal(Pixels& p, const Ramp& ramp, double cell, double seam, uint64_t seed) {
  Noise n(seed);
  p.Fill([&](int x, int y) {
    double u = x / cell, v = y / cell;
    Cells c = Voronoi(u, v, seed);
    double base = Unit(c.id);
    // A facet is lit by how much it faces the light at the top left.
    double dx = u - c.cx, dy = v - c.cy, len = std::hypot(dx, dy) + 1e-6;
    double lit = 0.5 - 0.5 * (dx + dy) / (len * 1.414) * std::min(1.0, len * 2.2);
    double t = std::clamp(0.15 + 0.55 * base * (0.55 + 0.45 * lit) + 0.15 * n.Fbm(u * 3, v * 3, 2), 0.0, 1.0);
    Col col = ramp.At(t);
    double edge = 1 - Smooth(0, seam, c.f2 - c.f1);
    return Lerp(col, ramp.At(1.0), edge * 0.75);
  });
}

void Swirl(Pixels& p, const Ramp& ramp, double cx, double cy, int arms, double twist, uint64_t seed) {
  Noise n(seed);
  p.Fill([&](int x, int y) {
    double dx = (x - cx) / p.h, dy = (y - cy) / p.h;
    double r = std::hypot(dx, dy) + 1e-4, a = std::atan2(dy, dx);
    double f = n.Fbm(x / 60.0, y / 60.0, 4);
    double s = 0.5 + 0.5 * std::sin(arms * a + twist * std::log(r) + 4 * f);
    double core = std::exp(-r * 6);
    double t = std::clamp(s * (0.35 + 0.65 * Smooth(0.0, 0.9, r)) * 0.8 + core * 0.6 + 0.1 * f, 0.0, 1.0);
    return ramp.At(t);
  });
}

void Marble(Pixels& p, const Ramp& ramp, double freq, double turbulence, uint64_t seed) {
  Noise n(seed);
  p.Fill([&](int x, int y) {
    double u = x / (double)p.h, v = y / (double)p.h;
    double t = n.Fbm(u * 3, v * 3, 5);
    double s = std::abs(std::sin((u * 0.8 + v * 0.6) * freq + turbulence * t));
    double vein = std::pow(1 - s, 6);
    return Lerp(ramp.At(0.15 + 0.5 * t), ramp.At(1.0), vein);
  });
}

void Aurora(Pixels& p, const Ramp& sky, Col light, double freq, uint64_t seed) {
  Noise n(seed), m(seed + 7);
  p.Fill([&](int x, int y) {
    double u = x / (double)p.h, v = y / (double)p.h;
    Col c = sky.At(v / 1.0);
    double sum = 0;
    for (int k = 0; k < 2; ++k) {
      double centre = 0.28 + 0.22 * k + 0.12 * std::sin(u * freq * (1 + 0.4 * k) + k * 2) +
                      0.15 * (n.Fbm(u * 1.5 + k * 9, 0.3 * k, 3) - 0.5);
      double dist = v - centre;
      // Light hangs below its edge and fades downward; streaks run vertically.
      double band = dist < 0 ? std::exp(-dist * dist * 900) : std::exp(-dist * 9);
      double streak = 0.45 + 0.55 * m.Fbm(u * 24 + k * 5, v * 1.2, 2);
      sum += band * streak * (k ? 0.6 : 1.0);
    }
    return Add(c, Scale(light, std::min(sum, 1.2) * 0.85));
  });
}

void Tiles(cairo_t* cr, Tiling kind, double s, const Ramp& ramp, Col line, uint64_t seed) {
  assetgen::Random rnd(seed);
  cairo_set_line_width(cr, 1.0);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  auto fill = [&](double x0, double y0, double x1, double y1) {
    double t = rnd.Uniform();
    Col a = ramp.At(0.25 + 0.6 * t), b = ramp.At(0.1 + 0.4 * t);
    cairo_pattern_t* g = cairo_pattern_create_linear(x0, y0, x1, y1);
    cairo_pattern_add_color_stop_rgb(g, 0, a.r, a.g, a.b);
    cairo_pattern_add_color_stop_rgb(g, 1, b.r, b.g, b.b);
    cairo_set_source(cr, g);
    cairo_fill_preserve(cr);
    cairo_pattern_destroy(g);
    Source(cr, line, 0.7);
    cairo_stroke(cr);
  };
  if (kind == Tiling::Hex) {
    double w = s * std::sqrt(3.0), rowH = s * 1.5;
    for (int row = -1; row * rowH < kBgH + s; ++row)
      for (int col = -1; col * w < kBgW + w; ++col) {
        double cx = col * w + (row & 1 ? w / 2 : 0), cy = row * rowH;
        for (int k = 0; k < 6; ++k) {
          double a = M_PI / 3 * k + M_PI / 6;
          double px = cx + (s - 1.5) * std::cos(a), py = cy + (s - 1.5) * std::sin(a);
          if (k == 0) cairo_move_to(cr, px, py);
          else cairo_line_to(cr, px, py);
        }
        cairo_close_path(cr);
        fill(cx - s, cy - s, cx + s, cy + s);
      }
  } else if (kind == Tiling::Diamond) {
    for (int row = -1; row * s / 2 < kBgH + s; ++row)
      for (int col = -1; col * s < kBgW + s; ++col) {
        double cx = col * s + (row & 1 ? s / 2 : 0), cy = row * s / 2;
        cairo_move_to(cr, cx, cy - s / 2 + 1);
        cairo_line_to(cr, cx + s / 2 - 1, cy);
        cairo_line_to(cr, cx, cy + s / 2 - 1);
        cairo_line_to(cr, cx - s / 2 + 1, cy);
        cairo_close_path(cr);
        fill(cx - s / 2, cy - s / 2, cx + s / 2, cy + s / 2);
      }
  } else {
    double h = s * std::sqrt(3.0) / 2;
    for (int row = -1; row * h < kBgH + h; ++row)
      for (int col = -2; col * s / 2 < kBgW + s; ++col) {
        double x = col * s / 2 + (row & 1 ? s / 2 : 0), y = row * h;
        bool up = (col & 1) == 0;
        if (up) {
          cairo_move_to(cr, x, y + h);
          cairo_line_to(cr, x + s / 2, y);
          cairo_line_to(cr, x + s, y + h);
        } else {
          cairo_move_to(cr, x, y);
          cairo_line_to(cr, x + s, y);
          cairo_line_to(cr, x + s / 2, y + h);
        }
        cairo_close_path(cr);
        fill(x, y, x + s, y + h);
      }
  }
}

void Sunburst(cairo_t* cr, double cx, double cy, int rays, Col a, Col b, double alpha) {
  double reach = 700;
  for (int i = 0; i < rays; ++i) {
    double a0 = 2 * M_PI * i / rays, a1 = 2 * M_PI * (i + 0.5) / rays;
    cairo_pattern_t* g = cairo_pattern_create_radial(cx, cy, 0, cx, cy, reach * 0.7);
    Col c = (i & 1) ? a : b;
    cairo_pattern_add_color_stop_rgba(g, 0, c.r, c.g, c.b, alpha);
    cairo_pattern_add_color_stop_rgba(g, 1, c.r, c.g, c.b, alpha * 0.15);
    cairo_set_source(cr, g);
    cairo_move_to(cr, cx, cy);
    cairo_line_to(cr, cx + reach * std::cos(a0), cy + reach * std::sin(a0));
    cairo_line_to(cr, cx + reach * std::cos(a1), cy + reach * std::sin(a1));
    cairo_close_path(cr);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
  }
}

void BlockRain(cairo_t* cr, const Col* hues, int hueCount, int count, uint64_t seed) {
  assetgen::Random rnd(seed);
  for (int i = 0; i < count; ++i) {
    // Far blocks small and faint, near ones large; a trail shows the fall.
    double depth = rnd.Uniform();
    double s = 6 + depth * depth * 22;
    double x = rnd.Range(-10, kBgW), y = rnd.Range(-20, kBgH);
    Col c = hues[rnd.Int(hueCount)];
    double a = 0.25 + 0.6 * depth;
    cairo_pattern_t* g = cairo_pattern_create_linear(0, y - s * 3, 0, y);
    cairo_pattern_add_color_stop_rgba(g, 0, c.r, c.g, c.b, 0);
    cairo_pattern_add_color_stop_rgba(g, 1, c.r, c.g, c.b, a * 0.35);
    cairo_set_source(cr, g);
    cairo_rectangle(cr, x + s * 0.15, y - s * 3, s * 0.7, s * 3);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
    GlossyBlock(cr, x, y, s, c, a);
  }
}

void Orbs(cairo_t* cr, const Col* hues, int hueCount, int count, uint64_t seed) {
  assetgen::Random rnd(seed);
  for (int i = 0; i < count; ++i) {
    double r = 4 + std::pow(rnd.Uniform(), 2.5) * 40;
    double x = rnd.Range(-20, kBgW + 20), y = rnd.Range(-20, kBgH + 20);
    Col c = hues[rnd.Int(hueCount)];
    double a = rnd.Range(0.15, 0.5);
    cairo_pattern_t* g = cairo_pattern_create_radial(x - r * 0.3, y - r * 0.35, r * 0.1, x, y, r);
    Col hi = Lerp(c, Hex(0xFFFFFF), 0.6);
    cairo_pattern_add_color_stop_rgba(g, 0, hi.r, hi.g, hi.b, a * 1.4);
    cairo_pattern_add_color_stop_rgba(g, 0.6, c.r, c.g, c.b, a);
    cairo_pattern_add_color_stop_rgba(g, 0.95, c.r * 0.6, c.g * 0.6, c.b * 0.6, a * 1.2);
    cairo_pattern_add_color_stop_rgba(g, 1, c.r, c.g, c.b, 0);
    cairo_set_source(cr, g);
    cairo_arc(cr, x, y, r, 0, 2 * M_PI);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
  }
}

}  // namespace scenes

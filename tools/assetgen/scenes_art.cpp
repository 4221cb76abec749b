#include "tools/assetgen/scenes_art.h"

#include <algorithm>
#include <cmath>

namespace scenes {

Col Lerp(Col a, Col b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}
Col Scale(Col c, double k) { return {c.r * k, c.g * k, c.b * k}; }
Col Add(Col a, Col b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }

Col Hsv(double hue, double sat, double val) {
  hue -= std::floor(hue);
  double h6 = hue * 6;
  int i = static_cast<int>(h6) % 6;
  double f = h6 - std::floor(h6);
  double p = val * (1 - sat), q = val * (1 - sat * f), t = val * (1 - sat * (1 - f));
  switch (i) {
    case 0: return {val, t, p};
    case 1: return {q, val, p};
    case 2: return {p, val, t};
    case 3: return {p, q, val};
    case 4: return {t, p, val};
    default: return {val, p, q};
  }
}

Col Hex(uint32_t rgb) {
  return {((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0};
}

void Source(cairo_t* cr, Col c, double alpha) { cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha); }

Col Ramp::At(double t) const {
  if (t <= stops_.front().first) return stops_.front().second;
  for (size_t i = 1; i < stops_.size(); ++i) {
    if (t <= stops_[i].first) {
      double span = stops_[i].first - stops_[i - 1].first;
      return Lerp(stops_[i - 1].second, stops_[i].second, span > 0 ? (t - stops_[i - 1].first) / span : 1);
    }
  }
  return stops_.back().second;
}

uint32_t Hash(uint64_t a, uint64_t b) {
  uint64_t h = a * 0x9E3779B97F4A7C15ull ^ (b + 0x632BE59BD9B4E019ull + (a << 6) + (a >> 2));
  h ^= h >> 31;
  h *= 0xBF58476D1CE4E5B9ull;
  h ^= h >> 29;
  h *= 0x94D049BB133111EBull;
  h ^= h >> 32;
  return static_cast<uint32_t>(h);
}

Noise::Noise(uint64_t seed) : seed_(seed) {}

double Noise::Lattice(int x, int y) const {
  return Unit(Hash(seed_, (static_cast<uint64_t>(static_cast<uint32_t>(x)) << 32) | static_cast<uint32_t>(y)));
}

double Noise::Value(double x, double y) const {
  double fx = std::floor(x), fy = std::floor(y);
  int ix = static_cast<int>(fx), iy = static_cast<int>(fy);
  double tx = x - fx, ty = y - fy;
  tx = tx * tx * (3 - 2 * tx);
  ty = ty * ty * (3 - 2 * ty);
  double a = Lattice(ix, iy), b = Lattice(ix + 1, iy), c = Lattice(ix, iy + 1), d = Lattice(ix + 1, iy + 1);
  return (a + (b - a) * tx) + ((c + (d - c) * tx) - (a + (b - a) * tx)) * ty;
}

double Noise::Fbm(double x, double y, int octaves, double gain) const {
  double sum = 0, amp = 1, norm = 0;
  for (int i = 0; i < octaves; ++i) {
    sum += amp * Value(x, y);
    norm += amp;
    amp *= gain;
    // Rotate between octaves so the lattice does not line up.
    double nx = x * 1.6 - y * 1.2 + 17.3, ny = x * 1.2 + y * 1.6 - 5.1;
    x = nx;
    y = ny;
  }
  return sum / norm;
}

Cells Voronoi(double x, double y, uint64_t seed, double jitter) {
  int ix = static_cast<int>(std::floor(x)), iy = static_cast<int>(std::floor(y));
  Cells c{1e9, 1e9, 0, 0, 0};
  for (int dy = -1; dy <= 1; ++dy)
    for (int dx = -1; dx <= 1; ++dx) {
      int gx = ix + dx, gy = iy + dy;
      uint32_t h = Hash(seed, (static_cast<uint64_t>(static_cast<uint32_t>(gx)) << 32) | static_cast<uint32_t>(gy));
      double px = gx + 0.5 + (Unit(h) - 0.5) * jitter;
      double py = gy + 0.5 + (Unit(Hash(h)) - 0.5) * jitter;
      double d = std::hypot(px - x, py - y);
      if (d < c.f1) {
        c.f2 = c.f1;
        c.f1 = d;
        c.id = h;
        c.cx = px;
        c.cy = py;
      } else if (d < c.f2) {
        c.f2 = d;
      }
    }
  return c;
}

void Paint(const Pixels& p, assetgen::Canvas& c) {
  cairo_surface_flush(c.surface());
  unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  auto ch = [](double v) { return static_cast<uint32_t>(std::clamp(v, 0.0, 1.0) * 255 + 0.5); };
  for (int y = 0; y < std::min(p.h, c.height()); ++y) {
    uint32_t* row = reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride);
    for (int x = 0; x < std::min(p.w, c.width()); ++x) {
      const Col& v = p.px[static_cast<size_t>(y) * p.w + x];
      row[x] = 0xFF000000u | (ch(v.r) << 16) | (ch(v.g) << 8) | ch(v.b);
    }
  }
  cairo_surface_mark_dirty(c.surface());
}

void PaintScaled(const Pixels& p, cairo_t* cr, double w, double h) {
  assetgen::Canvas small(p.w, p.h);
  Paint(p, small);
  cairo_save(cr);
  cairo_scale(cr, w / p.w, h / p.h);
  cairo_set_source_surface(cr, small.surface(), 0, 0);
  cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_BILINEAR);
  cairo_paint(cr);
  cairo_restore(cr);
}

void SpaceBackdrop(cairo_t* cr, double w, double h, const Ramp& ramp, Col accent, uint64_t seed) {
  Noise n1(seed), n2(seed + 1), n3(seed + 2), n4(seed + 3);
  Pixels p(static_cast<int>(w / 2), static_cast<int>(h / 2));
  p.Fill([&](int x, int y) {
    double u = x * 2.6 / p.h, v = y * 2.6 / p.h;
    double qx = n1.Fbm(u, v, 4), qy = n2.Fbm(u + 5.2, v + 1.3, 4);
    double d = n3.Fbm(u + 2.5 * qx, v + 2.5 * qy, 5);
    double dens = std::clamp((d - 0.3) / 0.5, 0.0, 1.0);
    dens = dens * dens * (3 - 2 * dens);
    double ridge = 1 - std::abs(2 * n4.Fbm(u * 1.4 + 2 * qy, v * 1.4 + 2 * qx, 4) - 1);
    Col c = ramp.At(dens * 0.7 + std::pow(ridge, 8) * 0.3 * (0.3 + dens));
    double m = std::clamp((qy - 0.45) / 0.25, 0.0, 1.0);
    return Add(c, Scale(accent, m * dens * 0.6));
  });
  PaintScaled(p, cr, w, h);
  assetgen::Random rnd(seed + 9);
  Stars(cr, rnd, static_cast<int>(w * h / 1800), w, h, 0.9);
}

namespace {

// Three box blurs in a row approximate a Gaussian.
void BoxBlur(std::vector<float>& v, int w, int h, int r) {
  std::vector<float> tmp(v.size());
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < h; ++y) {
      float acc = 0;
      for (int x = -r; x <= r; ++x) acc += v[y * w + std::clamp(x, 0, w - 1)];
      for (int x = 0; x < w; ++x) {
        tmp[y * w + x] = acc / (2 * r + 1);
        acc += v[y * w + std::min(x + r + 1, w - 1)] - v[y * w + std::max(x - r, 0)];
      }
    }
    for (int x = 0; x < w; ++x) {
      float acc = 0;
      for (int y = -r; y <= r; ++y) acc += tmp[std::clamp(y, 0, h - 1) * w + x];
      for (int y = 0; y < h; ++y) {
        v[y * w + x] = acc / (2 * r + 1);
        acc += tmp[std::min(y + r + 1, h - 1) * w + x] - tmp[std::max(y - r, 0) * w + x];
      }
    }
  }
}

}  // namespace

void Calm(assetgen::Canvas& c, double x0, double y0, double rw, double rh, double soften, double dim,
          double feather, double flatten) {
  cairo_surface_flush(c.surface());
  unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  int w = c.width(), h = c.height();
  std::vector<float> ch[3];
  for (int k = 0; k < 3; ++k) ch[k].resize(static_cast<size_t>(w) * h);
  for (int y = 0; y < h; ++y) {
    const uint32_t* row = reinterpret_cast<const uint32_t*>(data + static_cast<size_t>(y) * stride);
    for (int x = 0; x < w; ++x)
      for (int k = 0; k < 3; ++k) ch[k][y * w + x] = (row[x] >> (16 - 8 * k)) & 255;
  }
  for (int k = 0; k < 3; ++k) BoxBlur(ch[k], w, h, 10);
  // Broad swells survive any blur; pulling towards the area's mean flattens them.
  double mean[3] = {0, 0, 0};
  int count = 0;
  for (int y = std::max(0, int(y0)); y < std::min(h, int(y0 + rh)); ++y)
    for (int x = std::max(0, int(x0)); x < std::min(w, int(x0 + rw)); ++x, ++count)
      for (int k = 0; k < 3; ++k) mean[k] += ch[k][y * w + x];
  for (int k = 0; k < 3; ++k) mean[k] /= std::max(count, 1);
  for (int y = 0; y < h; ++y) {
    uint32_t* row = reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride);
    double my = std::clamp(std::min(y - y0, y0 + rh - y) / feather + 0.5, 0.0, 1.0);
    if (my <= 0) continue;
    for (int x = 0; x < w; ++x) {
      double mx = std::clamp(std::min(x - x0, x0 + rw - x) / feather + 0.5, 0.0, 1.0);
      double m = mx * my;
      if (m <= 0) continue;
      m = m * m * (3 - 2 * m);
      uint32_t out = 0xFF000000u;
      for (int k = 0; k < 3; ++k) {
        double orig = (row[x] >> (16 - 8 * k)) & 255;
        double v = orig + (ch[k][y * w + x] - orig) * soften * m;
        v += (mean[k] - v) * flatten * m;
        v *= 1 - (1 - dim) * m;
        out |= static_cast<uint32_t>(std::clamp(v + 0.5, 0.0, 255.0)) << (16 - 8 * k);
      }
      row[x] = out;
    }
  }
  cairo_surface_mark_dirty(c.surface());
}

void KeyEdges(assetgen::Canvas& c, double threshold) {
  cairo_surface_flush(c.surface());
  unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  for (int y = 0; y < c.height(); ++y) {
    uint32_t* row = reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride);
    for (int x = 0; x < c.width(); ++x) {
      double a = (row[x] >> 24) / 255.0;
      if (a < threshold) {
        row[x] = 0;
        continue;
      }
      double k = (0.55 + 0.45 * a) / a;
      uint32_t out = 0xFF000000u;
      for (int s = 0; s < 24; s += 8)
        out |= static_cast<uint32_t>(std::min(255.0, ((row[x] >> s) & 255) * k + 0.5)) << s;
      row[x] = out;
    }
  }
  cairo_surface_mark_dirty(c.surface());
}

void RoundRect(cairo_t* cr, double x, double y, double w, double h, double r) {
  cairo_new_sub_path(cr);
  cairo_arc(cr, x + w - r, y + r, r, -M_PI / 2, 0);
  cairo_arc(cr, x + w - r, y + h - r, r, 0, M_PI / 2);
  cairo_arc(cr, x + r, y + h - r, r, M_PI / 2, M_PI);
  cairo_arc(cr, x + r, y + r, r, M_PI, 1.5 * M_PI);
  cairo_close_path(cr);
}

void Glow(cairo_t* cr, double x, double y, double radius, Col c, double alpha) {
  cairo_pattern_t* g = cairo_pattern_create_radial(x, y, 0, x, y, radius);
  cairo_pattern_add_color_stop_rgba(g, 0, c.r, c.g, c.b, alpha);
  cairo_pattern_add_color_stop_rgba(g, 0.35, c.r, c.g, c.b, alpha * 0.45);
  cairo_pattern_add_color_stop_rgba(g, 1, c.r, c.g, c.b, 0);
  cairo_set_source(cr, g);
  cairo_arc(cr, x, y, radius, 0, 2 * M_PI);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
}

void Stars(cairo_t* cr, assetgen::Random& rnd, int count, double w, double h, double brightness) {
  for (int i = 0; i < count; ++i) {
    double x = rnd.Range(0, w), y = rnd.Range(0, h);
    double u = rnd.Uniform();
    double size = 0.35 + u * u * u * 1.4;
    Col tint = Lerp(Hex(0xCFE0FF), Hex(0xFFE9C0), rnd.Uniform());
    double a = brightness * (0.35 + 0.65 * rnd.Uniform());
    Source(cr, tint, a);
    cairo_arc(cr, x, y, size, 0, 2 * M_PI);
    cairo_fill(cr);
    if (size > 1.3) {
      Glow(cr, x, y, size * 4, tint, a * 0.35);
      cairo_set_line_width(cr, 0.6);
      Source(cr, tint, a * 0.6);
      cairo_move_to(cr, x - size * 4, y);
      cairo_line_to(cr, x + size * 4, y);
      cairo_move_to(cr, x, y - size * 4);
      cairo_line_to(cr, x, y + size * 4);
      cairo_stroke(cr);
    }
  }
}

void GlossyBlock(cairo_t* cr, double x, double y, double s, Col c, double alpha) {
  double bev = s * 0.16;
  Source(cr, Scale(c, 0.45), alpha);
  cairo_rectangle(cr, x, y, s, s);
  cairo_fill(cr);
  // Lit top and left bevels, shaded bottom and right.
  Source(cr, Lerp(c, Hex(0xFFFFFF), 0.55), alpha);
  cairo_move_to(cr, x, y);
  cairo_line_to(cr, x + s, y);
  cairo_line_to(cr, x + s - bev, y + bev);
  cairo_line_to(cr, x + bev, y + s - bev);
  cairo_line_to(cr, x, y + s);
  cairo_close_path(cr);
  cairo_fill(cr);
  cairo_pattern_t* g = cairo_pattern_create_linear(x, y, x + s, y + s);
  Col hi = Lerp(c, Hex(0xFFFFFF), 0.25), lo = Scale(c, 0.7);
  cairo_pattern_add_color_stop_rgba(g, 0, hi.r, hi.g, hi.b, alpha);
  cairo_pattern_add_color_stop_rgba(g, 1, lo.r, lo.g, lo.b, alpha);
  cairo_set_source(cr, g);
  cairo_rectangle(cr, x + bev, y + bev, s - 2 * bev, s - 2 * bev);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  // The gloss: a soft white sheen over the upper half.
  g = cairo_pattern_create_linear(x, y + bev, x, y + s * 0.55);
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 1, 1, 0.55 * alpha);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 1, 1, 0.05 * alpha);
  cairo_set_source(cr, g);
  RoundRect(cr, x + bev * 1.3, y + bev * 1.3, s - bev * 2.6, s * 0.36, s * 0.08);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
}

void Panel(cairo_t* cr, double x, double y, double w, double h, double radius, double alpha) {
  cairo_pattern_t* g = cairo_pattern_create_linear(x, y, x, y + h);
  cairo_pattern_add_color_stop_rgba(g, 0, 0.10, 0.16, 0.38, alpha);
  cairo_pattern_add_color_stop_rgba(g, 1, 0.03, 0.05, 0.18, alpha);
  cairo_set_source(cr, g);
  RoundRect(cr, x, y, w, h, radius);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(g);
  cairo_set_line_width(cr, 2);
  cairo_set_source_rgba(cr, 0.55, 0.70, 1.0, 0.55);
  cairo_stroke(cr);
  // Glassy sheen along the top.
  g = cairo_pattern_create_linear(x, y, x, y + std::min(h * 0.4, 60.0));
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 1, 1, 0.16);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 1, 1, 0);
  cairo_set_source(cr, g);
  RoundRect(cr, x + 3, y + 3, w - 6, std::min(h * 0.4, 60.0), radius * 0.8);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
}

double TextWidth(cairo_t* cr, const Lettering& l, const std::string& text) {
  assetgen::SetFont(cr, l.family, l.bold, l.size, l.italic);
  cairo_text_extents_t te;
  cairo_text_extents(cr, text.c_str(), &te);
  return te.x_advance;
}

void Letter(cairo_t* cr, const Lettering& l, const std::string& text, double cx, double y) {
  double w = TextWidth(cr, l, text);
  double x = cx - w / 2;
  double ow = l.outlineWidth > 0 ? l.outlineWidth : l.size / 9;
  cairo_font_extents_t fe;
  cairo_font_extents(cr, &fe);
  cairo_save(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  // Shadow.
  cairo_move_to(cr, x + l.size * 0.05, y + l.size * 0.07);
  cairo_text_path(cr, text.c_str());
  cairo_set_source_rgba(cr, 0, 0, 0, 0.55);
  cairo_set_line_width(cr, ow * 2);
  cairo_stroke_preserve(cr);
  cairo_fill(cr);
  // Outline, then the face.
  cairo_move_to(cr, x, y);
  cairo_text_path(cr, text.c_str());
  Source(cr, l.outline);
  cairo_set_line_width(cr, ow * 2);
  cairo_stroke_preserve(cr);
  cairo_pattern_t* g = cairo_pattern_create_linear(0, y - fe.ascent * 0.8, 0, y + fe.descent * 0.3);
  cairo_pattern_add_color_stop_rgb(g, 0, l.top.r, l.top.g, l.top.b);
  cairo_pattern_add_color_stop_rgb(g, 0.5, l.mid.r, l.mid.g, l.mid.b);
  cairo_pattern_add_color_stop_rgb(g, 1, l.bottom.r, l.bottom.g, l.bottom.b);
  cairo_set_source(cr, g);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(g);
  // Highlight: the upper part of the face, lightened.
  cairo_clip(cr);
  g = cairo_pattern_create_linear(0, y - fe.ascent * 0.8, 0, y - fe.ascent * 0.35);
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 1, 1, 0.6);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 1, 1, 0);
  cairo_set_source(cr, g);
  cairo_paint(cr);
  cairo_pattern_destroy(g);
  cairo_restore(cr);
}

}  // namespace scenes

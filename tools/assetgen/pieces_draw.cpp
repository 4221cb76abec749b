#include "tools/assetgen/pieces_draw.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace assetgen::pieces {

Rgb Mix(Rgb a, Rgb b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}
Rgb Scale(Rgb a, double k) {
  return {std::min(1.0, a.r * k), std::min(1.0, a.g * k), std::min(1.0, a.b * k)};
}
void Source(cairo_t* cr, Rgb c, double alpha) { cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha); }

namespace {

const Rgb kWhite{1, 1, 1};

Material Look(Finish f, int r, int g, int b, uint32_t seed = 0) { return {f, Hex(r, g, b), seed}; }

void Quad(cairo_t* cr, double x0, double y0, double x1, double y1, double x2, double y2, double x3, double y3,
          Rgb c) {
  cairo_move_to(cr, x0, y0);
  cairo_line_to(cr, x1, y1);
  cairo_line_to(cr, x2, y2);
  cairo_line_to(cr, x3, y3);
  cairo_close_path(cr);
  Source(cr, c);
  cairo_fill(cr);
}

// Rim and the four bevel bands of width b; returns nothing, leaves the face
// (x + 1 + b .. x + s - 1 - b) to the caller.
void Bevel(cairo_t* cr, double x, double y, double s, double b, Rgb rim, Rgb top, Rgb left, Rgb bottom,
           Rgb right) {
  cairo_rectangle(cr, x, y, s, s);
  Source(cr, rim);
  cairo_fill(cr);
  double i0 = 1, i1 = s - 1;
  Quad(cr, x + i0, y + i0, x + i1, y + i0, x + i1 - b, y + i0 + b, x + i0 + b, y + i0 + b, top);
  Quad(cr, x + i0, y + i0, x + i0 + b, y + i0 + b, x + i0 + b, y + i1 - b, x + i0, y + i1, left);
  Quad(cr, x + i0, y + i1, x + i0 + b, y + i1 - b, x + i1 - b, y + i1 - b, x + i1, y + i1, bottom);
  Quad(cr, x + i1, y + i0, x + i1, y + i1, x + i1 - b, y + i1 - b, x + i1 - b, y + i0 + b, right);
}

void FaceGradient(cairo_t* cr, double x, double y, double w, Rgb a, Rgb b) {
  cairo_pattern_t* p = cairo_pattern_create_linear(x, y, x + w, y + w);
  cairo_pattern_add_color_stop_rgb(p, 0, a.r, a.g, a.b);
  cairo_pattern_add_color_stop_rgb(p, 1, b.r, b.g, b.b);
  cairo_rectangle(cr, x, y, w, w);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
}

// A soft white highlight in the upper left of the block, and a small
// specular spot.
void Gloss(cairo_t* cr, double x, double y, double s, double strength, bool spot) {
  cairo_save(cr);
  cairo_rectangle(cr, x + 1, y + 1, s - 2, s - 2);
  cairo_clip(cr);
  cairo_pattern_t* p = cairo_pattern_create_radial(x + s * 0.34, y + s * 0.3, 0, x + s * 0.34, y + s * 0.3, s * 0.5);
  cairo_pattern_add_color_stop_rgba(p, 0, 1, 1, 1, strength);
  cairo_pattern_add_color_stop_rgba(p, 1, 1, 1, 1, 0);
  cairo_set_source(cr, p);
  cairo_paint(cr);
  cairo_pattern_destroy(p);
  if (spot) {
    cairo_arc(cr, x + s * 0.3, y + s * 0.27, s * 0.085, 0, 2 * M_PI);
    cairo_set_source_rgba(cr, 1, 1, 1, 0.9);
    cairo_fill(cr);
  }
  cairo_restore(cr);
}

uint32_t Hash(uint32_t a) {
  a ^= a >> 16;
  a *= 0x7feb352d;
  a ^= a >> 15;
  a *= 0x846ca68b;
  a ^= a >> 16;
  return a;
}
double Noise(uint32_t seed, int i, int j) { return (Hash(seed * 977 + i * 131 + j * 7919 + 17) & 0xffff) / 65535.0; }

void GlossBlock(cairo_t* cr, double x, double y, double s, Rgb c) {
  double b = std::round(s * 0.15);
  Bevel(cr, x, y, s, b, Scale(c, 0.38), Mix(c, kWhite, 0.62), Mix(c, kWhite, 0.38), Scale(c, 0.55),
        Scale(c, 0.7));
  FaceGradient(cr, x + 1 + b, y + 1 + b, s - 2 - 2 * b, Mix(c, kWhite, 0.18), Scale(c, 0.86));
  Gloss(cr, x, y, s, 0.6, true);
}

// A cut gem: bevelled rim, four facets around a bright table, a sparkle.
void JewelBlock(cairo_t* cr, double x, double y, double s, Rgb c) {
  double b = std::round(s * 0.1);
  Bevel(cr, x, y, s, b, Scale(c, 0.3), Mix(c, kWhite, 0.55), Mix(c, kWhite, 0.3), Scale(c, 0.45),
        Scale(c, 0.6));
  double f0 = 1 + b, f1 = s - 1 - b, t0 = s * 0.35, t1 = s * 0.65;
  Quad(cr, x + f0, y + f0, x + f1, y + f0, x + t1, y + t0, x + t0, y + t0, Mix(c, kWhite, 0.35));
  Quad(cr, x + f0, y + f0, x + t0, y + t0, x + t0, y + t1, x + f0, y + f1, Mix(c, kWhite, 0.12));
  Quad(cr, x + f0, y + f1, x + t0, y + t1, x + t1, y + t1, x + f1, y + f1, Scale(c, 0.62));
  Quad(cr, x + f1, y + f0, x + f1, y + f1, x + t1, y + t1, x + t1, y + t0, Scale(c, 0.8));
  FaceGradient(cr, x + t0, y + t0, t1 - t0, Mix(c, kWhite, 0.45), c);
  Gloss(cr, x, y, s, 0.45, false);
  // Sparkle: a small four-pointed star on the upper left facet.
  double sx = x + s * 0.3, sy = y + s * 0.28, r = s * 0.14;
  cairo_move_to(cr, sx - r, sy);
  cairo_line_to(cr, sx, sy - r * 0.25);
  cairo_line_to(cr, sx + r, sy);
  cairo_line_to(cr, sx, sy + r * 0.25);
  cairo_close_path(cr);
  cairo_move_to(cr, sx, sy - r);
  cairo_line_to(cr, sx + r * 0.25, sy);
  cairo_line_to(cr, sx, sy + r);
  cairo_line_to(cr, sx - r * 0.25, sy);
  cairo_close_path(cr);
  cairo_set_source_rgba(cr, 1, 1, 1, 0.95);
  cairo_fill(cr);
}

// Speckled stone with a thin bevel and a soft sheen.
void StoneBlock(cairo_t* cr, double x, double y, double s, Rgb c, uint32_t seed) {
  double b = std::round(s * 0.1);
  Bevel(cr, x, y, s, b, Scale(c, 0.4), Mix(c, kWhite, 0.4), Mix(c, kWhite, 0.22), Scale(c, 0.58),
        Scale(c, 0.72));
  int f0 = static_cast<int>(1 + b), f1 = static_cast<int>(s - 1 - b);
  for (int j = f0; j < f1; ++j)
    for (int i = f0; i < f1; ++i) {
      double n = Noise(seed, i, j);
      double shade = 0.9 + 0.2 * n - 0.1 * (i + j - 2 * f0) / (2.0 * (f1 - f0));
      Rgb p = Scale(c, shade);
      if (Noise(seed + 1, i, j) > 0.93) p = Scale(c, 0.72);
      if (Noise(seed + 2, i, j) > 0.95) p = Mix(c, kWhite, 0.35);
      cairo_rectangle(cr, x + i, y + j, 1, 1);
      Source(cr, p);
      cairo_fill(cr);
    }
  // A hairline vein across the face.
  double v = Noise(seed, 99, 1);
  cairo_move_to(cr, x + f0, y + f0 + (f1 - f0) * (0.2 + 0.5 * v));
  cairo_curve_to(cr, x + s * 0.4, y + s * 0.5, x + s * 0.6, y + s * (0.3 + 0.4 * v), x + f1, y + f1 - 2);
  cairo_set_line_width(cr, 0.7);
  Source(cr, Scale(c, 0.62), 0.8);
  cairo_stroke(cr);
  Gloss(cr, x, y, s, 0.35, false);
}

// A wooden crate: light frame with nails, two planks and a diagonal brace.
void CrateBlock(cairo_t* cr, double x, double y, double s, Rgb c, uint32_t seed) {
  double b = std::round(s * 0.15);
  Bevel(cr, x, y, s, b, Scale(c, 0.35), Mix(c, kWhite, 0.42), Mix(c, kWhite, 0.25), Scale(c, 0.6),
        Scale(c, 0.72));
  double f0 = 1 + b, f1 = s - 1 - b, w = f1 - f0;
  cairo_rectangle(cr, x + f0, y + f0, w, w);
  Source(cr, Scale(c, 0.78));
  cairo_fill(cr);
  // Grain: faint horizontal streaks.
  for (int j = static_cast<int>(f0); j < f1; ++j) {
    double n = Noise(seed, 3, j);
    cairo_rectangle(cr, x + f0, y + j, w, 1);
    Source(cr, n > 0.5 ? Scale(c, 0.7) : Scale(c, 0.85), 0.6);
    cairo_fill(cr);
  }
  // Plank seams.
  for (double t : {0.36, 0.64}) {
    cairo_rectangle(cr, x + f0, y + std::round(f0 + w * t), w, 1);
    Source(cr, Scale(c, 0.5));
    cairo_fill(cr);
  }
  // Diagonal brace with dark edges.
  cairo_save(cr);
  cairo_rectangle(cr, x + f0, y + f0, w, w);
  cairo_clip(cr);
  cairo_move_to(cr, x + f0, y + f1);
  cairo_line_to(cr, x + f1, y + f0);
  cairo_set_line_width(cr, s * 0.22);
  Source(cr, Scale(c, 0.5));
  cairo_stroke_preserve(cr);
  cairo_set_line_width(cr, s * 0.14);
  Source(cr, Mix(c, kWhite, 0.12));
  cairo_stroke(cr);
  cairo_restore(cr);
  // Nails in the frame corners.
  double n0 = 1 + b * 0.5, n1 = s - 1 - b * 0.5;
  for (double nx : {n0, n1})
    for (double ny : {n0, n1}) {
      cairo_arc(cr, x + nx, y + ny, s * 0.05 + 0.2, 0, 2 * M_PI);
      cairo_set_source_rgba(cr, 0.85, 0.85, 0.8, 0.9);
      cairo_fill(cr);
    }
  Gloss(cr, x, y, s, 0.25, false);
}

}  // namespace

Material MaterialOf(Variant v, int kind) {
  static const Material classic[8] = {
      Look(Finish::Gloss, 0, 205, 235),  Look(Finish::Gloss, 165, 60, 225), Look(Finish::Gloss, 250, 212, 20),
      Look(Finish::Gloss, 250, 130, 20), Look(Finish::Gloss, 40, 90, 240),  Look(Finish::Gloss, 40, 205, 60),
      Look(Finish::Gloss, 235, 40, 40),  Look(Finish::Gloss, 175, 175, 185)};
  static const Material bonus[12] = {
      Look(Finish::Jewel, 30, 205, 190),  // aquamarine
      Look(Finish::Jewel, 150, 55, 205),  // amethyst
      Look(Finish::Jewel, 245, 185, 25),  // topaz
      Look(Finish::Jewel, 230, 110, 15),  // amber
      Look(Finish::Jewel, 30, 70, 215),   // sapphire
      Look(Finish::Jewel, 10, 165, 80),   // emerald
      Look(Finish::Jewel, 205, 20, 55),   // ruby
      Look(Finish::Jewel, 245, 125, 175), // rose quartz
      Look(Finish::Jewel, 150, 215, 30),  // peridot
      Look(Finish::Jewel, 200, 215, 235), // diamond
      Look(Finish::Jewel, 215, 40, 175),  // spinel
      Look(Finish::Jewel, 150, 105, 70),  // smoky quartz
  };
  static const Material fuse[12] = {
      Look(Finish::Crate, 222, 172, 95, 1),   // pine crate
      Look(Finish::Stone, 142, 142, 148, 2),  // granite
      Look(Finish::Crate, 172, 112, 58, 3),   // oak crate
      Look(Finish::Stone, 215, 186, 132, 4),  // sandstone
      Look(Finish::Stone, 92, 108, 130, 5),   // slate
      Look(Finish::Crate, 120, 80, 48, 6),    // walnut crate
      Look(Finish::Stone, 108, 135, 88, 7),   // mossy stone
      Look(Finish::Crate, 236, 216, 172, 8),  // birch crate
      Look(Finish::Stone, 226, 226, 220, 9),  // marble
      Look(Finish::Crate, 160, 154, 142, 10), // weathered grey crate
      Look(Finish::Stone, 192, 102, 72, 11),  // terracotta
      Look(Finish::Stone, 70, 70, 80, 12),    // basalt
  };
  switch (v) {
    case Variant::Classic: return classic[kind];
    case Variant::Bonus: return bonus[kind];
    case Variant::Fuse: return fuse[kind];
  }
  return classic[0];
}

void DrawBlock(cairo_t* cr, double x, double y, double size, const Material& m) {
  switch (m.finish) {
    case Finish::Gloss: GlossBlock(cr, x, y, size, m.base); break;
    case Finish::Jewel: JewelBlock(cr, x, y, size, m.base); break;
    case Finish::Stone: StoneBlock(cr, x, y, size, m.base, m.seed * 101 + static_cast<uint32_t>(x * 7 + y * 3)); break;
    case Finish::Crate: CrateBlock(cr, x, y, size, m.base, m.seed * 101 + static_cast<uint32_t>(x * 7 + y * 3)); break;
  }
}

bmp::Image565 Render(int w, int h, const std::function<void(cairo_t*)>& draw) {
  Canvas c(w, h);
  draw(c.cr());
  return Quantise(c, Dither::None);
}

bmp::Image565 Blank(int w, int h) {
  bmp::Image565 img;
  img.width = w;
  img.height = h;
  img.pixels.assign(static_cast<size_t>(w) * h, 0);
  return img;
}

namespace {
template <bool Keyed>
void Copy(bmp::Image565& dst, const bmp::Image565& src, int x, int y) {
  for (int j = 0; j < src.height; ++j)
    for (int i = 0; i < src.width; ++i) {
      int dx = x + i, dy = y + j;
      if (dx < 0 || dy < 0 || dx >= dst.width || dy >= dst.height) continue;
      uint16_t v = src.at(i, j);
      if (Keyed && v == 0) continue;
      Put(dst, dx, dy, v);
    }
}
}  // namespace

void Paste(bmp::Image565& dst, const bmp::Image565& src, int x, int y) { Copy<false>(dst, src, x, y); }
void PasteKeyed(bmp::Image565& dst, const bmp::Image565& src, int x, int y) { Copy<true>(dst, src, x, y); }

bmp::Image565 Crop(const bmp::Image565& src, int x, int y, int w, int h) {
  bmp::Image565 out = Blank(w, h);
  Paste(out, src, -x, -y);
  return out;
}

void ScrubFireCodes(bmp::Image565& img) {
  auto isCode = [](uint16_t v) { return std::find(kFireCodes.begin(), kFireCodes.end(), v) != kFireCodes.end(); };
  for (uint16_t& v : img.pixels)
    if (isCode(v)) {
      v ^= 1;  // one step of blue, invisible
      if (isCode(v)) v ^= 3;
    }
}

void DrawCord(cairo_t* cr, double x, double y, uint8_t arms) {
  if (!arms) return;
  auto bands = [&](double off, double alpha, Rgb c) {
    cairo_rectangle(cr, x + 8 + off, y + 8 + off, 4, 4);
    if (arms & kLeft) cairo_rectangle(cr, x + off, y + 8 + off, 8, 4);
    if (arms & kRight) cairo_rectangle(cr, x + 12 + off, y + 8 + off, 8 - off, 4);
    if (arms & kUp) cairo_rectangle(cr, x + 8 + off, y + off, 4, 8);
    if (arms & kDown) cairo_rectangle(cr, x + 8 + off, y + 12 + off, 4, 8 - off);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
    Source(cr, c, alpha);
    cairo_fill(cr);
  };
  cairo_save(cr);
  cairo_rectangle(cr, x, y, 20, 20);
  cairo_clip(cr);
  bands(1, 0.35, {0, 0, 0});            // shadow under the cord
  bands(0, 1.0, Hex(52, 30, 14));       // the cord
  cairo_restore(cr);
}

void PaintFuse(bmp::Image565& img, int x, int y, uint8_t arms) {
  if (!arms) return;
  auto hline = [&](int x0, int x1) {
    for (int i = x0; i <= x1; ++i) {
      Put(img, x + i, y + 9, kFuse1);
      Put(img, x + i, y + 10, kFuse2);
    }
  };
  auto vline = [&](int y0, int y1) {
    for (int j = y0; j <= y1; ++j) {
      Put(img, x + 9, y + j, kFuse1);
      Put(img, x + 10, y + j, kFuse2);
    }
  };
  if (arms & kUp) vline(0, 8);
  if (arms & kDown) vline(11, 19);
  if (arms & (kUp | kDown)) vline(9, 10);
  if (arms & kLeft) hline(0, 8);
  if (arms & kRight) hline(11, 19);
  if (arms & (kLeft | kRight)) hline(9, 10);
}

void PaintChargeCentre(bmp::Image565& img, int x, int y) {
  Put(img, x + 9, y + 9, kCharge1);
  Put(img, x + 10, y + 10, kCharge2);
}

void DebugPng(const std::string& path, const bmp::Image565& img) {
  const char* dir = std::getenv("ASSETGEN_PNG");
  if (!dir || !*dir) return;
  int k = img.width <= 100 ? 8 : img.width <= 300 ? 4 : 2;
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, img.width * k, img.height * k);
  unsigned char* data = cairo_image_surface_get_data(s);
  int stride = cairo_image_surface_get_stride(s);
  for (int y = 0; y < img.height * k; ++y)
    for (int x = 0; x < img.width * k; ++x) {
      int r, g, b;
      bmp::Unpack565(img.at(x / k, y / k), r, g, b);
      reinterpret_cast<uint32_t*>(data + y * stride)[x] = (r << 16) | (g << 8) | b;
    }
  cairo_surface_mark_dirty(s);
  std::string name = path;
  std::replace(name.begin(), name.end(), '/', '_');
  cairo_surface_write_to_png(s, (std::string(dir) + "/" + name + ".png").c_str());
  cairo_surface_destroy(s);
}

void Write(const Context& ctx, const Entry& e, const bmp::Image565& img) {
  WriteBmp(ctx, e, img);
  DebugPng(e.path, img);
}

}  // namespace assetgen::pieces

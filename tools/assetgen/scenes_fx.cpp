// Small keyed sprites and animation frames: sparks, the intro star and the
// two explosions. Never dithered; black is the colour key.
#include <algorithm>
#include <cmath>
#include <string>

#include "tools/assetgen/scenes_art.h"

namespace {

using scenes::Col;
using scenes::Hex;

double Smooth(double a, double b, double v) {
  double t = std::clamp((v - a) / (b - a), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

// Writes a coverage-keyed pixel: below half coverage it is the key, above it
// the colour at full strength (keyed sprites have no partial transparency).
void Put(assetgen::Canvas& c, int x, int y, Col col, double coverage) {
  unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  uint32_t* px = reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride) + x;
  if (coverage < 0.5) {
    *px = 0;
    return;
  }
  auto ch = [](double v) { return static_cast<uint32_t>(std::clamp(v, 0.0, 1.0) * 255 + 0.5); };
  *px = 0xFF000000u | (ch(col.r) << 16) | (ch(col.g) << 8) | ch(col.b);
}

// Fireballs in frames: the ball grows fast, burns out from the rim inwards and
// leaves smoke that rises, thins and breaks up.
void Fireball(assetgen::Canvas& c, double t, double maxR, uint64_t seed) {
  cairo_surface_flush(c.surface());
  scenes::Noise n(seed), m(seed + 1);
  scenes::Ramp fire{{0.0, Hex(0x5A1404)}, {0.3, Hex(0xB8300A)}, {0.55, Hex(0xF07A12)},
                    {0.8, Hex(0xFFC83A)}, {1.0, Hex(0xFFFBE0)}};
  double grow = 1 - std::pow(1 - std::min(1.0, t / 0.45), 3);
  double radius = maxR * (0.18 + 0.72 * grow + 0.1 * t);
  double heat = std::clamp(1.15 - t * 1.6, 0.0, 1.0);
  double thin = Smooth(0.55, 1.0, t);  // how far the smoke has dissolved
  double cx = c.width() / 2.0, cy = c.height() / 2.0;
  for (int y = 0; y < c.height(); ++y)
    for (int x = 0; x < c.width(); ++x) {
      double dx = (x + 0.5 - cx) / radius, dy = (y + 0.5 - cy) / radius + t * 0.35;  // smoke rises
      double lumps = n.Fbm(dx * 2.2 + 10, dy * 2.2 + 10 + t * 0.8, 4);
      double wisps = m.Fbm(dx * 5 + t * 2, dy * 5, 3);
      double s = 1 - std::hypot(dx, dy) + 0.55 * (lumps - 0.5);
      double cover = s > 0.02 + thin * (0.55 + 0.5 * (wisps - 0.5)) ? 1 : 0;
      if (!cover) {
        Put(c, x, y, {}, 0);
        continue;
      }
      double h = heat * std::clamp(s * 1.8 + 0.35 * (lumps - 0.5) + heat * 0.25, 0.0, 1.2);
      Col smoke = scenes::Lerp(Hex(0x2C2622), Hex(0x6A5E56), std::clamp(lumps * 1.3 - 0.1 - thin * 0.3, 0.0, 1.0));
      Col col = scenes::Lerp(smoke, fire.At(h), Smooth(0.02, 0.35, h));
      Put(c, x, y, col, 1);
    }
  cairo_surface_mark_dirty(c.surface());
}

// A round glowing spark in the top-left 10 x 10; the last row and column stay key.
void Spark(assetgen::Canvas& c, Col hue) {
  for (int y = 0; y < 11; ++y)
    for (int x = 0; x < 11; ++x) {
      double d = std::hypot(x - 4.5, y - 4.5);
      if (x == 10 || y == 10 || d > 5.0) {
        Put(c, x, y, {}, 0);
        continue;
      }
      double core = Smooth(2.6, 0.4, d);
      Col col = scenes::Lerp(scenes::Scale(hue, 0.55 + 0.45 * Smooth(5.0, 2.0, d)), Hex(0xFFFFF4), core);
      Put(c, x, y, col, 1);
    }
  cairo_surface_mark_dirty(c.surface());
}

// A four-pointed twinkle: bright centre and thin rays.
void Twinkle(assetgen::Canvas& c) {
  for (int y = 0; y < 11; ++y)
    for (int x = 0; x < 11; ++x) {
      double dx = std::abs(x - 4.5), dy = std::abs(y - 4.5);
      double ray = std::max(Smooth(1.2, 0.0, dx) * Smooth(5.2, 0.5, dy), Smooth(1.2, 0.0, dy) * Smooth(5.2, 0.5, dx));
      double glow = Smooth(3.2, 0.0, std::hypot(dx, dy));
      double v = std::max(ray, glow);
      if (x == 10 || y == 10 || v < 0.2) {
        Put(c, x, y, {}, 0);
        continue;
      }
      Put(c, x, y, scenes::Lerp(Hex(0x6C8CFF), Hex(0xFFFFFF), v), 1);
    }
  cairo_surface_mark_dirty(c.surface());
}

}  // namespace

// scene_spark N: work<N>.bmp, one colour per picture (the fireworks pick them by number).
ASSETGEN_GENERATOR(scene_spark) {
  static const uint32_t hues[10] = {0xFFD860, 0xFF8A20, 0x40F050, 0x4C7CFF, 0xFFF040,
                                    0xFF40D0, 0x40F0FF, 0xFF3030, 0xB060FF, 0xE8F0FF};
  int i = entry.args.empty() ? 0 : std::stoi(entry.args[0]);
  if (i < 1 || i > 10) assetgen::Fail(entry, "spark number out of 1..10");
  assetgen::Canvas c(11, 11);
  Spark(c, Hex(hues[i - 1]));
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

ASSETGEN_GENERATOR(scene_star) {
  assetgen::Canvas c(11, 11);
  Twinkle(c);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

// scene_explosion FRAME COUNT: frame FRAME (0-based) of a fireball of COUNT frames.
ASSETGEN_GENERATOR(scene_explosion) {
  if (entry.args.size() != 2) assetgen::Fail(entry, "expects FRAME COUNT");
  int frame = std::stoi(entry.args[0]), count = std::stoi(entry.args[1]);
  if (frame < 0 || frame >= count) assetgen::Fail(entry, "frame out of range");
  assetgen::Canvas c(entry.width, entry.height);
  Fireball(c, frame / double(count - 1), entry.width * 0.46, 500 + entry.width);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

// Drawing with Cairo and turning the result into 16-bit game pictures.
#pragma once
#include <cairo.h>

#include <string>

#include "platform/bmp_file.h"
#include "tools/assetgen/registry.h"

namespace assetgen {

// An ARGB32 Cairo canvas. Fully transparent pixels become black (the colour
// key) when quantised; partly transparent ones are taken as composited over black.
class Canvas {
 public:
  Canvas(int width, int height);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  cairo_t* cr() const { return cr_; }
  cairo_surface_t* surface() const { return surface_; }
  int width() const { return width_; }
  int height() const { return height_; }

 private:
  int width_, height_;
  cairo_surface_t* surface_;
  cairo_t* cr_;
};

enum class Dither { None, ErrorDiffusion };

// Quantises to RGB565 as the last step. Black stays exactly 0; a pixel that is
// not black never becomes 0 (it is lifted to the darkest non-black code), and
// error diffusion never spreads into or out of black pixels. Use ErrorDiffusion
// only for large opaque pictures, never for sprites or animation frames.
bmp::Image565 Quantise(const Canvas& c, Dither dither);

// Writes the picture at the entry's path, checking its size against the manifest.
void WriteBmp(const Context& ctx, const Entry& e, const bmp::Image565& img);

// Selects an installed DejaVu face with hinting off (deterministic lettering).
// family: "DejaVu Sans", "DejaVu Serif" or "DejaVu Sans Mono".
void SetFont(cairo_t* cr, const char* family, bool bold, double size, bool italic = false);

// Sets the Cairo source from 8-bit channels.
inline void Rgb(cairo_t* cr, int r, int g, int b, double a = 1.0) {
  cairo_set_source_rgba(cr, r / 255.0, g / 255.0, b / 255.0, a);
}

// A small deterministic random generator for generators (never use rand()).
class Random {
 public:
  explicit Random(uint64_t seed) : s_(seed * 0x9E3779B97F4A7C15ull + 1) {}
  uint64_t Next() {
    s_ ^= s_ << 13; s_ ^= s_ >> 7; s_ ^= s_ << 17;
    return s_;
  }
  double Uniform() { return (Next() >> 11) * (1.0 / 9007199254740992.0); }  // [0, 1)
  double Range(double lo, double hi) { return lo + (hi - lo) * Uniform(); }
  int Int(int n) { return static_cast<int>(Uniform() * n); }

 private:
  uint64_t s_;
};

}  // namespace assetgen

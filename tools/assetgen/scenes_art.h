// Shared painting tools of the scene pictures: colours and ramps, value noise,
// a float pixel buffer for per-pixel work, and the recurring Cairo motifs
// (stars, glows, glossy blocks, panels, gold lettering).
#pragma once
#include <cairo.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tools/assetgen/canvas.h"

namespace scenes {

struct Col {
  double r = 0, g = 0, b = 0;  // 0..1
};
Col Lerp(Col a, Col b, double t);
Col Scale(Col c, double k);
Col Add(Col a, Col b);
Col Hsv(double hue, double sat, double val);  // hue in turns
Col Hex(uint32_t rgb);
void Source(cairo_t* cr, Col c, double alpha = 1.0);

// A colour ramp: stops at positions 0..1, clamped outside.
class Ramp {
 public:
  Ramp(std::initializer_list<std::pair<double, Col>> stops) : stops_(stops) {}
  explicit Ramp(std::vector<std::pair<double, Col>> stops) : stops_(std::move(stops)) {}
  Col At(double t) const;

 private:
  std::vector<std::pair<double, Col>> stops_;
};

// Smooth value noise on an integer lattice; deterministic from the seed.
class Noise {
 public:
  explicit Noise(uint64_t seed);
  double Value(double x, double y) const;  // 0..1
  double Fbm(double x, double y, int octaves, double gain = 0.5) const;  // about 0..1

 private:
  double Lattice(int x, int y) const;
  uint64_t seed_;
};

// Cell noise: distances to the nearest and second-nearest feature point and
// the nearest point's id, on a grid of cells of size 1.
struct Cells {
  double f1, f2;
  uint32_t id;
  double cx, cy;  // nearest feature point
};
Cells Voronoi(double x, double y, uint64_t seed, double jitter = 0.9);
uint32_t Hash(uint64_t a, uint64_t b = 0);
inline double Unit(uint32_t h) { return (h & 0xFFFFFF) / 16777216.0; }

// Float RGB buffer for per-pixel painting; copied onto a canvas opaque.
struct Pixels {
  int w, h;
  std::vector<Col> px;
  Pixels(int width, int height) : w(width), h(height), px(static_cast<size_t>(width) * height) {}
  Col& at(int x, int y) { return px[static_cast<size_t>(y) * w + x]; }
  template <class F>
  void Fill(F f) {
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x) at(x, y) = f(x, y);
  }
};
void Paint(const Pixels& p, assetgen::Canvas& c);
// Paints the buffer stretched smoothly over w x h (per-pixel work stays small).
void PaintScaled(const Pixels& p, cairo_t* cr, double w, double h);
// A nebula painted at quarter area and stretched over w x h, with stars.
void SpaceBackdrop(cairo_t* cr, double w, double h, const Ramp& ramp, Col accent, uint64_t seed);

// Softens and dims a rectangle of an opaque canvas so that the game's own
// drawing reads over it: blends towards a blurred copy and towards the
// area's mean colour, with feathered edges.
void Calm(assetgen::Canvas& c, double x, double y, double w, double h, double soften, double dim,
          double feather, double flatten = 0);

// Makes a keyed picture's edges clean: pixels under the given coverage become
// the key, the others lose most of the darkening that blending over black gave them.
void KeyEdges(assetgen::Canvas& c, double threshold = 0.4);

// Round-cornered rectangle path.
void RoundRect(cairo_t* cr, double x, double y, double w, double h, double r);

// Scattered stars: small dots, a few with a cross glint.
void Stars(cairo_t* cr, assetgen::Random& rnd, int count, double w, double h, double brightness);
void Glow(cairo_t* cr, double x, double y, double radius, Col c, double alpha);
// A bevelled, glossy block of the pieces' look.
void GlossyBlock(cairo_t* cr, double x, double y, double size, Col c, double alpha = 1.0);
// Translucent navy panel with a light rim.
void Panel(cairo_t* cr, double x, double y, double w, double h, double radius, double alpha);

// Lettering centred on cx with its baseline at y: drop shadow, dark outline,
// vertical gold gradient (or the given top/bottom colours), thin highlight.
struct Lettering {
  const char* family = "DejaVu Sans";
  bool bold = true;
  double size = 40;
  Col top = Hex(0xFFF3A0), mid = Hex(0xF2B321), bottom = Hex(0x9A5A08);
  Col outline = Hex(0x1A0E02);
  double outlineWidth = 0;  // 0: a ninth of the size
  bool italic = false;
};
double TextWidth(cairo_t* cr, const Lettering& l, const std::string& text);
void Letter(cairo_t* cr, const Lettering& l, const std::string& text, double cx, double y);

// SVG-like path data in the box's own units: M L H V C Q Z (absolute) and
// m l h v c q z (relative), numbers separated by spaces or commas.
void PathData(cairo_t* cr, const std::string& d);

}  // namespace scenes

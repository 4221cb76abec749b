// Shared painting for the interface pictures: gold lettering, glossy plates,
// bevels. Everything here draws with Cairo paths only, so the same sources
// always give the same pixels.
#pragma once
#include <cairo.h>

#include <string>

#include "tools/assetgen/canvas.h"

namespace assetgen::ui {

struct Col {
  double r, g, b;  // 0..255
};

inline Col Mix(Col a, Col b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}
inline Col Scale(Col a, double k) { return {a.r * k, a.g * k, a.b * k}; }

void Set(cairo_t* cr, Col c, double alpha = 1.0);

// A vertical three-stop fill: light top, body, dark bottom.
struct Ramp {
  Col top, mid, bottom;
};

// House palettes, so every picture speaks the same colours.
namespace pal {
inline constexpr Ramp kGold{{255, 246, 170}, {250, 196, 40}, {176, 96, 8}};
inline constexpr Ramp kPaleGold{{236, 226, 190}, {196, 172, 110}, {120, 96, 52}};
inline constexpr Ramp kNavy{{70, 96, 168}, {28, 40, 92}, {10, 16, 44}};
inline constexpr Ramp kTeal{{120, 230, 236}, {20, 150, 176}, {6, 60, 92}};
inline constexpr Ramp kPurple{{206, 140, 255}, {120, 48, 190}, {48, 12, 92}};
inline constexpr Ramp kStone{{190, 180, 168}, {118, 108, 98}, {52, 46, 42}};
inline constexpr Ramp kEmber{{255, 236, 140}, {250, 120, 24}, {150, 30, 6}};
inline constexpr Ramp kSilver{{250, 252, 255}, {180, 192, 214}, {92, 102, 128}};
inline constexpr Ramp kRed{{255, 170, 150}, {220, 50, 36}, {110, 10, 10}};
inline constexpr Ramp kGreen{{200, 255, 170}, {70, 200, 60}, {16, 92, 24}};
inline constexpr Col kInk{14, 10, 24};        // outline of lettering
inline constexpr Col kNavyInk{10, 16, 40};    // outline of navy plates
}  // namespace pal

cairo_pattern_t* RampPattern(const Ramp& r, double y0, double y1);
// Strokes the current path (a copy of which is path) twice: a dark ink
// outline, then the ramp-coloured line inside it. The path is left empty.
void InkedRampStroke(cairo_t* cr, cairo_path_t* path, double inkWidth, double width, const Ramp& r, double y0,
                     double y1);

void RoundRect(cairo_t* cr, double x, double y, double w, double h, double radius);

// Puts the outline of text on the path, scaled to fit the box (never larger
// than size) and centred in it. slant shears the letters like an italic,
// squeeze narrows them. Returns the size used.
double TextPath(cairo_t* cr, const std::string& text, double x, double y, double w, double h, double size,
                double slant = 0, double squeeze = 1.0, const char* family = "DejaVu Sans");

// Lettering in the house style: a dark outline of the given width, the ramp
// as fill and a thin light edge along the top. Box semantics as TextPath.
void Lettering(cairo_t* cr, const std::string& text, double x, double y, double w, double h, double size,
               const Ramp& fill, double outline, double slant = 0, double squeeze = 1.0);

// A glossy bevelled plate: dark rim, the ramp as body, a soft shine on the
// upper half. rim is the width of the dark edge.
void Plate(cairo_t* cr, double x, double y, double w, double h, double radius, const Ramp& body,
           double rim = 1.5, Col rimCol = pal::kNavyInk);

// A plate with a gold rim inside a dark edge: the house frame for banners,
// badges and headers.
void RimmedPlate(cairo_t* cr, double x, double y, double w, double h, double radius, const Ramp& body,
                 double rim = 2.0);

// A soft glow ring around a rounded rectangle (for selected states).
void Glow(cairo_t* cr, double x, double y, double w, double h, double radius, Col c, double width);

// Small helpers for the generators.
const std::string& Arg(const Entry& e, size_t i);
bool Lit(const Entry& e, size_t i);  // argument i is "selected" or "lit"
void Save(const Context& ctx, const Entry& e, const Canvas& c);  // quantise without dither and write

}  // namespace assetgen::ui

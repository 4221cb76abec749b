// Drawing for the piece grid: bevelled glossy blocks in the three looks,
// fuse cords, and the 16-bit picture operations the sheets are built from.
#pragma once
#include <cairo.h>

#include <cstdint>
#include <functional>

#include "platform/bmp_file.h"
#include "tools/assetgen/canvas.h"
#include "tools/assetgen/pieces_shapes.h"

namespace assetgen::pieces {

struct Rgb {
  double r, g, b;  // 0..1
};
inline Rgb Hex(int r, int g, int b) { return {r / 255.0, g / 255.0, b / 255.0}; }
Rgb Mix(Rgb a, Rgb b, double t);
Rgb Scale(Rgb a, double k);
void Source(cairo_t* cr, Rgb c, double alpha = 1.0);

enum class Finish { Gloss, Jewel, Stone, Crate };
struct Material {
  Finish finish;
  Rgb base;
  uint32_t seed = 0;  // texture of stones and crates
};

// The look of kind 0..11 (0..7 in Classic) in a variant.
Material MaterialOf(Variant v, int kind);

// One block filling the square (x, y, size, size): dark rim, light top-left
// bevel, shaded face and gloss highlight.
void DrawBlock(cairo_t* cr, double x, double y, double size, const Material& m);

// Renders with Cairo and quantises without dithering (sprites and tiles).
bmp::Image565 Render(int w, int h, const std::function<void(cairo_t*)>& draw);

bmp::Image565 Blank(int w, int h);
// Opaque copy of the whole of src to (x, y), clipped to dst.
void Paste(bmp::Image565& dst, const bmp::Image565& src, int x, int y);
// Copy with colour key 0, as the game stamps a sprite.
void PasteKeyed(bmp::Image565& dst, const bmp::Image565& src, int x, int y);
bmp::Image565 Crop(const bmp::Image565& src, int x, int y, int w, int h);
inline void Put(bmp::Image565& img, int x, int y, uint16_t v) {
  img.pixels[static_cast<size_t>(y) * img.width + x] = v;
}

// Moves every pixel that happens to hold one of the five fire codes one step
// off it, so that the codes appear only where they are painted on purpose.
void ScrubFireCodes(bmp::Image565& img);

// The dark cord under a fuse (rows/columns 8..11 along the arms), drawn with
// Cairo before quantising.
void DrawCord(cairo_t* cr, double x, double y, uint8_t arms);
// The fuse itself in the exact codes on rows/columns 9 and 10 of the cell at
// (x, y): the first shade on row/column 9, the second on row/column 10.
void PaintFuse(bmp::Image565& img, int x, int y, uint8_t arms);
// The charge colours at (9, 9) and (10, 10) of the cell at (x, y).
void PaintChargeCentre(bmp::Image565& img, int x, int y);

// With ASSETGEN_PNG=DIR set, also writes the picture enlarged as DIR/NAME.png
// for looking at it (BMP viewers are rare); does nothing otherwise.
void DebugPng(const std::string& path, const bmp::Image565& img);
// Quantise, write the entry, and the debug PNG.
void Write(const Context& ctx, const Entry& e, const bmp::Image565& img);

}  // namespace assetgen::pieces

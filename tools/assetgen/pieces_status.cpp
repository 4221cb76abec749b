// The statistics panels: one 30-pixel row per kind, a small picture of the
// piece on the left, and a plain strip (x 30..69) where the game writes the count.
#include <algorithm>
#include <cmath>
#include <string>

#include "tools/assetgen/pieces_art.h"
#include "tools/assetgen/pieces_draw.h"
#include "tools/assetgen/registry.h"

namespace assetgen::pieces {
namespace {

const Rgb kPlain = Hex(24, 28, 41);     // exactly representable: 565 code 0x18E5
const Rgb kIconBack = Hex(36, 42, 60);

void MiniBlock(cairo_t* cr, double x, double y, double m, Rgb c) {
  cairo_rectangle(cr, x, y, m, m);
  Source(cr, Scale(c, 0.4));
  cairo_fill(cr);
  cairo_rectangle(cr, x + 1, y + 1, m - 2, m - 2);
  Source(cr, c);
  cairo_fill(cr);
  cairo_rectangle(cr, x + 1, y + 1, m - 2, 1);
  cairo_rectangle(cr, x + 1, y + 1, 1, m - 2);
  Source(cr, Mix(c, {1, 1, 1}, 0.55));
  cairo_fill(cr);
  cairo_rectangle(cr, x + 2, y + m - 2, m - 3, 1);
  cairo_rectangle(cr, x + m - 2, y + 2, 1, m - 3);
  Source(cr, Scale(c, 0.65));
  cairo_fill(cr);
}

// The piece's rotation 0 in cells of m pixels, centred on (cx, cy).
void MiniPiece(cairo_t* cr, Variant v, int kind, double cx, double cy) {
  const double m = 6;
  auto cells = Cells(kind, 0);
  int c0 = 4, c1 = 0, r0 = 4, r1 = 0;
  for (Cell c : cells) {
    c0 = std::min(c0, c.c), c1 = std::max(c1, c.c), r0 = std::min(r0, c.r), r1 = std::max(r1, c.r);
  }
  double x0 = std::round(cx - (c1 - c0 + 1) * m / 2), y0 = std::round(cy - (r1 - r0 + 1) * m / 2);
  Material mat = MaterialOf(v, kind);
  for (Cell c : cells) MiniBlock(cr, x0 + (c.c - c0) * m, y0 + (c.r - r0) * m, m, mat.base);
  if (v != Variant::Fuse) return;
  ArmGrid arms = FuseArms(kind, 0, 0);
  Source(cr, Hex(255, 215, 70));
  for (Cell c : cells) {
    uint8_t a = arms[c.r * 4 + c.c];
    double x = x0 + (c.c - c0) * m, y = y0 + (c.r - r0) * m;
    if (a & kLeft) cairo_rectangle(cr, x, y + 2, 3, 1);
    if (a & kRight) cairo_rectangle(cr, x + 2, y + 2, 4, 1);
    if (a & kUp) cairo_rectangle(cr, x + 2, y, 1, 3);
    if (a & kDown) cairo_rectangle(cr, x + 2, y + 2, 1, 4);
  }
  cairo_fill(cr);
}

// A part of a full-size picture, shrunk smoothly to size x size at (x, y).
void Shrunk(cairo_t* cr, const bmp::Image565& img, int sx, int sy, int sw, double x, double y, double size) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, sw, sw);
  unsigned char* data = cairo_image_surface_get_data(s);
  int stride = cairo_image_surface_get_stride(s);
  for (int j = 0; j < sw; ++j)
    for (int i = 0; i < sw; ++i) {
      uint16_t v = img.at(sx + i, sy + j);
      int r, g, b;
      bmp::Unpack565(v, r, g, b);
      reinterpret_cast<uint32_t*>(data + j * stride)[i] = v ? (0xFFu << 24) | (r << 16) | (g << 8) | b : 0;
    }
  cairo_surface_mark_dirty(s);
  cairo_save(cr);
  cairo_translate(cr, x, y);
  cairo_scale(cr, size / sw, size / sw);
  cairo_set_source_surface(cr, s, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
  cairo_paint(cr);
  cairo_restore(cr);
  cairo_surface_destroy(s);
}

void Icon(cairo_t* cr, Variant v, int kind, double cx, double cy) {
  if (kind < 12) return MiniPiece(cr, v, kind, cx, cy);
  if (v == Variant::Fuse) {
    Shrunk(cr, kind == 12 ? ChargeFrame(kChargeRest) : DetonatorFrame(0), 0, 0, 20, cx - 8, cy - 8, 16);
    return;
  }
  switch (kind) {
    case 12: Shrunk(cr, BombSprite(), 22, 6, 40, cx - 10, cy - 10, 20); break;
    case 13: Shrunk(cr, ArrowFrame(true, 0), 0, 0, 20, cx - 8, cy - 8, 16); break;
    case 14: Shrunk(cr, ArrowFrame(false, 0), 0, 0, 20, cx - 8, cy - 8, 16); break;
    default: Shrunk(cr, EarthFrame(0), 20, 0, 20, cx - 8, cy - 8, 16); break;
  }
}

}  // namespace
}  // namespace assetgen::pieces

using namespace assetgen;
using namespace assetgen::pieces;

// ARGS: classic | bonus | fuse
ASSETGEN_GENERATOR(piece_status) {
  const std::string& a = entry.args.empty() ? std::string() : entry.args[0];
  Variant v = a == "bonus" ? Variant::Bonus : a == "fuse" ? Variant::Fuse : Variant::Classic;
  int rows = v == Variant::Classic ? 7 : v == Variant::Bonus ? 16 : 14;
  bmp::Image565 img = Render(70, 480, [&](cairo_t* cr) {
    cairo_rectangle(cr, 0, 0, 70, 30 * rows);
    Source(cr, kPlain);
    cairo_fill(cr);
    for (int k = 0; k < rows; ++k) {
      double y = 30 * k;
      cairo_rectangle(cr, 1.5, y + 1.5, 27, 27);
      Source(cr, kIconBack);
      cairo_fill_preserve(cr);
      cairo_set_line_width(cr, 1);
      Source(cr, Hex(70, 80, 110));
      cairo_stroke(cr);
      Icon(cr, v, k, 15, y + 15);
    }
  });
  ScrubFireCodes(img);
  uint16_t plain = bmp::Pack565(24, 28, 41);
  for (int y = 0; y < 30 * rows; ++y)
    for (int x = 30; x < 70; ++x) Put(img, x, y, plain);
  Write(ctx, entry, img);
}

// intro.bmp: the title art zoomed over the introduction's star field. The
// backing cloud has ragged edges so that it sits in the stars like a nebula.
#include <algorithm>
#include <cmath>

#include "tools/assetgen/scenes_title.h"

namespace {

using scenes::Col;
using scenes::Hex;

void Cloud(assetgen::Canvas& c) {
  scenes::Noise n(77), m(78);
  scenes::Ramp ramp{{0.0, Hex(0x0A0C2E)}, {0.45, Hex(0x241A66)}, {0.75, Hex(0x1E5AA0)}, {1.0, Hex(0x8AD0F0)}};
  scenes::Pixels p(c.width(), c.height());
  std::vector<bool> inside(p.px.size());
  double cx = c.width() / 2.0, cy = c.height() / 2.0;
  for (int y = 0; y < p.h; ++y)
    for (int x = 0; x < p.w; ++x) {
      double dx = (x - cx) / 300, dy = (y - cy) / 190;
      double edge = n.Fbm(x / 45.0, y / 45.0, 4);
      double s = 1 - std::hypot(dx, dy) + 0.5 * (edge - 0.5);
      inside[static_cast<size_t>(y) * p.w + x] = s > 0.05;
      double d = m.Fbm(x / 70.0 + edge, y / 70.0, 5);
      double t = std::clamp(0.15 + 0.9 * s * d + 0.2 * (d - 0.5), 0.0, 1.0);
      p.at(x, y) = scenes::Add(ramp.At(t), scenes::Scale(Hex(0x8A2AA0), std::max(0.0, d - 0.55) * 1.2));
    }
  scenes::Paint(p, c);
  // Outside the cloud is the key.
  cairo_surface_flush(c.surface());
  unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  for (int y = 0; y < p.h; ++y)
    for (int x = 0; x < p.w; ++x)
      if (!inside[static_cast<size_t>(y) * p.w + x])
        reinterpret_cast<uint32_t*>(data + static_cast<size_t>(y) * stride)[x] = 0;
  cairo_surface_mark_dirty(c.surface());
}

}  // namespace

ASSETGEN_GENERATOR(scene_intro) {
  assetgen::Canvas c(entry.width, entry.height);
  Cloud(c);
  cairo_t* cr = c.cr();
  // Stars inside the cloud; the cloud's own stars must stay clear of black.
  assetgen::Random rnd(99);
  cairo_save(cr);
  cairo_rectangle(cr, 120, 90, 400, 300);
  cairo_clip(cr);
  scenes::Stars(cr, rnd, 60, 640, 480, 0.8);
  cairo_restore(cr);
  double cx = entry.width / 2.0;
  scenes::FallingPiece(cr, 0, 95, 110, 22, -0.35);
  scenes::FallingPiece(cr, 4, 560, 95, 22, 0.4);
  scenes::FallingPiece(cr, 5, 560, 390, 20, -0.2);
  scenes::FallingPiece(cr, 2, 90, 380, 20, 0.25);
  scenes::FallingPiece(cr, 1, 320, 400, 18, 0.1);
  scenes::TitleLogo(cr, cx, 108, 1.0);
  scenes::KeyEdges(c);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

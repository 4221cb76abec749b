#include "tools/assetgen/canvas.h"

#include <algorithm>
#include <vector>

namespace assetgen {

Canvas::Canvas(int width, int height)
    : width_(width), height_(height),
      surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
      cr_(cairo_create(surface_)) {
  cairo_set_operator(cr_, CAIRO_OPERATOR_CLEAR);
  cairo_paint(cr_);
  cairo_set_operator(cr_, CAIRO_OPERATOR_OVER);
}

Canvas::~Canvas() {
  cairo_destroy(cr_);
  cairo_surface_destroy(surface_);
}

bmp::Image565 Quantise(const Canvas& c, Dither dither) {
  cairo_surface_flush(c.surface());
  const unsigned char* data = cairo_image_surface_get_data(c.surface());
  int stride = cairo_image_surface_get_stride(c.surface());
  int w = c.width(), h = c.height();
  bmp::Image565 out;
  out.width = w;
  out.height = h;
  out.pixels.assign(static_cast<size_t>(w) * h, 0);
  // Error rows for diffusion (current and next), three channels each.
  std::vector<float> err0(static_cast<size_t>(w + 2) * 3, 0.f), err1(err0.size(), 0.f);
  for (int y = 0; y < h; ++y) {
    const uint32_t* row = reinterpret_cast<const uint32_t*>(data + static_cast<size_t>(y) * stride);
    std::fill(err1.begin(), err1.end(), 0.f);
    for (int x = 0; x < w; ++x) {
      uint32_t p = row[x];
      int r = (p >> 16) & 255, g = (p >> 8) & 255, b = p & 255;  // premultiplied: over black
      if (r == 0 && g == 0 && b == 0) continue;                 // black stays the key
      float fr = r, fg = g, fb = b;
      if (dither == Dither::ErrorDiffusion) {
        fr += err0[(x + 1) * 3 + 0];
        fg += err0[(x + 1) * 3 + 1];
        fb += err0[(x + 1) * 3 + 2];
      }
      int qr = std::clamp(static_cast<int>(fr + 0.5f), 0, 255);
      int qg = std::clamp(static_cast<int>(fg + 0.5f), 0, 255);
      int qb = std::clamp(static_cast<int>(fb + 0.5f), 0, 255);
      // Round to the nearest 5/6-bit level rather than truncating.
      int r5 = std::min(31, (qr * 31 + 127) / 255);
      int g6 = std::min(63, (qg * 63 + 127) / 255);
      int b5 = std::min(31, (qb * 31 + 127) / 255);
      uint16_t v = static_cast<uint16_t>((r5 << 11) | (g6 << 5) | b5);
      if (v == 0) v = (1 << 11) | (1 << 5) | 1;  // darkest colour that is not the key
      out.pixels[static_cast<size_t>(y) * w + x] = v;
      if (dither == Dither::ErrorDiffusion) {
        int R, G, B;
        bmp::Unpack565(v, R, G, B);
        float e[3] = {fr - R, fg - G, fb - B};
        auto spread = [&](std::vector<float>& row2, int xx, float f) {
          if (xx < 0 || xx >= w) return;
          // Never push error into a black pixel of the source.
          const uint32_t* src = reinterpret_cast<const uint32_t*>(
              data + static_cast<size_t>(&row2 == &err0 ? y : std::min(y + 1, h - 1)) * stride);
          if ((src[xx] & 0xFFFFFF) == 0) return;
          for (int k = 0; k < 3; ++k) row2[(xx + 1) * 3 + k] += e[k] * f;
        };
        spread(err0, x + 1, 7.f / 16);
        if (y + 1 < h) {
          spread(err1, x - 1, 3.f / 16);
          spread(err1, x, 5.f / 16);
          spread(err1, x + 1, 1.f / 16);
        }
      }
    }
    std::swap(err0, err1);
  }
  return out;
}

void WriteBmp(const Context& ctx, const Entry& e, const bmp::Image565& img) {
  if (e.width && (img.width != e.width || img.height != e.height))
    Fail(e, "picture is " + std::to_string(img.width) + "x" + std::to_string(img.height) + ", manifest says " +
                std::to_string(e.width) + "x" + std::to_string(e.height));
  std::string error;
  if (!bmp::Write565(ctx.Out(e.path), img, error)) Fail(e, error);
}

void SetFont(cairo_t* cr, const char* family, bool bold, double size, bool italic) {
  cairo_select_font_face(cr, family, italic ? CAIRO_FONT_SLANT_OBLIQUE : CAIRO_FONT_SLANT_NORMAL,
                         bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, size);
  cairo_font_options_t* fo = cairo_font_options_create();
  cairo_font_options_set_hint_style(fo, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(fo, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(fo, CAIRO_ANTIALIAS_GRAY);
  cairo_set_font_options(cr, fo);
  cairo_font_options_destroy(fo);
}

}  // namespace assetgen

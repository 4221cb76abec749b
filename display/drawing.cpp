// The surfaces' own drawing: text, lines, boxes and circles in the fore and
// fill colours.
#include <algorithm>
#include <cmath>
#include <list>
#include <unordered_map>

#include "display/surface.h"
#include "core/errors.h"
#include "platform/text_raster.h"

namespace display {

namespace {

uint16_t ToPixel(uint32_t rgb) { return Rgb565((rgb >> 16) & 255, (rgb >> 8) & 255, rgb & 255); }

bool Writable(const Surface& s, int32_t x, int32_t y) {
  if (x < 0 || y < 0 || x >= s.Width || y >= s.Height) return false;
  if (s.HasClipper && (x < s.ClipRect.Left || x >= s.ClipRect.Right || y < s.ClipRect.Top || y >= s.ClipRect.Bottom))
    return false;
  return true;
}

void Plot(Surface& s, int32_t x, int32_t y, uint16_t v) {
  if (Writable(s, x, y)) s.Row(y)[x] = v;
}

void Touched(Surface& s) {
  if (!s.Exists()) core::Fail("drawing on a surface that was never created");
  if (&s == &Display.PrimarySurface) Display.FrontDirty = true;
}

// Menus redraw the same few texts every frame; keep their masks.
const platform::TextMask& MaskFor(const std::string& text) {
  static std::unordered_map<std::string, platform::TextMask> cache;
  static std::list<std::string> order;
  auto it = cache.find(text);
  if (it != cache.end()) return it->second;
  platform::TextMask mask;
  std::string error;
  if (!platform::RasteriseText(text, mask, error)) core::Fail("draw text: " + error);
  if (cache.size() >= 512) {
    cache.erase(order.front());
    order.pop_front();
  }
  order.push_back(text);
  return cache.emplace(text, std::move(mask)).first->second;
}

}  // namespace

void SetForeColour(Surface& s, int r, int g, int b) { s.ForeColour = (uint32_t(r & 255) << 16) | ((g & 255) << 8) | (b & 255); }
void SetFillColour(Surface& s, int r, int g, int b) { s.FillColour = (uint32_t(r & 255) << 16) | ((g & 255) << 8) | (b & 255); }
void SetFillStyle(Surface& s, int style) { s.FillStyle = style; }

void DrawText(Surface& s, double xd, double yd, const std::string& text) {
  Touched(s);
  if (text.empty()) return;
  const platform::TextMask& m = MaskFor(text);
  int32_t x0 = RoundHalfEven(xd), y0 = RoundHalfEven(yd);
  int fr = (s.ForeColour >> 16) & 255, fg = (s.ForeColour >> 8) & 255, fb = s.ForeColour & 255;
  for (int y = 0; y < m.height; ++y) {
    for (int x = 0; x < m.width; ++x) {
      int c = m.coverage[static_cast<size_t>(y) * m.width + x];
      if (c == 0 || !Writable(s, x0 + x, y0 + y)) continue;
      uint16_t& p = s.Row(y0 + y)[x0 + x];
      if (c == 255) {
        p = Rgb565(fr, fg, fb);
        continue;
      }
      int r5 = p >> 11, g6 = (p >> 5) & 63, b5 = p & 31;
      int r = (r5 << 3) | (r5 >> 2), g = (g6 << 2) | (g6 >> 4), b = (b5 << 3) | (b5 >> 2);
      r += (fr - r) * c / 255;
      g += (fg - g) * c / 255;
      b += (fb - b) * c / 255;
      p = Rgb565(r, g, b);
    }
  }
}

void DrawLine(Surface& s, double x1d, double y1d, double x2d, double y2d) {
  Touched(s);
  int32_t x = RoundHalfEven(x1d), y = RoundHalfEven(y1d);
  int32_t x2 = RoundHalfEven(x2d), y2 = RoundHalfEven(y2d);
  uint16_t v = ToPixel(s.ForeColour);
  int32_t dx = std::abs(x2 - x), dy = -std::abs(y2 - y);
  int sx = x < x2 ? 1 : -1, sy = y < y2 ? 1 : -1;
  int32_t err = dx + dy;
  while (x != x2 || y != y2) {  // the end point itself is left out
    Plot(s, x, y, v);
    int32_t e2 = 2 * err;
    if (e2 >= dy) { err += dy; x += sx; }
    if (e2 <= dx) { err += dx; y += sy; }
  }
}

void DrawBox(Surface& s, double x1d, double y1d, double x2d, double y2d) {
  Touched(s);
  int32_t x1 = RoundHalfEven(x1d), y1 = RoundHalfEven(y1d), x2 = RoundHalfEven(x2d), y2 = RoundHalfEven(y2d);
  if (x1 > x2) std::swap(x1, x2);
  if (y1 > y2) std::swap(y1, y2);
  if (x1 == x2 || y1 == y2) return;
  uint16_t fore = ToPixel(s.ForeColour), fill = ToPixel(s.FillColour);
  for (int32_t y = y1; y < y2; ++y) {
    for (int32_t x = x1; x < x2; ++x) {
      bool edge = x == x1 || x == x2 - 1 || y == y1 || y == y2 - 1;
      if (edge) Plot(s, x, y, fore);
      else if (s.FillStyle == 0) Plot(s, x, y, fill);
    }
  }
}

void DrawCircle(Surface& s, double xd, double yd, double rd) {
  Touched(s);
  int32_t cx = RoundHalfEven(xd), cy = RoundHalfEven(yd), r = RoundHalfEven(rd);
  if (r <= 0) return;
  uint16_t fore = ToPixel(s.ForeColour), fill = ToPixel(s.FillColour);
  // Pixel centres within the radius are inside; those with an outside
  // neighbour form the one-pixel outline.
  auto inside = [&](int32_t x, int32_t y) {
    double dx = x + 0.5 - cx, dy = y + 0.5 - cy;
    return dx * dx + dy * dy <= double(r) * r;
  };
  for (int32_t y = cy - r - 1; y <= cy + r; ++y) {
    for (int32_t x = cx - r - 1; x <= cx + r; ++x) {
      if (!inside(x, y)) continue;
      bool edge = !inside(x - 1, y) || !inside(x + 1, y) || !inside(x, y - 1) || !inside(x, y + 1);
      if (edge) Plot(s, x, y, fore);
      else if (s.FillStyle == 0) Plot(s, x, y, fill);
    }
  }
}

}  // namespace display

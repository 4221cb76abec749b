// Single-pixel access and the channel filter, on the 565 values.
#include "display/surface.h"
#include "core/errors.h"

namespace display {

namespace {
// The pixel under (x, y), or null outside the surface.
uint16_t* PixelAt(Surface& s, double xd, double yd) {
  int32_t x = RoundHalfEven(xd), y = RoundHalfEven(yd);
  Display.SrcRect = {x, y, x, y};
  if (!s.Exists() || x < 0 || y < 0 || x >= s.Width || y >= s.Height) return nullptr;
  return &s.Row(y)[x];
}
}  // namespace

// Probes beside or above the field are routine (a piece at the wall, a cell
// above the top row): outside a surface a read gives 0 and a write does nothing.
void ReadPixel(Surface& s, double x, double y) {
  const uint16_t* p = PixelAt(s, x, y);
  Display.PixelValue = p ? *p : 0;
}

void WritePixel(Surface& s, double x, double y) {
  uint16_t* p = PixelAt(s, x, y);
  if (!p) return;
  *p = kBurntMarker;
  if (&s == &Display.PrimarySurface) Display.FrontDirty = true;
}

void FilterRect(Surface& s, double ld, double td, double wd, double hd, double factor) {
  int32_t l = RoundHalfEven(ld), t = RoundHalfEven(td), w = RoundHalfEven(wd), h = RoundHalfEven(hd);
  Display.SrcRect = {l, t, l + w, t + h};
  if (w <= 0 || h <= 0) return;
  if (!s.Exists() || l < 0 || t < 0 || l + w > s.Width || t + h > s.Height)
    core::Fail("FilterRect outside the surface");
  static constexpr uint32_t kMasks[3] = {0xF800, 0x07E0, 0x001F};
  for (int32_t y = t; y < t + h; ++y) {
    uint16_t* row = s.Row(y);
    for (int32_t x = l; x < l + w; ++x) {
      uint16_t p = row[x];
      if (p == 0) continue;
      uint32_t out = 0;
      // The masked channel is scaled in place, then masked again: rounding
      // happens on the unshifted value.
      for (uint32_t m : kMasks) out |= static_cast<uint32_t>(RoundHalfEven(factor * (p & m))) & m;
      row[x] = static_cast<uint16_t>(out);
    }
  }
  if (&s == &Display.PrimarySurface) Display.FrontDirty = true;
}

}  // namespace display

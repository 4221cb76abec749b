// Rectangle copies with and without the colour key, stretched and clipped.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "display/surface.h"
#include "core/errors.h"

namespace display {

DisplayState Display;

int32_t RoundHalfEven(double v) {
  // Far beyond any surface; keeps every sum of a few of them inside 32 bits.
  if (!std::isfinite(v) || v > 1e9 || v < -1e9) core::Fail("coordinate out of range");
  return static_cast<int32_t>(std::nearbyint(v));  // the default rounding mode is to nearest, ties to even
}

namespace {

// The rectangle a copy may write: the destination's clipper, and never
// outside the surface itself.
Rect WritableArea(const Surface& dest) {
  Rect r{0, 0, dest.Width, dest.Height};
  if (dest.HasClipper) {
    r.Left = std::max(r.Left, dest.ClipRect.Left);
    r.Top = std::max(r.Top, dest.ClipRect.Top);
    r.Right = std::min(r.Right, dest.ClipRect.Right);
    r.Bottom = std::min(r.Bottom, dest.ClipRect.Bottom);
  }
  return r;
}

bool Overlaps(const Rect& a, const Rect& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

template <bool Keyed>
void Copy(Surface& dest, const Surface& srcIn, double dl, double dt, double dw, double dh, double sl, double st,
          double sw, double sh) {
  Rect& S = Display.SrcRect;
  Rect& D = Display.DestRect;
  int32_t sL = RoundHalfEven(sl), sT = RoundHalfEven(st), sW = RoundHalfEven(sw), sH = RoundHalfEven(sh);
  int32_t dL = RoundHalfEven(dl), dT = RoundHalfEven(dt), dW = RoundHalfEven(dw), dH = RoundHalfEven(dh);
  S = {sL, sT, sL + sW, sT + sH};
  D = {dL, dT, dL + dW, dT + dH};
  if (!srcIn.Exists() || !dest.Exists()) core::Fail("blit with a surface that was never created");
  if (sW <= 0 || sH <= 0 || dW <= 0 || dH <= 0) return;

  // A copy of a surface onto itself reads the whole source first.
  const Surface* srcP = &srcIn;
  Surface scratch;
  if (&srcIn == &dest && Overlaps(S, D)) {
    scratch = srcIn;
    srcP = &scratch;
  }
  const Surface& src = *srcP;
  const uint16_t key = src.ColourKey;
  const bool useKey = Keyed && src.HasColourKey;

  Rect out = WritableArea(dest);
  const bool stretched = sW != dW || sH != dH;
  if (!stretched) {
    // Source clipped to its surface, the destination shrinking in step.
    int32_t x0 = std::max({D.Left, out.Left, D.Left + (0 - S.Left)});
    int32_t x1 = std::min({D.Right, out.Right, D.Left + (src.Width - S.Left)});
    int32_t y0 = std::max({D.Top, out.Top, D.Top + (0 - S.Top)});
    int32_t y1 = std::min({D.Bottom, out.Bottom, D.Top + (src.Height - S.Top)});
    if (x0 >= x1 || y0 >= y1) return;
    const int n = x1 - x0;
    for (int32_t y = y0; y < y1; ++y) {
      const uint16_t* s = src.Row(S.Top + (y - D.Top)) + S.Left + (x0 - D.Left);
      uint16_t* d = dest.Row(y) + x0;
      if (!useKey) {
        std::memmove(d, s, static_cast<size_t>(n) * 2);
      } else {
        for (int i = 0; i < n; ++i) {
          uint16_t p = s[i];
          d[i] = p == key ? d[i] : p;
        }
      }
    }
    return;
  }

  // Stretched: each destination pixel samples the source pixel it covers.
  // Pixels whose sample falls outside the source are left alone.
  int32_t x0 = std::max(D.Left, out.Left), x1 = std::min(D.Right, out.Right);
  int32_t y0 = std::max(D.Top, out.Top), y1 = std::min(D.Bottom, out.Bottom);
  if (x0 >= x1 || y0 >= y1) return;
  std::vector<int32_t> sxs(static_cast<size_t>(x1 - x0));
  for (int32_t x = x0; x < x1; ++x)
    sxs[x - x0] = S.Left + static_cast<int32_t>(static_cast<int64_t>(x - D.Left) * sW / dW);
  for (int32_t y = y0; y < y1; ++y) {
    int32_t sy = S.Top + static_cast<int32_t>(static_cast<int64_t>(y - D.Top) * sH / dH);
    if (sy < 0 || sy >= src.Height) continue;
    const uint16_t* s = src.Row(sy);
    uint16_t* d = dest.Row(y);
    for (int32_t x = x0; x < x1; ++x) {
      int32_t sx = sxs[x - x0];
      if (sx < 0 || sx >= src.Width) continue;
      uint16_t p = s[sx];
      if (!useKey || p != key) d[x] = p;
    }
  }
}

}  // namespace

void BltKeyed(Surface& dest, double dl, double dt, double dw, double dh, const Surface& src, double sl, double st,
              double sw, double sh) {
  Copy<true>(dest, src, dl, dt, dw, dh, sl, st, sw, sh);
  if (&dest == &Display.PrimarySurface) Display.FrontDirty = true;
}

void BltOpaque(Surface& dest, double dl, double dt, double dw, double dh, const Surface& src, double sl, double st,
               double sw, double sh) {
  Copy<false>(dest, src, dl, dt, dw, dh, sl, st, sw, sh);
  if (&dest == &Display.PrimarySurface) Display.FrontDirty = true;
}

void FillSurface(Surface& surface, const Rect& rect, uint16_t value) {
  if (!surface.Exists()) core::Fail("fill of a surface that was never created");
  Rect r = rect;
  if (r.Left == 0 && r.Top == 0 && r.Right == 0 && r.Bottom == 0) r = {0, 0, surface.Width, surface.Height};
  Rect out = WritableArea(surface);
  r.Left = std::max(r.Left, out.Left);
  r.Top = std::max(r.Top, out.Top);
  r.Right = std::min(r.Right, out.Right);
  r.Bottom = std::min(r.Bottom, out.Bottom);
  if (r.Empty()) return;
  for (int32_t y = r.Top; y < r.Bottom; ++y) std::fill(surface.Row(y) + r.Left, surface.Row(y) + r.Right, value);
  if (&surface == &Display.PrimarySurface) Display.FrontDirty = true;
}

}  // namespace display

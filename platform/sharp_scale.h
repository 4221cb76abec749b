// Where the 800 x 600 picture goes in a window of any size, and how it gets
// there without blurring the pixel art: up by a whole factor with nearest
// pixels, then down to the letterboxed size with linear filtering. No SDL
// here, so the arithmetic can be checked on its own.
#pragma once

namespace platform {

struct ScaleRect {
  int x = 0, y = 0, w = 0, h = 0;
  bool operator==(const ScaleRect&) const = default;
};

struct SharpScale {
  int factor = 1;  // the whole factor of the nearest-pixel pass
  int midWidth = 0, midHeight = 0;  // the picture after that pass
  ScaleRect dest;  // the final picture: as large as fits, centred

  // The whole-factor picture is already the final size: one nearest pass.
  bool Exact() const { return midWidth == dest.w && midHeight == dest.h; }
  // An enlargement that needs the in-between picture (otherwise the picture
  // goes straight into the window: exact, or a plain linear reduction).
  bool TwoPasses() const { return factor > 1 && !Exact(); }
};

// outW x outH: the window's drawable pixels. maxTexW/maxTexH: the largest
// texture the renderer takes (0 for no limit); the factor stays within it.
SharpScale PlanSharpScale(int outW, int outH, int maxTexW = 0, int maxTexH = 0);

}  // namespace platform

#include "platform/sharp_scale.h"

#include <algorithm>

#include "platform/backend.h"

namespace platform {

SharpScale PlanSharpScale(int outW, int outH, int maxTexW, int maxTexH) {
  SharpScale plan;
  outW = std::max(outW, 1);
  outH = std::max(outH, 1);
  double scale = std::min(outW / double(kScreenWidth), outH / double(kScreenHeight));
  int w = std::max(1, int(kScreenWidth * scale + 0.5));
  int h = std::max(1, int(kScreenHeight * scale + 0.5));
  plan.dest = ScaleRect{(outW - w) / 2, (outH - h) / 2, w, h};

  // The smallest whole factor whose picture covers the final one on both
  // axes, so the linear pass only ever reduces: every source pixel ends up
  // the same width, give or take a blended edge.
  int k = std::max((w + kScreenWidth - 1) / kScreenWidth, (h + kScreenHeight - 1) / kScreenHeight);
  if (maxTexW > 0) k = std::min(k, maxTexW / kScreenWidth);
  if (maxTexH > 0) k = std::min(k, maxTexH / kScreenHeight);
  plan.factor = std::max(k, 1);
  plan.midWidth = kScreenWidth * plan.factor;
  plan.midHeight = kScreenHeight * plan.factor;
  return plan;
}

}  // namespace platform

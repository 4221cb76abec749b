#include "platform/sharp_scale.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(SharpScale, WholeFactorCoversTheLetterboxedPicture) {
  struct Case {
    int outW, outH;
    int factor;
    ScaleRect dest;
    bool exact, twoPasses;
  };
  const Case cases[] = {
      // The picture's own size: nearest pixels, one to one.
      {800, 600, 1, {0, 0, 800, 600}, true, false},
      // 800 x 4/3 = 1066.67 wide: up to 1600 x 1200, then down; bars at the sides.
      {1280, 800, 2, {106, 0, 1067, 800}, false, true},
      {1920, 1080, 2, {240, 0, 1440, 1080}, false, true},
      // 3.6 times: four times up, never three (that would need enlarging again).
      {3840, 2160, 4, {480, 0, 2880, 2160}, false, true},
      // Smaller than the picture: no enlargement, a plain linear reduction.
      {640, 400, 1, {53, 0, 533, 400}, false, false},
      // A whole multiple: nearest pixels only, bars top and bottom.
      {1600, 1300, 2, {0, 50, 1600, 1200}, true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.outW << " x " << c.outH);
    SharpScale plan = PlanSharpScale(c.outW, c.outH);
    EXPECT_EQ(plan.factor, c.factor);
    EXPECT_EQ(plan.midWidth, 800 * c.factor);
    EXPECT_EQ(plan.midHeight, 600 * c.factor);
    EXPECT_EQ(plan.dest, c.dest);
    EXPECT_EQ(plan.Exact(), c.exact);
    EXPECT_EQ(plan.TwoPasses(), c.twoPasses);
    // The filter only ever reduces, and the picture stays inside the window.
    EXPECT_GE(plan.midWidth, plan.dest.w);
    EXPECT_GE(plan.midHeight, plan.dest.h);
    EXPECT_GE(plan.dest.x, 0);
    EXPECT_GE(plan.dest.y, 0);
    EXPECT_LE(plan.dest.x + plan.dest.w, c.outW);
    EXPECT_LE(plan.dest.y + plan.dest.h, c.outH);
  }

  // A renderer with small textures: the factor stays within them.
  SharpScale capped = PlanSharpScale(3840, 2160, 2048, 2048);
  EXPECT_EQ(capped.factor, 2);
  EXPECT_EQ(capped.dest, (ScaleRect{480, 0, 2880, 2160}));
}

}  // namespace
}  // namespace platform

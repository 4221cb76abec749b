#include "platform/sdl_pacer.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(SdlPacer, WaitsForTheClockAndNeverRushesAfterAStall) {
  Pacer pacer;
  // Frames at 1000/60 ms: each waits for the rest of its slot.
  EXPECT_DOUBLE_EQ(pacer.WaitFor(1000.0 / 60, 5.0), 1000.0 / 60 - 5.0);
  EXPECT_DOUBLE_EQ(pacer.WaitFor(2000.0 / 60, 1000.0 / 60), 1000.0 / 60);
  // A late frame waits for nothing, and a small lag is made up by the
  // next ones (their slots do not move).
  EXPECT_EQ(pacer.WaitFor(3000.0 / 60, 60.0), 0.0);
  EXPECT_DOUBLE_EQ(pacer.WaitFor(4000.0 / 60, 60.0), 4000.0 / 60 - 60.0);

  // Stopped for five seconds: the next frame goes at once, and the ones
  // after it are paced from there instead of racing to catch up.
  double clock = 5000.0 / 60;
  double real = 5000.0;
  EXPECT_EQ(pacer.WaitFor(clock, real), 0.0);
  EXPECT_NEAR(pacer.WaitFor(clock + 1000.0 / 60, real + 1.0), 1000.0 / 60 - 1.0, 1e-9);
  // A pass that presents nothing is one millisecond.
  EXPECT_NEAR(pacer.WaitFor(clock + 1000.0 / 60 + 1.0, real + 1000.0 / 60), 1.0, 1e-9);

  // Real time running behind the clock by far (a clock that started late)
  // never stalls the game either.
  Pacer late;
  EXPECT_EQ(late.WaitFor(10000.0, 0.0), 0.0);
  EXPECT_NEAR(late.WaitFor(10000.0 + 1000.0 / 60, 0.0), 1000.0 / 60, 1e-9);
}

}  // namespace
}  // namespace platform

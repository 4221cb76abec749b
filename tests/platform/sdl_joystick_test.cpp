#include "platform/sdl_joystick.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr uint8_t kUp = 1, kRight = 2, kDown = 4, kLeft = 8;

TEST(SdlJoystick, PadsOfAnyShapeReadSafely) {
  // No axes, no buttons, no hat: centred and nothing pressed.
  JoystickReading none = AdaptPad(RawPad{});
  EXPECT_EQ(none.x, 0);
  EXPECT_EQ(none.y, 0);
  for (uint8_t b : none.buttons) EXPECT_EQ(b, 0);

  // One axis only: y reads centred.
  JoystickReading one = AdaptPad(RawPad{{32767}, {}, 0});
  EXPECT_EQ(one.x, 1000);
  EXPECT_EQ(one.y, 0);

  // Axes through the shared dead zone and saturation, both ends of the range.
  JoystickReading ends = AdaptPad(RawPad{{-32768, 2000}, {}, 0});
  EXPECT_EQ(ends.x, -1000);
  EXPECT_EQ(ends.y, 0);

  // More buttons than the game has: the first 32 count, any non-zero is pressed.
  RawPad many;
  many.buttons.assign(40, 0);
  many.buttons[0] = 1;
  many.buttons[31] = 255;
  many.buttons[39] = 1;
  JoystickReading b = AdaptPad(many);
  EXPECT_EQ(b.buttons[0], 1);
  EXPECT_EQ(b.buttons[1], 0);
  EXPECT_EQ(b.buttons[31], 1);
}

TEST(SdlJoystick, HatIsFullDeflection) {
  // A pressed direction wins over the stick, a released one leaves the stick.
  JoystickReading r = AdaptPad(RawPad{{-5000, 16000}, {}, kRight});
  EXPECT_EQ(r.x, 1000);
  EXPECT_EQ(r.y, ScaleJoystickAxis(16000));
  r = AdaptPad(RawPad{{}, {}, uint8_t(kUp | kLeft)});
  EXPECT_EQ(r.x, -1000);
  EXPECT_EQ(r.y, -1000);
  r = AdaptPad(RawPad{{}, {}, kDown});
  EXPECT_EQ(r.y, 1000);
  // Opposite directions at once are nonsense: the stick decides.
  r = AdaptPad(RawPad{{20000, 0}, {}, uint8_t(kLeft | kRight | kUp | kDown)});
  EXPECT_EQ(r.x, ScaleJoystickAxis(20000));
  EXPECT_EQ(r.y, 0);
}

}  // namespace
}  // namespace platform

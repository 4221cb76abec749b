#include <gtest/gtest.h>

#include <optional>

#include "core/variables.h"
#include "platform/backend.h"
#include "platform/devices.h"
#include "platform/scripted_input.h"

namespace {

namespace in = platform::scripted;

class DevicesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::SetCurrent(platform::MakeHeadlessBackend());
    platform::CloseJoystick();
    in::Reset();
  }
  void TearDown() override { in::Reset(); }

  bool KeyDown(int code) {
    uint8_t state[256];
    platform::ReadKeyboard(state);
    return state[code] != 0;
  }
};

TEST_F(DevicesTest, TapsAndClicksLastOnePoll) {
  in::BeginPoll();
  in::KeyTap(30);
  in::KeyDown(203);
  in::MouseClick(1);
  EXPECT_TRUE(KeyDown(30));
  EXPECT_TRUE(KeyDown(30)) << "every read of the poll sees the tap";
  EXPECT_TRUE(KeyDown(203));
  platform::MouseReading m;
  platform::ReadMouse(m);
  EXPECT_NE(m.buttons[0], 0);

  in::BeginPoll();
  EXPECT_FALSE(KeyDown(30));
  EXPECT_TRUE(KeyDown(203)) << "a held key stays down";
  platform::ReadMouse(m);
  EXPECT_EQ(m.buttons[0], 0);

  in::KeyUp(203);
  EXPECT_FALSE(KeyDown(203));
  // A key no script can name never reaches the game.
  in::KeyDown(15);
  EXPECT_FALSE(KeyDown(15));
}

TEST_F(DevicesTest, PointerReplacesPendingMotionAtTheNextPointerRead) {
  std::optional<vars::Ref> oldX = vars::Find("PointerX"), oldY = vars::Find("PointerY");
  static int16_t pointerX = 390, pointerY = 290;
  vars::Expose("PointerX", pointerX);
  vars::Expose("PointerY", pointerY);

  in::MouseMove(5, 5);
  in::PointTo(100, 200);
  platform::MouseReading m;
  platform::ReadMouse(m, false);  // play's read: motion, not the pointer
  EXPECT_EQ(m.dx, 5);
  EXPECT_EQ(m.dy, 5);
  in::MouseMove(3, -4);
  in::MouseMove(1, 1);
  platform::ReadMouse(m);
  EXPECT_EQ(m.dx, 100 - 390);
  EXPECT_EQ(m.dy, 200 - 290);
  platform::ReadMouse(m);
  EXPECT_EQ(m.dx, 0) << "the target is taken once, and the motion with it";
  EXPECT_EQ(m.dy, 0);
  in::MouseMove(-2, 7);
  in::MouseMove(-2, 7);
  platform::ReadMouse(m);
  EXPECT_EQ(m.dx, -4);
  EXPECT_EQ(m.dy, 14);

  if (oldX) vars::ExposeRef("PointerX", *oldX); else vars::Withdraw("PointerX");
  if (oldY) vars::ExposeRef("PointerY", *oldY); else vars::Withdraw("PointerY");
}

TEST_F(DevicesTest, ThePadIsSeenAtOpenAndLostWhenUnplugged) {
  platform::JoystickReading j;
  EXPECT_FALSE(platform::JoystickAttached()) << "headless has no joystick of its own";
  EXPECT_FALSE(platform::ReadJoystick(j));

  in::PadPlug();
  in::PadAxis(in::Axis::X, -900);
  in::PadDown(2);
  EXPECT_TRUE(platform::JoystickAttached());
  EXPECT_FALSE(platform::ReadJoystick(j)) << "not opened yet";
  EXPECT_TRUE(platform::OpenJoystick());
  ASSERT_TRUE(platform::ReadJoystick(j));
  EXPECT_EQ(j.x, -900);
  EXPECT_EQ(j.y, 0);
  EXPECT_EQ(j.buttons[0], 0);
  EXPECT_NE(j.buttons[1], 0);

  in::PadUnplug();
  EXPECT_FALSE(platform::ReadJoystick(j));
  in::PadPlug();
  EXPECT_FALSE(platform::ReadJoystick(j)) << "plugging back needs the game to open it again";
  EXPECT_TRUE(platform::OpenJoystick());
  EXPECT_TRUE(platform::ReadJoystick(j));
  platform::CloseJoystick();
  EXPECT_FALSE(platform::ReadJoystick(j));
}

TEST_F(DevicesTest, RawAxesPassThroughDeadZoneAndSaturation) {
  auto raw = [](int32_t v) {
    in::PadRaw(in::Axis::Y, v);
    return in::PadAxisValue(in::Axis::Y);
  };
  EXPECT_EQ(raw(0), 0);
  EXPECT_EQ(raw(3000), 0);    // inside the inner 10 %
  EXPECT_EQ(raw(-3000), 0);
  EXPECT_EQ(raw(32767), 1000);
  EXPECT_EQ(raw(-32768), -1000);
  EXPECT_EQ(raw(31500), 1000);  // the outer 5 % is full deflection
  EXPECT_EQ(raw(16384), 471);
  EXPECT_EQ(raw(-16384), -471);
}

}  // namespace

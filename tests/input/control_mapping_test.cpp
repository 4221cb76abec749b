// The control mappings, driven through the same device layer as real input.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "core/run_state.h"
#include "display/surface.h"
#include "automation/automation.h"
#include "frame/frame_state.h"
#include "automation/options.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/scripted_input.h"

using namespace input;
namespace scripted = platform::scripted;

namespace {

class ControlMapping : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::SetCurrent(platform::MakeHeadlessBackend());
    scripted::Reset();
    automation::Options none;
    automation::Configure(none);
    Controls = ControlState{};
    Input = InputState{};
    core::Run.AppRunning = true;
  }
  // One poll with the given keys held.
  void Pass() {
    scripted::BeginPoll();
    ControlCheck();
  }
};

}  // namespace

TEST_F(ControlMapping, HeldKeysRepeatAndReleaseClearsTheLatch) {
  scripted::KeyDown(kKeyLeft);
  Pass();
  EXPECT_TRUE(Controls.KeyLeft);
  Controls.LatchLeft = true;  // the game acted on it
  Pass();
  EXPECT_TRUE(Controls.KeyLeft) << "a held key keeps asking";
  EXPECT_TRUE(Controls.LatchLeft) << "and the latch stays until release";
  scripted::KeyUp(kKeyLeft);
  Pass();
  EXPECT_FALSE(Controls.KeyLeft);
  EXPECT_FALSE(Controls.LatchLeft) << "release clears both in the same pass";

  scripted::KeyDown(kKeyLeft);
  scripted::KeyDown(kKeyRight);
  Pass();
  EXPECT_TRUE(Controls.KeyLeft && Controls.KeyRight) << "left and right together set both";
  scripted::KeyUp(kKeyLeft);
  scripted::KeyUp(kKeyRight);

  scripted::KeyDown(kKeyEscape);
  scripted::KeyDown(kKeyF10);
  Pass();
  EXPECT_EQ(Controls.PauseRequest, 1);
  EXPECT_FALSE(core::Run.AppRunning) << "F10 ends the program's loops";
  scripted::KeyUp(kKeyEscape);
  Pass();
  EXPECT_EQ(Controls.PauseRequest, 1) << "only the pause clears its request";
}

TEST_F(ControlMapping, MouseDriftAndSwipes) {
  int moves = 0;
  for (int pass = 0; pass < 8; ++pass) {
    scripted::MouseMove(3, 0);
    Pass();
    moves += Controls.KeyRight;
    EXPECT_EQ(Controls.KeyRight, pass % 2 == 1) << "a drift of 3 counts moves every second pass, pass " << pass;
  }
  EXPECT_EQ(moves, 4);
  for (int pass = 0; pass < 3; ++pass) {
    scripted::MouseMove(-200, 0);
    Pass();
    EXPECT_TRUE(Controls.KeyLeft) << "a fast swipe gives one move a pass";
    EXPECT_EQ(Controls.MouseAccumX, 0);
  }
  scripted::MouseDown(1);
  scripted::MouseDown(2);
  Pass();
  EXPECT_TRUE(Controls.KeyFlip);
  EXPECT_TRUE(Controls.KeyDown);
}

TEST_F(ControlMapping, MenuPointerClampsAndJoystickSpeed) {
  scripted::MouseMove(-5000, 9000);
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_EQ(Controls.PointerX, 0);
  EXPECT_EQ(Controls.PointerY, 580);

  scripted::PadPlug();
  InitJoystick();
  ASSERT_NE(Input.JoystickOff, -1);
  scripted::PadAxis(scripted::Axis::X, 1000);
  scripted::PadAxis(scripted::Axis::Y, -500);
  Controls.PointerX = 778;
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_EQ(Controls.PointerX, 783) << "full deflection moves 5 a pass, clamped only next pass";
  EXPECT_EQ(Controls.PointerY, 578);
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_EQ(Controls.PointerX, 785);
  scripted::PadAxis(scripted::Axis::X, 0);
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_EQ(Controls.PointerX, 780);

  scripted::MouseDown(1);
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_TRUE(Controls.PointerButton);
  Controls.ClickLatch = true;
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_TRUE(Controls.PointerButton && Controls.ClickLatch) << "a held button stays pressed and latched";
  scripted::MouseUp(1);
  scripted::BeginPoll();
  ControlCheckMenu();
  EXPECT_FALSE(Controls.PointerButton || Controls.ClickLatch);
}

TEST_F(ControlMapping, HighScoreKeyboard) {
  auto type = [&](std::initializer_list<int> keys) {
    for (int k : keys) scripted::KeyDown(k);
    scripted::BeginPoll();
    ControlCheckHigh();
    for (int k : keys) scripted::KeyUp(k);
  };
  Controls.PointerX = 600;
  type({30});  // a
  EXPECT_EQ(Controls.TypedGlyph, 0);
  EXPECT_TRUE(Controls.PointerButton);
  EXPECT_EQ(Controls.PointerX, 125);
  EXPECT_EQ(Controls.PointerY, 385);
  type({kKeyLShift, 8});  // Shift + 7
  EXPECT_EQ(Controls.TypedGlyph, 36);
  type({8});  // 7
  EXPECT_EQ(Controls.TypedGlyph, 33);
  type({kKeySlash});
  EXPECT_EQ(Controls.TypedGlyph, 39);
  type({kKeyRShift, kKeySlash});
  EXPECT_EQ(Controls.TypedGlyph, 38);
  EXPECT_EQ(Controls.PointerY, 385 + 55 * 3);
  type({kKeyReturn});
  EXPECT_EQ(Controls.TypedGlyph, 47);
  const int16_t x = Controls.PointerX, y = Controls.PointerY;
  type({kKeyBackspace});
  EXPECT_TRUE(Controls.PointerButton2);
  EXPECT_FALSE(Controls.PointerButton);
  EXPECT_EQ(Controls.TypedGlyph, 47) << "Backspace types no glyph";
  EXPECT_EQ(Controls.PointerX, x);
  EXPECT_EQ(Controls.PointerY, y);
  type({30, 44});  // a and z: the last tested wins
  EXPECT_EQ(Controls.TypedGlyph, 25);
  type({});
  EXPECT_FALSE(Controls.PointerButton || Controls.PointerButton2);
}

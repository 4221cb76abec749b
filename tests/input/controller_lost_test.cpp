// A pad unplugged during play: the controller-lost screen over the frozen
// picture, Escape back without the pad, F1 with the pad back reconnecting.
#include <gtest/gtest.h>

#include "core/hooks.h"
#include "display/surface.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/scripted_input.h"
#include "core/errors.h"
#include "tests/support/fake_backend.h"
#include "tests/support/run_game.h"

using namespace input;

namespace {

// Runs ControlCheck once with the pad in use, under the given script.
void PlayOnePassUnder(const std::string& script, std::unique_ptr<platform::Backend> backend = nullptr) {
  platform::SetCurrent(backend ? std::move(backend) : platform::MakeHeadlessBackend());
  platform::scripted::Reset();
  std::string dir = testsupport::ScratchDir("pad");
  testsupport::WriteFile(dir + "/s.vs", script);
  automation::Options options;
  options.scriptPath = dir + "/s.vs";
  automation::Configure(options);
  automation::BeforeStartup();
  std::string failed;
  ASSERT_TRUE(display::InitDisplay(failed));
  Input = InputState{};
  Controls = ControlState{};
  InitJoystick();
  ASSERT_NE(Input.JoystickOff, -1) << "the pad is in use when play starts";
  core::EnterScreen("play");
  ControlCheck();
}

bool TextColourNear(int x0, int y0, uint16_t colour) {
  const display::Surface& s = display::Display.PrimarySurface;
  for (int y = y0; y < y0 + 14; ++y)
    for (int x = x0; x < x0 + 200; ++x)
      if (s.Row(y)[x] == colour) return true;
  return false;
}

}  // namespace

TEST(ControllerLost, EscapeReturnsWithoutThePad) {
  PlayOnePassUnder(
      "0 joy plug\n"
      "+0p joy unplug\n"
      "+2p key down Escape\n"
      "+1p key up Escape\n");
  EXPECT_EQ(Input.JoystickOff, -1) << "play goes on without the pad";
  EXPECT_STREQ(core::CurrentScreen(), "play");
  EXPECT_TRUE(TextColourNear(152, 225, display::Rgb565(255, 255, 0))) << "the message shows on screen";
  EXPECT_TRUE(TextColourNear(150, 223, display::Rgb565(100, 0, 0))) << "over its dark red shadow";
  EXPECT_FALSE(Input.KeyTable[kKeyEscape]) << "it waited for Escape's release";
}

TEST(ControllerLost, F1WithThePadBackReconnects) {
  PlayOnePassUnder(
      "0 joy plug\n"
      "+0p joy unplug\n"
      "+1p joy plug\n"
      "+0p key down F1\n"
      "+1p key up F1\n"
      "+1p key down Escape\n"
      "+1p key up Escape\n");
  EXPECT_NE(Input.JoystickOff, -1);
  EXPECT_TRUE(TextColourNear(250, 380, display::Rgb565(255, 255, 0))) << "Connection Established!";
  platform::scripted::PadAxis(platform::scripted::Axis::X, -1000);
  ControlCheck();
  EXPECT_TRUE(Controls.KeyLeft) << "the pad is read again from the next pass";
}

TEST(ControllerLost, F1WithoutThePadFails) {
  PlayOnePassUnder(
      "0 joy plug\n"
      "+0p joy unplug\n"
      "+1p key down F1\n"
      "+1p key up F1\n"
      "+1p key down Escape\n"
      "+1p key up Escape\n");
  EXPECT_EQ(Input.JoystickOff, -1);
  EXPECT_TRUE(TextColourNear(250, 380, display::Rgb565(255, 0, 0))) << "Connection Failed!";
}

TEST(ControllerLost, AListedButUnreadablePadNeverStacksScreens) {
  // Held F1 tries once; a second press tries again; each failed read after a
  // reconnection is shown in the one screen, which one Escape leaves.
  auto backend = std::make_unique<testsupport::FakeBackend>();
  auto pad = backend->pad;
  auto counts = backend->counts;
  *pad = {true, true, false};
  std::string script = "0 mark\n+1p key down F1\n";
  script += "+40p key up F1\n+1p key down F1\n+1p key up F1\n";
  script += "+1p key down Escape\n+1p key up Escape\n+20p quit\n";
  const int searchesBefore = 1;  // the set-up's own InitJoystick
  try {
    PlayOnePassUnder(script, std::move(backend));
  } catch (const core::OrderlyQuit&) {
    ADD_FAILURE() << "one Escape did not leave the controller-lost screen";
  }
  EXPECT_EQ(counts->padSearches - searchesBefore, 2) << "one attempt per press of F1";
  EXPECT_EQ(Input.JoystickOff, -1);
  EXPECT_STREQ(core::CurrentScreen(), "play");
  EXPECT_TRUE(TextColourNear(250, 380, display::Rgb565(255, 0, 0))) << "Connection Failed! after the lost read";
  EXPECT_FALSE(TextColourNear(250, 380, display::Rgb565(255, 255, 0))) << "no stale Connection Established!";
}

// The three control mappings row by row: every source of every flag, both
// sides of each threshold, the latches, and a pad lost inside each mapping.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/automation.h"
#include "automation/options.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "display/surface.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/scripted_input.h"
#include "tests/support/run_game.h"

using namespace input;
namespace scripted = platform::scripted;

namespace {

void FreshDevices(const std::string& script = "") {
  platform::SetCurrent(platform::MakeHeadlessBackend());
  scripted::Reset();
  automation::Options options;
  if (!script.empty()) {
    std::string dir = testsupport::ScratchDir("tables");
    testsupport::WriteFile(dir + "/s.vs", script);
    options.scriptPath = dir + "/s.vs";
  }
  automation::Configure(options);
  automation::BeforeStartup();
  std::string failed;
  ASSERT_TRUE(display::InitDisplay(failed));
  Controls = ControlState{};
  Input = InputState{};
  core::Run.AppRunning = true;
}

void PlugPad() {
  scripted::PadPlug();
  InitJoystick();
  ASSERT_NE(Input.JoystickOff, -1);
}

struct PlayRow {
  const char* source;
  std::function<void()> set;
  bool left, right, down, flip, pause;
};

TEST(ControlTables, PlayEverySourceAndThreshold) {
  using A = scripted::Axis;
  auto key = [](int code) { return [code] { scripted::KeyDown(code); }; };
  auto move = [](int dx, int dy) { return [=] { scripted::MouseMove(dx, dy); }; };
  auto button = [](int b) { return [b] { scripted::MouseDown(b); }; };
  auto axis = [](A a, int v) { return [=] { scripted::PadAxis(a, v); }; };
  auto padButton = [](int b) { return [b] { scripted::PadDown(b); }; };
  const std::vector<PlayRow> rows = {
      {"nothing", [] {}, false, false, false, false, false},
      {"Left arrow", key(kKeyLeft), true, false, false, false, false},
      {"Right arrow", key(kKeyRight), false, true, false, false, false},
      {"Down arrow", key(kKeyDown), false, false, true, false, false},
      {"Up arrow", key(kKeyUp), false, false, false, true, false},
      {"Escape", key(kKeyEscape), false, false, false, false, true},
      {"Space", key(kKeySpace), false, false, false, false, false},
      {"mouse -6", move(-6, 0), true, false, false, false, false},
      {"mouse -5", move(-5, 0), false, false, false, false, false},
      {"mouse +6", move(6, 0), false, true, false, false, false},
      {"mouse +5", move(5, 0), false, false, false, false, false},
      {"mouse vertical", move(0, -300), false, false, false, false, false},
      {"mouse button 1", button(1), false, false, false, true, false},
      {"mouse button 2", button(2), false, false, true, false, false},
      {"mouse button 3", button(3), false, false, false, false, false},
      {"stick x -801", axis(A::X, -801), true, false, false, false, false},
      {"stick x -800", axis(A::X, -800), false, false, false, false, false},
      {"stick x 801", axis(A::X, 801), false, true, false, false, false},
      {"stick x 800", axis(A::X, 800), false, false, false, false, false},
      {"stick y 901", axis(A::Y, 901), false, false, true, false, false},
      {"stick y 900", axis(A::Y, 900), false, false, false, false, false},
      {"stick up", axis(A::Y, -1000), false, false, false, false, false},
      {"pad button 1", padButton(1), false, false, false, true, false},
      {"pad button 2", padButton(2), false, false, false, false, true},
      {"pad button 3", padButton(3), false, false, false, false, false},
  };
  for (const PlayRow& row : rows) {
    SCOPED_TRACE(row.source);
    FreshDevices();
    PlugPad();
    // Every latch set: a pass keeps the latch of what is asked and clears the rest.
    Controls.LatchLeft = Controls.LatchRight = Controls.LatchDown = Controls.LatchFlip = true;
    Controls.KeyLeft = Controls.KeyRight = Controls.KeyDown = Controls.KeyFlip = true;
    row.set();
    scripted::BeginPoll();
    ControlCheck();
    EXPECT_EQ(Controls.KeyLeft, row.left);
    EXPECT_EQ(Controls.KeyRight, row.right);
    EXPECT_EQ(Controls.KeyDown, row.down);
    EXPECT_EQ(Controls.KeyFlip, row.flip);
    EXPECT_EQ(Controls.LatchLeft, row.left);
    EXPECT_EQ(Controls.LatchRight, row.right);
    EXPECT_EQ(Controls.LatchDown, row.down);
    EXPECT_EQ(Controls.LatchFlip, row.flip);
    EXPECT_EQ(Controls.PauseRequest, row.pause ? 1 : 0);
    EXPECT_TRUE(core::Run.AppRunning);
  }
  FreshDevices();
  scripted::KeyDown(kKeyF10);
  ControlCheck();
  EXPECT_FALSE(core::Run.AppRunning) << "F10";
}

struct MenuRow {
  const char* source;
  std::function<void()> set;
  int dx, dy;
  bool button, button2;
};

TEST(ControlTables, MenuPointerAndButtons) {
  using A = scripted::Axis;
  auto axes = [](int x, int y) {
    return [=] {
      scripted::PadAxis(A::X, x);
      scripted::PadAxis(A::Y, y);
    };
  };
  const std::vector<MenuRow> rows = {
      {"nothing", [] {}, 0, 0, false, false},
      {"mouse motion", [] { scripted::MouseMove(-7, 11); }, -7, 11, false, false},
      {"mouse button 1", [] { scripted::MouseDown(1); }, 0, 0, true, false},
      {"mouse button 2", [] { scripted::MouseDown(2); }, 0, 0, false, true},
      {"mouse button 3", [] { scripted::MouseDown(3); }, 0, 0, false, false},
      {"stick 199", axes(199, -199), 0, 0, false, false},
      {"stick 200", axes(200, -200), 1, -1, false, false},
      {"stick -399 399", axes(-399, 399), -1, 1, false, false},
      {"stick full", axes(1000, -1000), 5, -5, false, false},
      {"pad button 1", [] { scripted::PadDown(1); }, 0, 0, true, false},
      {"pad button 2", [] { scripted::PadDown(2); }, 0, 0, false, false},
      {"keys", [] { scripted::KeyDown(30); scripted::KeyDown(kKeyBackspace); }, 0, 0, false, false},
  };
  for (const MenuRow& row : rows) {
    SCOPED_TRACE(row.source);
    FreshDevices();
    PlugPad();
    Controls.PointerX = 400;
    Controls.PointerY = 300;
    row.set();
    scripted::BeginPoll();
    ControlCheckMenu();
    EXPECT_EQ(Controls.PointerX, 400 + row.dx);
    EXPECT_EQ(Controls.PointerY, 300 + row.dy);
    EXPECT_EQ(Controls.PointerButton, row.button);
    EXPECT_EQ(Controls.PointerButton2, row.button2);
    EXPECT_EQ(Controls.TypedGlyph, -1) << "the menu reads no keys";
  }

  // The primary button and its latch: held by either device, cleared only
  // when both are up. The secondary button is never cleared by the menu.
  FreshDevices();
  PlugPad();
  auto pass = [] {
    scripted::BeginPoll();
    ControlCheckMenu();
  };
  scripted::MouseDown(1);
  scripted::PadDown(1);
  scripted::MouseDown(2);
  pass();
  Controls.ClickLatch = true;
  Controls.ClickLatch2 = true;
  scripted::MouseUp(1);
  scripted::MouseUp(2);
  pass();
  EXPECT_TRUE(Controls.PointerButton && Controls.ClickLatch) << "the pad's button still holds it";
  scripted::PadUp(1);
  scripted::MouseDown(1);
  pass();
  EXPECT_TRUE(Controls.PointerButton && Controls.ClickLatch) << "the mouse's button still holds it";
  scripted::MouseUp(1);
  pass();
  EXPECT_FALSE(Controls.PointerButton || Controls.ClickLatch);
  EXPECT_TRUE(Controls.PointerButton2) << "the menu leaves the secondary button to its reader";
  EXPECT_TRUE(Controls.ClickLatch2);
}

struct HighRow {
  std::vector<int> keys;
  int glyph;  // -1: nothing typed
};

TEST(ControlTables, HighScoreKeyboardEveryKey) {
  constexpr int S = kKeyLShift;
  const int letters[26] = {30, 48, 46, 32, 18, 33, 34, 35, 23, 36, 37, 38, 50,
                           49, 24, 25, 16, 19, 31, 20, 22, 47, 17, 45, 21, 44};
  std::vector<HighRow> rows;
  for (int g = 0; g < 26; ++g) rows.push_back({{letters[g]}, g});
  for (int g = 0; g < 26; g += 5) rows.push_back({{kKeyRShift, letters[g]}, g});  // Shift makes no capitals
  rows.insert(rows.end(), {
      {{11}, 26},         {{2}, 27},          {{3}, 28},          {{4}, 29},           {{5}, 30},
      {{6}, 31},          {{7}, 32},          {{8}, 33},          {{9}, 34},           {{10}, 35},
      {{S, 8}, 36},       {{S, 2}, 37},       {{kKeyRShift, 2}, 37}, {{S, kKeySlash}, 38}, {{kKeySlash}, 39},
      {{S, kKeyEquals}, 40}, {{kKeyMinus}, 41}, {{S, kKeyMinus}, 41}, {{S, kKeySemicolon}, 42},
      {{kKeySemicolon}, -1}, {{S, kKeyApostrophe}, 43}, {{kKeyApostrophe}, 44}, {{kKeyPeriod}, 45},
      {{S, kKeyPeriod}, -1}, {{kKeySpace}, 46},  {{kKeyReturn}, 47},  {{S, 3}, 28},        {{S}, -1},
      {{30, 44}, 25},     {{kKeyReturn, 30}, 47},
  });
  for (const HighRow& row : rows) {
    std::string name;
    for (int k : row.keys) name += std::to_string(k) + " ";
    SCOPED_TRACE("keys " + name);
    FreshDevices();
    Controls.PointerX = 700;
    Controls.PointerY = 100;
    for (int k : row.keys) scripted::KeyDown(k);
    scripted::BeginPoll();
    ControlCheckHigh();
    EXPECT_EQ(Controls.TypedGlyph, row.glyph);
    EXPECT_EQ(Controls.PointerButton, row.glyph >= 0);
    EXPECT_FALSE(Controls.PointerButton2);
    EXPECT_EQ(Controls.PointerX, row.glyph >= 0 ? GlyphCellX(row.glyph) : 700);
    EXPECT_EQ(Controls.PointerY, row.glyph >= 0 ? GlyphCellY(row.glyph) : 100);
  }
}

struct HighButtonRow {
  const char* source;
  std::function<void()> set;
  bool button, button2;
};

TEST(ControlTables, HighScoreButtonsAndLatches) {
  const std::vector<HighButtonRow> rows = {
      {"nothing", [] {}, false, false},
      {"mouse button 1", [] { scripted::MouseDown(1); }, true, false},
      {"mouse button 2", [] { scripted::MouseDown(2); }, false, true},
      {"mouse button 3", [] { scripted::MouseDown(3); }, false, false},
      {"pad button 1", [] { scripted::PadDown(1); }, true, false},
      {"pad button 2", [] { scripted::PadDown(2); }, false, true},
      {"Backspace", [] { scripted::KeyDown(kKeyBackspace); }, false, true},
  };
  for (const HighButtonRow& row : rows) {
    SCOPED_TRACE(row.source);
    FreshDevices();
    PlugPad();
    // Both buttons and latches as a previous pass left them.
    Controls.PointerButton = Controls.PointerButton2 = true;
    Controls.ClickLatch = Controls.ClickLatch2 = true;
    const int16_t x = Controls.PointerX, y = Controls.PointerY;
    row.set();
    scripted::BeginPoll();
    ControlCheckHigh();
    EXPECT_EQ(Controls.PointerButton, row.button);
    EXPECT_EQ(Controls.PointerButton2, row.button2);
    EXPECT_EQ(Controls.ClickLatch, row.button) << "kept while its button is down, cleared when up";
    EXPECT_EQ(Controls.ClickLatch2, row.button2);
    EXPECT_EQ(Controls.TypedGlyph, -1);
    EXPECT_EQ(Controls.PointerX, x) << "no button moves the pointer";
    EXPECT_EQ(Controls.PointerY, y);
  }
}

// A pad that fails to read inside a mapping: the controller-lost screen, one
// Escape back, the pad off, and the rest of that pass skipped.
TEST(ControlTables, PadLostInsideEachMapping) {
  const std::string script =
      "0 joy plug\n"
      "+0p joy unplug\n"
      "+2p key down Escape\n"
      "+1p key up Escape\n";
  for (void (*mapping)() : {ControlCheck, ControlCheckMenu, ControlCheckHigh}) {
    FreshDevices(script);
    InitJoystick();
    ASSERT_NE(Input.JoystickOff, -1);
    core::EnterScreen("play");
    Controls.KeyFlip = Controls.LatchFlip = true;
    scripted::KeyDown(kKeyLeft);
    scripted::PadAxis(scripted::Axis::X, 1000);
    const int16_t x = Controls.PointerX;
    mapping();
    EXPECT_EQ(Input.JoystickOff, -1);
    EXPECT_STREQ(core::CurrentScreen(), "play") << "back from the controller-lost screen";
    EXPECT_FALSE(Input.KeyTable[kKeyEscape]) << "after Escape's release";
    if (mapping == ControlCheck) {
      EXPECT_FALSE(Controls.KeyLeft) << "the keyboard is not read in the pass that lost the pad";
      EXPECT_TRUE(Controls.KeyFlip && Controls.LatchFlip) << "nor are unasked actions cleared";
      EXPECT_EQ(Controls.PauseRequest, 0);
    } else {
      EXPECT_EQ(Controls.PointerX, x) << "the lost pad never moved the pointer";
    }
    scripted::KeyUp(kKeyLeft);
  }
}

}  // namespace

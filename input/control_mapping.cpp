#include "input/control_mapping.h"

#include <algorithm>
#include <cstdlib>

#include "core/hooks.h"
#include "core/run_state.h"
#include "input/input_devices.h"
#include "platform/devices.h"

namespace input {

ControlState Controls;

namespace {

ControlState& C = Controls;

bool Key(int code) { return Input.KeyTable[code]; }

void ReadPointerMouse() {
  platform::ReadMouse(Input.MouseState, true);
  C.PointerX = static_cast<int16_t>(std::clamp<int32_t>(C.PointerX + Input.MouseState.dx, 0, 780));
  C.PointerY = static_cast<int16_t>(std::clamp<int32_t>(C.PointerY + Input.MouseState.dy, 0, 580));
  if (Input.MouseState.buttons[1]) C.PointerButton2 = true;
  if (Input.MouseState.buttons[0]) C.PointerButton = true;
}

// 0 to 5 pixels a pass with the stick's deflection; clamped only next pass.
void StepPointerByJoystick() {
  PollJoystick();
  const platform::JoystickReading& j = Input.JoystickState;
  if (j.x < -20) C.PointerX = static_cast<int16_t>(C.PointerX - std::abs(j.x) / 200);
  if (j.x > 20) C.PointerX = static_cast<int16_t>(C.PointerX + std::abs(j.x) / 200);
  if (j.y < -20) C.PointerY = static_cast<int16_t>(C.PointerY - std::abs(j.y) / 200);
  if (j.y > 20) C.PointerY = static_cast<int16_t>(C.PointerY + std::abs(j.y) / 200);
  if (j.buttons[0]) C.PointerButton = true;
}

void LoseJoystick() {
  Input.JoystickOff = -1;
  NoJoystick();
}

// The high-score keyboard's keys in their test order: the last one down wins.
struct TypedKey {
  int code;
  int shift;  // -1 no Shift, 0 either way, 1 Shift
  int glyph;
};
constexpr TypedKey kTypedKeys[] = {
    {30, 0, 0},  {48, 0, 1},  {46, 0, 2},  {32, 0, 3},  {18, 0, 4},  {33, 0, 5},  {34, 0, 6},  {35, 0, 7},
    {23, 0, 8},  {36, 0, 9},  {37, 0, 10}, {38, 0, 11}, {50, 0, 12}, {49, 0, 13}, {24, 0, 14}, {25, 0, 15},
    {16, 0, 16}, {19, 0, 17}, {31, 0, 18}, {20, 0, 19}, {22, 0, 20}, {47, 0, 21}, {17, 0, 22}, {45, 0, 23},
    {21, 0, 24}, {44, 0, 25}, {11, 0, 26}, {2, -1, 27}, {3, 0, 28},  {4, 0, 29},  {5, 0, 30},  {6, 0, 31},
    {7, 0, 32},  {8, -1, 33}, {9, 0, 34},  {10, 0, 35}, {8, 1, 36},  {2, 1, 37},  {53, 1, 38}, {53, -1, 39},
    {13, 1, 40}, {12, 0, 41}, {39, 1, 42}, {40, 1, 43}, {40, -1, 44}, {52, -1, 45}, {57, 0, 46},
    {14, 0, -1},  // Backspace: the secondary button only
    {28, 0, 47},
};

}  // namespace

void ControlCheck() {
  core::PollMoment();
  bool left = false, right = false, down = false, flip = false;
  try {
    platform::ReadMouse(Input.MouseState, false);
    C.MouseAccumX += Input.MouseState.dx;
    if (C.MouseAccumX < -5) {
      C.MouseAccumX = 0;
      C.KeyLeft = left = true;
    }
    if (C.MouseAccumX > 5) {
      C.MouseAccumX = 0;
      C.KeyRight = right = true;
    }
    if (Input.MouseState.buttons[1]) C.KeyDown = down = true;
    if (Input.MouseState.buttons[0]) C.KeyFlip = flip = true;

    if (Input.JoystickOff != -1) {
      PollJoystick();
      const platform::JoystickReading& j = Input.JoystickState;
      if (j.x < -800) C.KeyLeft = left = true;
      if (j.x > 800) C.KeyRight = right = true;
      if (j.y > 900) C.KeyDown = down = true;
      if (j.buttons[0]) C.KeyFlip = flip = true;
      if (j.buttons[1]) C.PauseRequest = 1;
    }
  } catch (const JoystickReadFailure&) {
    LoseJoystick();
    return;
  }

  PollKeyboard();
  if (Key(kKeyF10)) core::Run.AppRunning = false;
  if (Key(kKeyLeft)) C.KeyLeft = left = true;
  if (Key(kKeyRight)) C.KeyRight = right = true;
  if (Key(kKeyDown)) C.KeyDown = down = true;
  if (Key(kKeyUp)) C.KeyFlip = flip = true;
  if (Key(kKeyEscape)) C.PauseRequest = 1;

  if (!left) C.KeyLeft = C.LatchLeft = false;
  if (!right) C.KeyRight = C.LatchRight = false;
  if (!down) C.KeyDown = C.LatchDown = false;
  if (!flip) C.KeyFlip = C.LatchFlip = false;
}

void ControlCheckMenu() {
  core::PollMoment();
  try {
    ReadPointerMouse();
    if (Input.JoystickOff != -1) StepPointerByJoystick();
  } catch (const JoystickReadFailure&) {
    LoseJoystick();
    return;
  }
  if (!Input.JoystickState.buttons[0] && !Input.MouseState.buttons[0]) {
    C.ClickLatch = false;
    C.PointerButton = false;
  }
}

void ControlCheckHigh() {
  core::PollMoment();
  C.PointerButton = false;
  C.PointerButton2 = false;
  try {
    ReadPointerMouse();
    if (Input.JoystickOff != -1) {
      StepPointerByJoystick();
      if (Input.JoystickState.buttons[1]) C.PointerButton2 = true;
    }
  } catch (const JoystickReadFailure&) {
    LoseJoystick();
    return;
  }

  PollKeyboard();
  const bool shift = Key(kKeyLShift) || Key(kKeyRShift);
  for (const TypedKey& k : kTypedKeys) {
    if (!Key(k.code) || (k.shift == 1 && !shift) || (k.shift == -1 && shift)) continue;
    if (k.glyph < 0) {
      C.PointerButton2 = true;
      continue;
    }
    C.TypedGlyph = static_cast<int16_t>(k.glyph);
    C.PointerButton = true;
    C.PointerX = static_cast<int16_t>(GlyphCellX(k.glyph));
    C.PointerY = static_cast<int16_t>(GlyphCellY(k.glyph));
  }

  if (!C.PointerButton) C.ClickLatch = false;
  if (!C.PointerButton2) C.ClickLatch2 = false;
}

}  // namespace input

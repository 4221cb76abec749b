// The three input devices: the keyboard, the mouse and at most one joystick,
// read by polling once per pass of whatever loop runs.
#pragma once
#include <cstdint>
#include <string>

#include "core/table.h"
#include "platform/backend.h"

namespace input {

struct InputState {
  uint8_t KeyboardState[256] = {};     // raw state by key code, non-zero = down
  core::Table<bool, 0, 211> KeyTable; // true while the key with that code is down
  platform::MouseReading MouseState;   // motion since the last read, buttons
  platform::JoystickReading JoystickState;
  int16_t JoystickOff = -1;            // -1: no joystick in use
};
extern InputState Input;

// Key codes the game tests.
enum KeyCode : int {
  kKeyEscape = 1, kKeyMinus = 12, kKeyEquals = 13, kKeyBackspace = 14, kKeyReturn = 28, kKeySemicolon = 39,
  kKeyApostrophe = 40, kKeyLShift = 42, kKeyPeriod = 52, kKeySlash = 53, kKeyRShift = 54, kKeySpace = 57,
  kKeyF1 = 59, kKeyF10 = 68, kKeyUp = 200, kKeyLeft = 203, kKeyRight = 205, kKeyDown = 208,
};

// Keyboard and mouse; false with the failing call when the devices cannot start.
bool InitInput(std::string& failedCall);
void ReleaseInput();
// Reads the keyboard and rewrites KeyTable(1..211).
void PollKeyboard();
// Reads the mouse into MouseState.
void PollMouse();
// Reads the joystick into JoystickState; a failing read throws
// JoystickReadFailure, which the control mappings turn into the
// controller-lost screen.
void PollJoystick();
struct JoystickReadFailure {};
// Looks for an attached joystick and prepares it; sets JoystickOff.
void InitJoystick();

}  // namespace input

#include "input/input_devices.h"

#include "platform/devices.h"

namespace input {

InputState Input;

bool InitInput(std::string& failedCall) {
  Input.KeyTable.name = "KeyTable";
  return platform::Current().OpenInput(failedCall);
}

void ReleaseInput() { platform::Current().CloseInput(); }

void PollKeyboard() {
  platform::ReadKeyboard(Input.KeyboardState);
  for (int k = 1; k <= 211; ++k) Input.KeyTable[k] = Input.KeyboardState[k] != 0;
}

void PollMouse() { platform::ReadMouse(Input.MouseState); }

void PollJoystick() {
  if (!platform::ReadJoystick(Input.JoystickState)) throw JoystickReadFailure{};
}

void InitJoystick() {
  Input.JoystickOff = 0;
  if (!platform::JoystickAttached()) {
    Input.JoystickOff = -1;
    return;
  }
  // Set-up failures are ignored: an unusable pad shows up as a read failure.
  platform::CloseJoystick();
  platform::OpenJoystick();
}

}  // namespace input

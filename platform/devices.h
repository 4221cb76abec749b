// The one device layer the input code reads. Each read combines the back
// end's real device with the scripted input of the automation, and tells the
// recorder what the game saw. Key codes and readings as in backend.h.
#pragma once
#include <cstdint>

#include "platform/backend.h"

namespace platform {

void ReadKeyboard(uint8_t state[256]);
// forPointer: the read moves the menus' pointer (ControlCheckMenu,
// ControlCheckHigh); only such a read takes a scripted `pointer` target.
void ReadMouse(MouseReading& out, bool forPointer = true);
// While the scripted pad is plugged it is the joystick, whatever is attached.
bool JoystickAttached();
bool OpenJoystick();
bool ReadJoystick(JoystickReading& out);  // false: read failure
void CloseJoystick();

// What the game read, for the recorder. Set by the automation; null: nobody listens.
class DeviceObserver {
 public:
  virtual ~DeviceObserver() = default;
  virtual void KeyboardRead(const uint8_t state[256]) = 0;
  virtual void MouseRead(const MouseReading& reading) = 0;
  virtual void JoystickProbed(bool attached) = 0;
  virtual void JoystickOpened(bool opened) = 0;
  virtual void JoystickRead(bool ok, const JoystickReading& reading) = 0;
  virtual void JoystickClosed() = 0;
};
void SetDeviceObserver(DeviceObserver* observer);
// While a kept game plays, only its recording moves the game: the player's
// keys, mouse and pad are not read, but Escape or F10 ends it.
void IgnoreRealDevices(bool ignore);

}  // namespace platform

#include "platform/devices.h"

#include <algorithm>
#include <iterator>

#include "core/key_names.h"
#include "core/variables.h"
#include "platform/scripted_input.h"

namespace platform {
namespace {

DeviceObserver* observer = nullptr;
bool realIgnored = false;

enum class OpenPad { None, Scripted, Real };
OpenPad openPad = OpenPad::None;

uint8_t Down(bool down) { return down ? 0x80 : 0; }

// The pointer as the game holds it; the input layer registers it.
int32_t GamePointer(const char* name) {
  std::optional<vars::Ref> ref = vars::Find(name);
  return ref ? static_cast<int32_t>(ref->AsInteger()) : 0;
}

}  // namespace

void SetDeviceObserver(DeviceObserver* o) { observer = o; }
void IgnoreRealDevices(bool ignore) { realIgnored = ignore; }

void ReadKeyboard(uint8_t state[256]) {
  uint8_t real[256] = {};
  Current().ReadKeyboard(real);
  if (realIgnored) {
    // Escape or F10 ends a replay, the window's close button too.
    if (real[1] || real[68]) RequestQuit();
    std::fill(std::begin(real), std::end(real), uint8_t{0});
  }
  // Only the keys a script can name: whatever the game sees, a replay can give it.
  for (int k = 0; k < 256; ++k) {
    state[k] = Down(core::KeyName(k) && (real[k] || scripted::KeyIsDown(k)));
  }
  if (observer) observer->KeyboardRead(state);
}

void ReadMouse(MouseReading& out, bool forPointer) {
  MouseReading real;
  Current().ReadMouse(real);
  if (realIgnored) real = MouseReading{};
  int32_t dx = 0, dy = 0;
  scripted::TakeMotion(dx, dy);
  out = MouseReading{};
  out.dx = real.dx + dx;
  out.dy = real.dy + dy;
  int x = 0, y = 0;
  if (forPointer && scripted::TakePointerTarget(x, y)) {
    out.dx = x - GamePointer("PointerX");
    out.dy = y - GamePointer("PointerY");
  }
  // The wheel and a fourth button have no script line and no use in the game.
  for (int b = 1; b <= 3; ++b) out.buttons[b - 1] = Down(real.buttons[b - 1] || scripted::MouseButtonDown(b));
  if (observer) observer->MouseRead(out);
}

bool JoystickAttached() {
  bool attached = scripted::PadPlugged() || (!realIgnored && Current().JoystickAttached());
  if (observer) observer->JoystickProbed(attached);
  return attached;
}

bool OpenJoystick() {
  if (openPad == OpenPad::Real) Current().CloseJoystick();
  bool ok = true;
  if (scripted::PadPlugged()) {
    scripted::PadOpen();
    openPad = OpenPad::Scripted;
  } else if (realIgnored) {
    ok = false;
  } else {
    ok = Current().OpenJoystick();
    openPad = ok ? OpenPad::Real : OpenPad::None;
  }
  if (observer) observer->JoystickOpened(ok);
  return ok;
}

bool ReadJoystick(JoystickReading& out) {
  out = JoystickReading{};
  bool ok = false;
  if (openPad == OpenPad::Scripted) {
    ok = scripted::PadReadable();
    if (ok) {
      out.x = scripted::PadAxisValue(scripted::Axis::X);
      out.y = scripted::PadAxisValue(scripted::Axis::Y);
      for (int b = 1; b <= 32; ++b) out.buttons[b - 1] = Down(scripted::PadButtonDown(b));
    }
  } else if (openPad == OpenPad::Real) {
    ok = Current().ReadJoystick(out);
    if (!ok) out = JoystickReading{};
  }
  if (observer) observer->JoystickRead(ok, out);
  return ok;
}

void CloseJoystick() {
  if (openPad == OpenPad::Real) Current().CloseJoystick();
  scripted::PadClose();
  openPad = OpenPad::None;
  if (observer) observer->JoystickClosed();
}

}  // namespace platform

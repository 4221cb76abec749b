#include "platform/scripted_input.h"

#include <algorithm>
#include <bitset>

#include "platform/backend.h"

namespace platform::scripted {
namespace {

struct State {
  std::bitset<256> keysHeld, keysTapped;
  int32_t motionX = 0, motionY = 0;
  std::bitset<4> buttonsHeld, buttonsClicked;
  std::optional<std::pair<int, int>> pointer;
  bool padPlugged = false, padOpen = false;
  int32_t padX = 0, padY = 0;
  std::bitset<33> padButtons;
};
State state;

bool ValidKey(int code) { return code > 0 && code < 256; }
bool ValidMouseButton(int b) { return b >= 1 && b <= 3; }
bool ValidPadButton(int b) { return b >= 1 && b <= 32; }

}  // namespace

void Reset() { state = State{}; }

void BeginPoll() {
  state.keysTapped.reset();
  state.buttonsClicked.reset();
}

void KeyDown(int code) {
  if (ValidKey(code)) state.keysHeld.set(code);
}
void KeyUp(int code) {
  if (ValidKey(code)) {
    state.keysHeld.reset(code);
    state.keysTapped.reset(code);
  }
}
void KeyTap(int code) {
  if (ValidKey(code)) state.keysTapped.set(code);
}
bool KeyIsDown(int code) { return ValidKey(code) && (state.keysHeld[code] || state.keysTapped[code]); }

void MouseMove(int32_t dx, int32_t dy) {
  state.motionX += dx;
  state.motionY += dy;
}
void MouseDown(int b) {
  if (ValidMouseButton(b)) state.buttonsHeld.set(b);
}
void MouseUp(int b) {
  if (ValidMouseButton(b)) {
    state.buttonsHeld.reset(b);
    state.buttonsClicked.reset(b);
  }
}
void MouseClick(int b) {
  if (ValidMouseButton(b)) state.buttonsClicked.set(b);
}
bool MouseButtonDown(int b) {
  return ValidMouseButton(b) && (state.buttonsHeld[b] || state.buttonsClicked[b]);
}
void TakeMotion(int32_t& dx, int32_t& dy) {
  dx = state.motionX;
  dy = state.motionY;
  state.motionX = state.motionY = 0;
}
void PointTo(int x, int y) { state.pointer = std::make_pair(x, y); }
bool TakePointerTarget(int& x, int& y) {
  if (!state.pointer) return false;
  x = state.pointer->first;
  y = state.pointer->second;
  state.pointer.reset();
  return true;
}

void PadPlug() { state.padPlugged = true; }
// Unplugging loses the device for good: plugging back needs a new open.
void PadUnplug() { state.padPlugged = state.padOpen = false; }
bool PadPlugged() { return state.padPlugged; }
void PadOpen() { state.padOpen = state.padPlugged; }
void PadClose() { state.padOpen = false; }
bool PadReadable() { return state.padOpen; }
void PadAxis(Axis axis, int32_t value) {
  value = std::clamp<int32_t>(value, -1000, 1000);
  (axis == Axis::X ? state.padX : state.padY) = value;
}
void PadRaw(Axis axis, int32_t raw) { PadAxis(axis, ScaleJoystickAxis(raw)); }
int32_t PadAxisValue(Axis axis) { return axis == Axis::X ? state.padX : state.padY; }
void PadDown(int b) {
  if (ValidPadButton(b)) state.padButtons.set(b);
}
void PadUp(int b) {
  if (ValidPadButton(b)) state.padButtons.reset(b);
}
bool PadButtonDown(int b) { return ValidPadButton(b) && state.padButtons[b]; }

}  // namespace platform::scripted

// The platform layer: what the game needs from the machine, and nothing more.
// Two back ends implement it: a real one over SDL2 (window, devices) and a
// headless one (no window, scripted devices) used by the tests and automation.
// Game code reaches it only through platform::Current() and the helpers in
// this folder; no other folder includes SDL.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

inline constexpr int kScreenWidth = 800;
inline constexpr int kScreenHeight = 600;

// Relative motion since the last read, and buttons (non-zero = down):
// buttons[0] left, [1] right, [2] middle.
struct MouseReading {
  int32_t dx = 0, dy = 0, dz = 0;
  uint8_t buttons[4] = {0, 0, 0, 0};
};

// Axes already scaled to -1000..1000 with the dead zone and saturation applied.
struct JoystickReading {
  int32_t x = 0, y = 0;
  uint8_t buttons[32] = {};
};

// Joystick range handling shared by the back ends: raw -32768..32767 to
// -1000..1000, inner 10 % reads as centre, outer 5 % as full deflection.
int32_t ScaleJoystickAxis(int32_t raw);

class Backend {
 public:
  virtual ~Backend() = default;

  // Display. OpenDisplay fails only when no picture can be shown at all.
  virtual bool OpenDisplay(std::string& error) = 0;
  virtual void CloseDisplay() = 0;
  // Puts an 800 x 600 RGB565 picture on screen at once (no pacing, no clock).
  virtual void ShowPicture(const uint16_t* pixels) = 0;
  // Pacing: a real window sleeps until real time has caught up with the
  // game clock (ms since start, fractional); headless returns at once.
  virtual void PaceTo(double clockMs) = 0;
  // True when PaceTo waits for real time: there is time to spare between frames.
  virtual bool PacedToRealTime() const { return false; }
  // A frame was presented (not called for the idle passes): presses made
  // while the game read no device since the frame before are dropped now.
  virtual void FramePresented() {}
  // Handles pending window events: close button (RequestQuit), focus, full
  // screen toggles (F11, Alt+Enter), device hot-plug notices.
  virtual void PumpEvents() = 0;
  // Leaves full screen so that a message box cannot hide behind the window.
  virtual void LeaveFullscreen() = 0;
  virtual void ShowMessageBox(const std::string& title, const std::string& text) = 0;
  // Whether sound is meant to be heard (the headless back end: no).
  virtual bool HasSoundOutput() const = 0;
  virtual void Beep() = 0;
  // The window's presented pixels, scaled and letterboxed (window only).
  virtual bool SaveWindowShot(const std::string& path, std::string& error) = 0;

  // Input devices. Keyboard state uses the game's key codes (Escape 1,
  // Return 28, F1 59, F10 68, arrows 200/203/205/208, ...): index = code,
  // non-zero = down. Window keys (F11, Alt+Enter) never appear.
  virtual bool OpenInput(std::string& error) = 0;
  virtual void CloseInput() = 0;
  virtual void ReadKeyboard(uint8_t state[256]) = 0;
  virtual void ReadMouse(MouseReading& out) = 0;
  virtual void SetMouseCaptured(bool captured) = 0;
  // Joystick: enumerate attached devices, open the first, read it.
  virtual bool JoystickAttached() = 0;
  virtual bool OpenJoystick() = 0;
  virtual bool ReadJoystick(JoystickReading& out) = 0;  // false: read failure
  virtual void CloseJoystick() = 0;
};

Backend& Current();
void SetCurrent(std::unique_ptr<Backend> backend);
std::unique_ptr<Backend> MakeSdlBackend(bool windowed);
std::unique_ptr<Backend> MakeHeadlessBackend();

// The orderly quit: the window's close button, SIGTERM and SIGINT, the
// automation's quit and the frame or tick limits ask for it; the game's next
// pass leaves through ExitProgram.
void RequestQuit();
bool QuitRequested();
void ClearQuitRequest();
// Makes SIGTERM and SIGINT ask for the orderly quit. Installed before SDL
// starts, which then leaves these signals to us.
void CatchQuitSignals();

}  // namespace platform

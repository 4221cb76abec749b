// The real back end: a window over SDL2, its keyboard, mouse and first pad,
// and the pacing of the game clock to real time.
#include <SDL2/SDL.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "platform/backend.h"
#include "platform/sdl_joystick.h"
#include "platform/sdl_keys.h"
#include "platform/sdl_pacer.h"
#include "platform/sdl_window.h"
#include "platform/sound_device.h"

namespace platform {
namespace {

class SdlBackend final : public Backend {
 public:
  explicit SdlBackend(bool windowed) : windowed_(windowed) {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // SIGTERM and SIGINT are ours (CatchQuitSignals)
    start_ = SDL_GetPerformanceCounter();
    countsPerMs_ = SDL_GetPerformanceFrequency() / 1000.0;
  }
  ~SdlBackend() override {
    CloseInput();
    CloseDisplay();
  }

  bool OpenDisplay(std::string& error) override {
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
      error = std::string("cannot start the video system: ") + SDL_GetError();
      return false;
    }
    videoOpen_ = true;
    // With no display SDL falls back to drawing into memory: a game nobody
    // can see. Only when asked for by name is that wanted.
    const char* driver = SDL_GetCurrentVideoDriver();
    const char* asked = SDL_getenv("SDL_VIDEODRIVER");
    if (driver && (!std::strcmp(driver, "offscreen") || !std::strcmp(driver, "dummy")) &&
        !(asked && std::strstr(asked, driver))) {
      error = "no display to open a window on (DISPLAY and WAYLAND_DISPLAY are unset or unusable)";
      CloseDisplay();
      return false;
    }
    if (!window_.Open(windowed_, error)) {
      CloseDisplay();
      return false;
    }
    focused_ = (SDL_GetWindowFlags(window_.Handle()) & SDL_WINDOW_INPUT_FOCUS) != 0;
    UpdateCapture();
    return true;
  }

  void CloseDisplay() override {
    if (!videoOpen_) return;
    if (captured_) SDL_SetRelativeMouseMode(SDL_FALSE);
    captured_ = false;
    window_.Close();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    videoOpen_ = false;
  }

  void ShowPicture(const uint16_t* pixels) override { window_.Show(pixels); }

  void PaceTo(double clockMs) override {
    double wait = pacer_.WaitFor(clockMs, NowMs());
    if (wait <= 0) return;
    double until = NowMs() + wait;
    // The system's sleep overshoots by a fraction of a millisecond: sleep
    // most of the wait, then yield until the moment.
    constexpr double kSpinMs = 0.5;
    if (wait > kSpinMs)
      std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(wait - kSpinMs));
    while (NowMs() < until) std::this_thread::yield();
  }

  bool PacedToRealTime() const override { return true; }

  void PumpEvents() override { Drain(); }

  void FramePresented() override {
    Drain();  // what came before this frame belongs to it
    keys_.FramePresented();
    buttons_.FramePresented();
  }

  void LeaveFullscreen() override {
    window_.SetFullscreen(false);
    UpdateCapture();
  }

  bool HasSoundOutput() const override { return true; }
  void ShowMessageBox(const std::string& title, const std::string& text) override {
    // The player needs the pointer for the OK button.
    if (captured_) SDL_SetRelativeMouseMode(SDL_FALSE);
    captured_ = false;
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, title.c_str(), text.c_str(), window_.Handle());
    UpdateCapture();
  }

  // SDL has no system beep: a chime through the mixer, or else a terminal's
  // bell (a log does not collect stray control characters).
  void Beep() override {
    if (PlaySystemBeep() || !isatty(STDERR_FILENO)) return;
    std::fputc('\a', stderr);
    std::fflush(stderr);
  }

  bool SaveWindowShot(const std::string& path, std::string& error) override {
    return window_.SaveShot(path, error);
  }

  bool OpenInput(std::string& error) override {
    if (SDL_InitSubSystem(SDL_INIT_EVENTS) != 0) {
      error = std::string("cannot start the input events: ") + SDL_GetError();
      return false;
    }
    inputOpen_ = true;
    // A machine without joystick support still plays with keyboard and mouse.
    if (SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER) == 0)
      padsOpen_ = true;
    else
      std::fprintf(stderr, "joystick: no joystick support (%s); keyboard and mouse only\n", SDL_GetError());
    return true;
  }

  void CloseInput() override {
    pad_.Close();
    if (padsOpen_) SDL_QuitSubSystem(SDL_INIT_GAMECONTROLLER);
    if (inputOpen_) SDL_QuitSubSystem(SDL_INIT_EVENTS);
    padsOpen_ = inputOpen_ = false;
  }

  void ReadKeyboard(uint8_t state[256]) override {
    Drain();
    keys_.Read(state);
  }

  void ReadMouse(MouseReading& out) override {
    Drain();
    out = MouseReading{};
    out.dx = mouseDx_;
    out.dy = mouseDy_;
    out.dz = mouseDz_;
    mouseDx_ = mouseDy_ = mouseDz_ = 0;
    buttons_.Read(out.buttons);
  }

  void SetMouseCaptured(bool captured) override {
    wantCapture_ = captured;
    UpdateCapture();
  }

  bool JoystickAttached() override {
    if (!padsOpen_) return false;
    Drain();  // brings SDL's device list up to date
    return SDL_NumJoysticks() > 0;
  }

  bool OpenJoystick() override { return padsOpen_ && pad_.Open(); }

  bool ReadJoystick(JoystickReading& out) override {
    Drain();
    return pad_.Read(out);
  }

  void CloseJoystick() override { pad_.Close(); }

 private:
  double NowMs() const { return (SDL_GetPerformanceCounter() - start_) / countsPerMs_; }

  void Drain() {
    if (!inputOpen_ && !videoOpen_) return;
    SDL_Event e;
    while (SDL_PollEvent(&e)) Handle(e);
  }

  void Handle(const SDL_Event& e) {
    switch (e.type) {
      case SDL_QUIT:
        RequestQuit();
        break;
      case SDL_WINDOWEVENT:
        HandleWindow(e.window);
        break;
      case SDL_KEYDOWN:
        if (keys_.KeyDown(e.key.keysym.scancode, e.key.keysym.sym, (e.key.keysym.mod & KMOD_ALT) != 0,
                          e.key.repeat != 0) == WindowKey::kToggleFullscreen) {
          window_.ToggleFullscreen();
          UpdateCapture();
        }
        break;
      case SDL_KEYUP:
        keys_.KeyUp(e.key.keysym.scancode);
        break;
      case SDL_TEXTINPUT:
        keys_.TextTyped(e.text.text);
        break;
      case SDL_MOUSEMOTION:
        if (!focused_) break;  // the pointer passing over a window in the background
        mouseDx_ += e.motion.xrel;
        mouseDy_ += e.motion.yrel;
        break;
      case SDL_MOUSEWHEEL:
        if (focused_) mouseDz_ += e.wheel.y * 120;  // one notch, in the usual wheel units
        break;
      case SDL_MOUSEBUTTONDOWN:
      case SDL_MOUSEBUTTONUP:
        if (e.type == SDL_MOUSEBUTTONDOWN)
          buttons_.Down(ButtonIndex(e.button.button));
        else
          buttons_.Up(ButtonIndex(e.button.button));
        break;
      case SDL_JOYDEVICEADDED: {
        // Taken into use at the game's next search for a pad.
        const char* name = SDL_JoystickNameForIndex(e.jdevice.which);
        std::fprintf(stderr, "joystick: %s attached\n", name ? name : "a pad was");
        break;
      }
      case SDL_JOYDEVICEREMOVED:
        // The game notices at its next read of the pad.
        std::fprintf(stderr, "joystick: a pad was removed\n");
        break;
      default:
        break;
    }
  }

  void HandleWindow(const SDL_WindowEvent& w) {
    switch (w.event) {
      case SDL_WINDOWEVENT_CLOSE:
        RequestQuit();
        break;
      case SDL_WINDOWEVENT_FOCUS_GAINED:
        focused_ = true;
        break;
      case SDL_WINDOWEVENT_FOCUS_LOST:
        // Releases made elsewhere never reach us: nothing may stay held.
        focused_ = false;
        keys_.ReleaseAll();
        buttons_.ReleaseAll();
        break;
      case SDL_WINDOWEVENT_EXPOSED:
      case SDL_WINDOWEVENT_SIZE_CHANGED:
        window_.Refresh();
        break;
      default:
        break;
    }
    UpdateCapture();
  }

  static int ButtonIndex(uint8_t sdlButton) {
    switch (sdlButton) {
      case SDL_BUTTON_LEFT: return 0;
      case SDL_BUTTON_RIGHT: return 1;
      case SDL_BUTTON_MIDDLE: return 2;
      case SDL_BUTTON_X1: return 3;
      default: return -1;
    }
  }

  // The pointer is the game's only while the game asks for it, has the
  // focus and fills the screen; in a window the player may want to leave.
  void UpdateCapture() {
    bool want = wantCapture_ && focused_ && window_.IsOpen() && window_.IsFullscreen();
    if (want == captured_) return;
    if (SDL_SetRelativeMouseMode(want ? SDL_TRUE : SDL_FALSE) != 0) {
      if (!captureWarned_)
        std::fprintf(stderr, "mouse: cannot capture the pointer: %s\n", SDL_GetError());
      captureWarned_ = true;
      return;
    }
    captured_ = want;
  }

  bool windowed_;
  SdlWindow window_;
  KeyState keys_;
  ButtonState buttons_;
  SdlPad pad_;
  Pacer pacer_;
  Uint64 start_ = 0;
  double countsPerMs_ = 1.0;
  bool videoOpen_ = false, inputOpen_ = false, padsOpen_ = false;
  bool focused_ = false, wantCapture_ = false, captured_ = false, captureWarned_ = false;
  int32_t mouseDx_ = 0, mouseDy_ = 0, mouseDz_ = 0;
};

}  // namespace

std::unique_ptr<Backend> MakeSdlBackend(bool windowed) { return std::make_unique<SdlBackend>(windowed); }

}  // namespace platform

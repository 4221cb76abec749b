// No window, no sound device, no pacing: the same game as fast as it runs.
// Every device reads as idle; the device layer adds the scripted input.
#include "platform/backend.h"

namespace platform {
namespace {

class HeadlessBackend final : public Backend {
 public:
  bool OpenDisplay(std::string&) override { return true; }
  void CloseDisplay() override {}
  // The picture on screen is the display layer's PrimarySurface; nothing to keep.
  void ShowPicture(const uint16_t*) override {}
  void PaceTo(double) override {}
  void PumpEvents() override {}
  void LeaveFullscreen() override {}
  // The frame has already written the box to stderr; headless answers it at once.
  void ShowMessageBox(const std::string&, const std::string&) override {}
  bool HasSoundOutput() const override { return false; }
  void Beep() override {}
  bool SaveWindowShot(const std::string& path, std::string& error) override {
    error = "no window to shoot in a headless run (" + path + " not written)";
    return false;
  }

  bool OpenInput(std::string&) override { return true; }
  void CloseInput() override {}
  void ReadKeyboard(uint8_t state[256]) override {
    for (int k = 0; k < 256; ++k) state[k] = 0;
  }
  void ReadMouse(MouseReading& out) override { out = MouseReading{}; }
  void SetMouseCaptured(bool) override {}
  bool JoystickAttached() override { return false; }
  bool OpenJoystick() override { return false; }
  bool ReadJoystick(JoystickReading& out) override {
    out = JoystickReading{};
    return false;
  }
  void CloseJoystick() override {}
};

}  // namespace

std::unique_ptr<Backend> MakeHeadlessBackend() { return std::make_unique<HeadlessBackend>(); }

}  // namespace platform

// A headless back end whose real devices a test controls: a pad that is
// listed, opens and then fails to read, and counts of what the game asked.
#pragma once
#include <memory>

#include "platform/backend.h"

namespace testsupport {

class FakeBackend final : public platform::Backend {
 public:
  struct Counts {
    int framesPresented = 0, pictures = 0, padSearches = 0, padOpens = 0, padReads = 0;
  };
  struct Pad {
    bool listed = false, opens = false, reads = false;
  };
  // Shared with the test, which keeps its handles after SetCurrent.
  std::shared_ptr<Counts> counts = std::make_shared<Counts>();
  std::shared_ptr<Pad> pad = std::make_shared<Pad>();

  bool OpenDisplay(std::string&) override { return true; }
  void CloseDisplay() override {}
  void ShowPicture(const uint16_t*) override { ++counts->pictures; }
  void FramePresented() override { ++counts->framesPresented; }
  void PaceTo(double) override {}
  void PumpEvents() override {}
  void LeaveFullscreen() override {}
  void ShowMessageBox(const std::string&, const std::string&) override {}
  bool HasSoundOutput() const override { return false; }
  void Beep() override {}
  bool SaveWindowShot(const std::string&, std::string& error) override { return error = "no window", false; }
  bool OpenInput(std::string&) override { return true; }
  void CloseInput() override {}
  void ReadKeyboard(uint8_t state[256]) override {
    for (int k = 0; k < 256; ++k) state[k] = 0;
  }
  void ReadMouse(platform::MouseReading& out) override { out = platform::MouseReading{}; }
  void SetMouseCaptured(bool) override {}
  bool JoystickAttached() override { return ++counts->padSearches, pad->listed; }
  bool OpenJoystick() override { return ++counts->padOpens, pad->opens; }
  bool ReadJoystick(platform::JoystickReading& out) override {
    ++counts->padReads;
    out = platform::JoystickReading{};
    return pad->reads;
  }
  void CloseJoystick() override {}
};

}  // namespace testsupport

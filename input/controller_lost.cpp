// The controller-lost screen: drawn straight onto the picture on screen, over
// the frozen game; it presents no frames.
#include <string>

#include "display/surface.h"
#include "core/hooks.h"
#include "display/passes.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"

namespace input {

namespace {

const char* const kLines[4] = {
    "ERROR: Your controller has an error or has become disconnected!",
    "You cannot resume use of the controller until the game has begun again.",
    "To attempt to reconnect the control, plug it in now and hit F1",
    "Otherwise, hit escape to continue playing without the control!",
};
constexpr int kLineOffsets[4] = {0, 25, 60, 125};

void DrawLines(display::Surface& s, int x, int y) {
  for (int i = 0; i < 4; ++i) display::DrawText(s, x, y + kLineOffsets[i], kLines[i]);
}

void DrawMessageBox(display::Surface& s) {
  display::SetForeColour(s, 0, 255, 0);
  display::SetFillColour(s, 0, 75, 0);
  display::SetFillStyle(s, 0);
  display::DrawBox(s, 100, 375, 600, 400);
}

void DrawFailed(display::Surface& s) {
  display::SetForeColour(s, 255, 0, 0);
  display::DrawText(s, 250, 380, "Connection Failed!");
}

// The screen is up: a pad that fails again while it shows (listed, opened,
// then unreadable) is reported inside it, never by a second screen on top.
bool showing = false;
bool lostAgain = false;

}  // namespace

void NoJoystick() {
  if (showing) {
    lostAgain = true;
    return;
  }
  showing = true;
  lostAgain = false;
  struct Leave {
    ~Leave() { showing = false; }  // the orderly quit leaves from any pass
  } leave;

  display::Surface& front = display::Display.PrimarySurface;
  const std::string previousScreen = core::CurrentScreen();
  core::EnterScreen("nojoystick");
  platform::Current().Beep();
  core::NoteBeep();

  display::SetForeColour(front, 100, 0, 0);
  for (int x = 150; x <= 154; ++x)
    for (int y = 223; y <= 227; ++y) DrawLines(front, x, y);
  display::SetForeColour(front, 255, 255, 0);
  DrawLines(front, 152, 225);

  // The loop runs about a thousand passes a second: one attempt per press.
  bool f1Held = false;
  for (;;) {
    ControlCheckHigh();
    if (lostAgain) {
      lostAgain = false;
      DrawMessageBox(front);
      DrawFailed(front);
    }
    if (Input.KeyTable[kKeyEscape]) break;
    const bool f1 = Input.KeyTable[kKeyF1];
    if (f1 && !f1Held) {
      DrawMessageBox(front);
      display::SetForeColour(front, 255, 255, 255);
      display::DrawText(front, 250, 380, "Attempting to re-connect josystick");
      InitJoystick();
      display::SetForeColour(front, 0, 75, 0);
      display::DrawText(front, 250, 380, "Attempting to re-connect josystick");
      if (Input.JoystickOff != -1) {
        display::SetForeColour(front, 255, 255, 0);
        display::DrawText(front, 250, 380, "Connection Established! Press ESC to continue!");
      } else {
        DrawFailed(front);
      }
    }
    f1Held = f1;
    display::IdlePass();
  }
  while (Input.KeyTable[kKeyEscape]) {
    display::IdlePass();
    ControlCheckHigh();
  }
  core::EnterScreen(previousScreen.c_str());
}

}  // namespace input

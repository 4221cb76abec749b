// The one game pad of the SDL back end. A pad SDL knows the layout of is
// read as a game controller (left stick and d-pad, south button first);
// any other as a plain joystick (first two axes, buttons in order, first hat).
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/backend.h"

struct _SDL_Joystick;
struct _SDL_GameController;

namespace platform {

// What a pad reported, before the game's scaling: raw axes -32768..32767 in
// the pad's own order (x, y first), buttons in the game's order, and the hat
// as SDL's direction bits (up 1, right 2, down 4, left 8).
struct RawPad {
  std::vector<int32_t> axes;
  std::vector<uint8_t> buttons;
  uint8_t hat = 0;
};

// Turns a reading into the game's: missing axes read centred, a pressed hat
// direction is full deflection, opposite hat directions cancel, buttons past
// the 32 the game has are dropped.
JoystickReading AdaptPad(const RawPad& raw);

class SdlPad {
 public:
  ~SdlPad() { Close(); }
  // Opens the first attached pad; false (with the reason on stderr) if none
  // can be opened.
  bool Open();
  void Close();
  bool IsOpen() const { return joystick_ || controller_; }
  // False once the pad is gone.
  bool Read(JoystickReading& out);

 private:
  bool ReadRaw(RawPad& raw);

  _SDL_Joystick* joystick_ = nullptr;
  _SDL_GameController* controller_ = nullptr;
  std::string name_;
};

}  // namespace platform

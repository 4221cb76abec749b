// Keyboard translation for the SDL back end: SDL's keys to the game's key
// codes, and the key state the game reads. No SDL calls here, only its key
// names, so the tests can drive it with made-up layouts.
#pragma once
#include <SDL2/SDL_keycode.h>

#include <cstdint>

namespace platform {

// The game's code for a key, 0 when the game has no use for it.
// Keys that mean a place on the board (arrows, function keys, Escape, Return,
// Shift, Space, Backspace, keypad, ...) go by scancode; keys that mean a
// character go by the keycode the player's layout puts on them, and by their
// position when the layout puts something there the game has no code for.
// F11 and F12 are the window's and give 0.
int GameKeyCode(SDL_Scancode scancode, SDL_Keycode keycode);

// What a key press asks of the window rather than of the game.
enum class WindowKey { kNone, kToggleFullscreen };

// The key state, kept from key events. A key that went down and up between
// two reads still reads as down once, so a quick tap is never lost; a press
// the window took (F11, Alt+Enter) never reaches the game, not even its
// release.
class KeyState {
 public:
  // altHeld: either Alt key is down (from the event's modifiers).
  WindowKey KeyDown(SDL_Scancode scancode, SDL_Keycode keycode, bool altHeld, bool repeat);
  void KeyUp(SDL_Scancode scancode);
  // The character the last key press typed, with the layout's own Shift
  // rules: the key then reads as the game's key for that character, with the
  // Shift state the game's keyboard needs for it ("/" on a German Shift+7
  // reads as the slash key without Shift).
  void TextTyped(const char* utf8);
  // Focus lost: releases of keys held now will not be seen.
  void ReleaseAll();
  void Read(uint8_t state[256]);

 private:
  // Game code held by each scancode, fixed at the press so a layout change
  // mid-press cannot leave the old code stuck.
  uint8_t held_[SDL_NUM_SCANCODES] = {};
  uint8_t tapped_[256] = {};
  uint8_t windowOwned_[SDL_NUM_SCANCODES] = {};  // pressed for the window, not yet released
  // Shift as a typed character needs it: 0 as the keys are, 1 up, 2 down.
  uint8_t shiftFor_[SDL_NUM_SCANCODES] = {};
  uint8_t tapShift_ = 0;
  SDL_Scancode lastDown_ = SDL_SCANCODE_UNKNOWN;
};

}  // namespace platform

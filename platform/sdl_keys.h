// Keyboard translation for the SDL back end: SDL's keys to the game's key
// codes, and the key and mouse button state the game reads. No SDL calls here, only its key
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

// The key state, kept from key events. A key counts while it is down. A key
// that went down and up before the next read still reads as down once, so a
// quick tap between two reads is not lost; but only while every frame
// presented since was one in which the keyboard was read: a tap made while
// nothing reads the keyboard (the menu, the introduction) is dropped at the
// next frame rather than reaching the next screen that reads it. A press the
// window took (F11, Alt+Enter) never reaches the game, not even its release.
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
  // Focus lost: releases of keys held now will not be seen; taps go too.
  void ReleaseAll();
  void Read(uint8_t state[256]);
  // A frame was presented: taps wait for a read only if one came since the last.
  void FramePresented();

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
  bool readSinceFrame_ = false;
};

// The mouse buttons by the same rule as the keys: down while held, a click
// released before the next read counts once, unless a frame was presented
// without a read of the mouse in between.
class ButtonState {
 public:
  static constexpr int kButtons = 4;
  // i: 0 left, 1 right, 2 middle, 3 first extra; others are ignored.
  void Down(int i);
  void Up(int i);
  void ReleaseAll();
  void Read(uint8_t buttons[kButtons]);
  void FramePresented();

 private:
  uint8_t held_[kButtons] = {};
  uint8_t tapped_[kButtons] = {};
  bool readSinceFrame_ = false;
};

}  // namespace platform

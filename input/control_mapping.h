// The three mappings from devices to what the game reads: action flags in
// play, a pointer in the menus, typed glyphs on the high-score keyboard.
#pragma once
#include <cstdint>

namespace input {

struct ControlState {
  // Play: asked for in this pass by any source; the latches are set by the
  // game loop when it has acted, and cleared here when the action stops.
  bool KeyLeft = false, KeyRight = false, KeyDown = false, KeyFlip = false;
  bool LatchLeft = false, LatchRight = false, LatchDown = false, LatchFlip = false;
  int16_t PauseRequest = 0;  // set by Escape or pad button 2; the pause clears it
  int32_t MouseAccumX = 0;   // sideways motion not yet turned into a move
  // Menus.
  int16_t PointerX = 390, PointerY = 290;
  bool PointerButton = false, PointerButton2 = false;
  bool ClickLatch = false, ClickLatch2 = false;
  int16_t TypedGlyph = -1;  // glyph typed on the high-score keyboard, -1 none
};
extern ControlState Controls;

void ControlCheck();
void ControlCheckMenu();
void ControlCheckHigh();

// The controller-lost screen, drawn straight onto the picture on screen;
// returns when the player presses Escape.
void NoJoystick();

// The on-screen keyboard cell of a glyph, as the pointer stands on it.
inline int GlyphCellX(int glyph) { return 125 + 50 * (glyph % 12); }
inline int GlyphCellY(int glyph) { return 385 + 55 * (glyph / 12); }

}  // namespace input

// Composing a frame of a Classic or Bonus game: the background for the level
// (or the Type C height), and the field, bomb, frame, preview, panel,
// counters and score banner on the back buffer.
#pragma once
#include <cstdint>

#include "display/surface.h"

namespace game {

// Rebuilds display::Display.Backdrop for the current variant, level, type and height.
void MakeBackground();
// The frame without the falling piece; the caller adds the piece and presents.
void DrawPlayfield();
// The Type C bomb and its sparkles as DrawPlayfield draws them, at field y
// (the collapse of cleared rows moves the bomb while it draws it).
void DrawTypeCBomb(int fieldY);
// The bomb's picture for the current BombFrame at a screen position.
void DrawBombPictures(double x, double y);
// A counter's label at (600, labelY) and its big digits right-aligned at x = 750 below it.
void Counter(display::Surface& back, const display::Surface& label, int labelY, int64_t value);
// The shown score catches up in steps that grow with the gap.
int32_t ScoreStep(int32_t gap);
// The score banner's slide, hold and shrink, one step a frame.
void DrawBanner(display::Surface& back);
// "Draw the piece": the falling piece's sprite at its box, with its sparks.
void DrawPiece();

}  // namespace game

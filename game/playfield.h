// Composing a frame of a Classic or Bonus game: the background for the level
// (or the Type C height), and the field, bomb, frame, preview, panel,
// counters and score banner on the back buffer.
#pragma once

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
// "Draw the piece": the falling piece's sprite at its box, with its sparks.
void DrawPiece();

}  // namespace game

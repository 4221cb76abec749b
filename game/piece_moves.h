// The moves both falling-piece loops share: the collision tests, the sliding
// step and the input half of a pass. Each loop passes its own frame drawing.
#pragma once

#include <cstdint>

namespace game {

// Draws the field and the falling piece into the back buffer.
using FrameDraw = void (*)();

int CellX(int rot, int i);
int CellY(int rot, int i);

bool SidewaysAllowed(int dx);
bool FlipAllowed(int rot);
bool FallAllowed();

void ShowFrame(FrameDraw draw);
void Slide(FrameDraw draw, int step, bool& latch, int32_t& repeatTime);

enum class FlipResult { None, Blocked, Turned };

// Reads the controls, then the pause, one sideways move, the soft drop and
// one flip.
FlipResult MovePiece(FrameDraw draw);

}  // namespace game

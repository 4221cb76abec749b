// After a Classic or Bonus game: the freeze, the blow-up under the unrolling
// game-over picture, the fireworks or the rocket where earned, the name entry
// and the final screen with the credits.
#pragma once

namespace frontend {

void GameOver();
// Shatters the screen, launches the rocket (its size by level, or by height
// in Type C) and returns 3 s after it has left; leaves rocketback.bmp in
// the backdrop and the game's state as it was.
void RocketBlast();
// The score, the table and the scrolling credits until a pointer button.
void FinalScreen();

// The rocket a result earns: 0 small, 1 medium, 2 large.
int RocketSize(int level, int playType, int variant, double startHeight);

}  // namespace frontend

// The Wickory game: its falling-piece loop, the detonation a landed
// detonator sets off, and the end of the game.
#pragma once
#include <cstdint>

namespace fuse {

// The loop from the first piece to the end sequence (or the program's end).
void FuseGame();
// The fire from the detonator's cell along the fuses; the explosions of the
// charges it reached, or everything undone when it reached none.
void CheckFuse();
// The result banner: the points, or the fault banner for 0.
void FlashScore2(int32_t points);
// The end of a Wickory game, from the freeze to the final screen.
void GameOver2();

}  // namespace fuse

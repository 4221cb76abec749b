#include "game/game_state.h"

namespace game {

GameState Game;

void FillDropDelay() {
  static constexpr int32_t kDelays[21] = {1500, 1300, 1075, 875, 700, 550, 425, 325, 250, 200, 160,
                                          140,  120,  100,  85,  70,  55,  45,  35,  20,  5};
  Game.DropDelay.name = "DropDelay";
  for (int level = 0; level <= 20; ++level) Game.DropDelay[level] = kDelays[level];
}

}  // namespace game

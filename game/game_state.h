// The block game's state that the program frame sets up before any game.
#pragma once
#include <cstdint>

#include "core/table.h"

namespace game {

struct GameState {
  core::Table<int32_t, 0, 20> DropDelay;  // ms per gravity step, by level
  int16_t DangerZone = 0, DangerZoneBefore = 0;
};
extern GameState Game;

// The 21 gravity delays, from 1500 ms at level 0 to 5 ms at level 20.
void FillDropDelay();

}  // namespace game

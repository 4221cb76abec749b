// After every landing (and once at set-up): the bonus effect of a bonus
// piece, the full rows, their score, lines and level, the blast and collapse,
// Type C's rising garbage and its bomb's detonation.
#pragma once
#include <cstdint>

namespace game {

void CheckLine();
// Composes the score banner for FullRowCount and starts its animation.
void FlashScore(int32_t points);

}  // namespace game

// After every landing (and once at set-up): the bonus effect of a bonus
// piece, the full rows, their score, lines and level, the blast and collapse,
// Type C's rising garbage and its bomb's detonation.
#pragma once
#include <cstdint>

namespace game {

void CheckLine();
// Type C, once both rows of the bomb were cleared: every block explodes, the
// height (or, at height 20, the level) rises, a new bomb and new garbage come.
void DetonateBomb();
// Composes the score banner for FullRowCount and starts its animation.
void FlashScore(int32_t points);

}  // namespace game

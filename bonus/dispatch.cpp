#include "bonus/effects.h"
#include "game/game_state.h"

namespace bonus {

void RunBonusEffect() {
  const game::GameState& g = game::Game;
  switch (g.PieceKind) {
    case 12: BombLand(); break;
    case 13: g.FlipAction ? ColumnFill() : ColumnClear(); break;
    case 14: g.FlipAction ? SingleFall() : SingleClear(); break;
    case 15: Earthquake(); break;
    default: break;
  }
}

}  // namespace bonus

// The falling-piece loop of Wickory: the block game's moves, flips that
// always rotate, and landings that stamp fuse, register charges and set off
// the detonator. No row is ever cleared.
#include "fuse/fuse_game.h"

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/run_state.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_state.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/pieces.h"
#include "game/piece_moves.h"
#include "input/control_mapping.h"

namespace fuse {

namespace {

using game::CellX;
using game::CellY;
using game::Game;
using input::Controls;

uint32_t Tick() { return display::GetTick(); }

void DrawFrame() {
  DrawFuseField();
  display::BltKeyed(display::Display.BackBuffer, Game.PieceX + game::kFieldLeft, Game.PieceY + game::kFieldTop, 80,
                    80, display::Assets.PieceSprites[Game.PieceKind][Game.PieceRot][Game.PieceFuse], 0, 0, 80, 80);
}

void Land() {
  game::GameState& g = Game;
  audio::PlaySoundEffect(1);
  if (g.SoftDropPoints > 0) {
    g.Score += g.SoftDropPoints;
    g.SoftDropPoints = 0;
  }
  // The detonator is never stamped: the fire starts around its cell.
  if (g.PieceKind <= 12)
    display::BltKeyed(display::Assets.FieldSurfaces[0], g.PieceX, g.PieceY, 80, 80,
                      display::Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse], 0, 0, 80, 80);
  if (g.PieceKind == 12 || (g.PieceKind == 9 && g.PieceFuse == 1)) RegisterCharge(g.PieceX + 40, g.PieceY + 20);
  if (g.PieceKind == 13) CheckFuse();
  game::FreshCurrent();
  Controls.LatchDown = true;
  if (g.PieceKind == 13) audio::PlaySoundEffect(141);
  if (g.PieceKind == 12) audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 135)));
  for (int i = 0; i <= 4; ++i) {
    const int x = CellX(g.PieceRot, i), y = CellY(g.PieceRot, i);
    if (game::Occupied(x, y) && y > 0) g.GameAlive = 0;
  }
}

// Only rows 0..4: the fuse game's stack may stand higher than the block game's.
void CheckDangerZone() {
  game::GameState& g = Game;
  g.DangerZoneBefore = g.DangerZone;
  bool danger = false;
  for (int y = 10; y <= 90; y += 20)
    for (int x = 10; x <= 250; x += 20)
      if (game::Occupied(x, y)) danger = true;
  g.DangerZone = danger ? 1 : 0;
  if (g.DangerZone != g.DangerZoneBefore) audio::SetMusicTempo(g.DangerZone ? 125 : 100);
}

}  // namespace

void FuseGame() {
  game::GameState& g = Game;
  g.NextDropTime = static_cast<int32_t>(Tick()) + g.DropDelay[core::Settings.Level];
  while (core::Run.AppRunning) {
    g.FlipAction = 0;  // never set here: a flip always rotates
    game::MovePiece(DrawFrame);

    g.GameAlive = 1;
    if (static_cast<int32_t>(Tick()) > g.NextDropTime) {
      if (game::FallAllowed()) {
        g.PieceY = static_cast<int16_t>(g.PieceY + 10);
        game::ShowFrame(DrawFrame);
        g.PieceY = static_cast<int16_t>(g.PieceY + 10);
      } else {
        Land();
      }
      CheckDangerZone();
      if (g.GameAlive == 0) {
        GameOver2();
        return;
      }
      g.NextDropTime = static_cast<int32_t>(Tick()) + g.DropDelay[core::Settings.Level];
    }

    game::ShowFrame(DrawFrame);
    g.NowTick = static_cast<int32_t>(Tick());
    if (g.NowTick > g.LeftRepeatTime) Controls.LatchLeft = false;
    if (g.NowTick > g.RightRepeatTime) Controls.LatchRight = false;
  }
}

}  // namespace fuse

// The falling-piece loop of Classic and Bonus: one pass a frame, at most one
// sideways move, the soft drop, at most one flip, gravity on the tick.
#include <initializer_list>

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "bonus/bonus_state.h"
#include "core/random.h"
#include "core/run_state.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_over_hook.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/line_check.h"
#include "game/piece_moves.h"
#include "game/pieces.h"
#include "game/playfield.h"
#include "input/control_mapping.h"

namespace game {

namespace {

using input::Controls;

uint32_t Tick() { return display::GetTick(); }

void DrawFrame() {
  DrawPlayfield();
  DrawPiece();
}

void Announce() {
  GameState& g = Game;
  const int kind = g.PieceKind;
  switch (kind) {
    case 13: audio::PlaySoundEffect(131); break;
    case 14: audio::PlaySoundEffect(130); break;
    case 12: audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 135))); break;
    case 15: audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 132))); break;
    case 7: case 8: case 9:
      if (core::RandomInt(5, 1) == 1) audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 143)));
      break;
    case 0:
      if (core::Settings.GameVariant == 0 && g.PiecesSinceBar > 25)
        audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(4, 147)));
      break;
    default: break;
  }
  if (kind == 0) g.PiecesSinceBar = 0;
}

void Land() {
  GameState& g = Game;
  audio::PlaySoundEffect(1);
  if (g.SoftDropPoints > 0) {
    g.Score += g.SoftDropPoints;
    g.SoftDropPoints = 0;
  }
  // Bonus pieces are never stamped: their effect replaces the stamp.
  if (g.PieceKind <= 11) {
    int remark = 0;
    for (int i = 0; i <= 4; ++i)
      if (Occupied(CellX(g.PieceRot, i), CellY(g.PieceRot, i) - 20)) remark = 1;  // slid in under an overhang
    display::BltKeyed(display::Assets.FieldSurfaces[0], g.PieceX, g.PieceY, 80, 80,
                      display::Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse], 0, 0, 80, 80);
    for (int i = 0; i <= 4; ++i) {
      const int y = CellY(g.PieceRot, i) + 20;
      if (!Occupied(CellX(g.PieceRot, i), y) && y <= kFieldHeight) remark = 2;  // left a gap below
    }
    if (remark == 1) audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(4, 151)));
    if (remark == 2 && core::RandomInt(4, 1) == 1) audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(5, 155)));
  }
  CheckLine();
  FreshCurrent();
  Controls.LatchDown = true;
  bonus::ResetSparks();
  g.PiecesSinceBar = static_cast<int16_t>(g.PiecesSinceBar + 1);
  Announce();
  for (int i = 0; i <= 4; ++i) {
    const int x = CellX(g.PieceRot, i), y = CellY(g.PieceRot, i);
    if (Occupied(x, y) && y > 0) g.GameAlive = 0;  // the new piece overlaps the stack
  }
}

void CheckDangerZone() {
  GameState& g = Game;
  g.DangerZoneBefore = g.DangerZone;
  bool danger = false;
  for (int y = 10; y <= 130; y += 20)
    for (int x = 10; x <= 250; x += 20)
      if (Occupied(x, y)) danger = true;
  g.DangerZone = danger ? 1 : 0;
  if (g.DangerZone != g.DangerZoneBefore) audio::SetMusicTempo(g.DangerZone ? 125 : 100);
}

}  // namespace

void StandardGame() {
  GameState& g = Game;
  g.NextDropTime = static_cast<int32_t>(Tick()) + g.DropDelay[core::Settings.Level];
  while (core::Run.AppRunning) {
    g.FlipAction = 0;
    // A bonus piece lands where it is and uses its flip effect, fitting or not.
    if (MovePiece(DrawFrame) != FlipResult::None && g.PieceKind > 11) g.FlipAction = 1;

    g.GameAlive = 1;
    if (static_cast<int32_t>(Tick()) > g.NextDropTime || g.FlipAction == 1) {
      if (FallAllowed()) {
        g.PieceY = static_cast<int16_t>(g.PieceY + 10);
        ShowFrame(DrawFrame);
        g.PieceY = static_cast<int16_t>(g.PieceY + 10);
      } else {
        Land();
      }
      CheckDangerZone();
      if (g.GameAlive == 0) {
        if (GameOverHook) GameOverHook();
        return;
      }
      g.NextDropTime = static_cast<int32_t>(Tick()) + g.DropDelay[core::Settings.Level];
    }

    ShowFrame(DrawFrame);
    g.NowTick = static_cast<int32_t>(Tick());
    if (g.NowTick > g.LeftRepeatTime) Controls.LatchLeft = false;
    if (g.NowTick > g.RightRepeatTime) Controls.LatchRight = false;
  }
}

}  // namespace game

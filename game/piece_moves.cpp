#include "game/piece_moves.h"

#include "audio/sound_effects.h"
#include "core/settings.h"
#include "display/passes.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace game {

namespace {

using input::Controls;

uint32_t Tick() { return display::GetTick(); }

bool TypeC() { return core::Settings.PlayType == 2 && core::Settings.GameVariant < 2; }

// In Type C the bomb blocks the piece: its square is painted into the field
// for the length of one collision test only.
template <class Test>
bool WithBombPainted(Test test) {
  const bool typeC = TypeC();
  if (typeC) PaintField(Game.BombX, Game.BombY, Game.BombX + 40, Game.BombY + 40, 255, 0, 0);
  const bool result = test();
  if (typeC) PaintField(Game.BombX, Game.BombY, Game.BombX + 40, Game.BombY + 40, 0, 0, 0);
  return result;
}

}  // namespace

int CellX(int rot, int i) { return Game.PieceX + Game.PieceCells[rot][i][0]; }
int CellY(int rot, int i) { return Game.PieceY + Game.PieceCells[rot][i][1]; }

// Every one of the five entries is probed, even a repeated cell 0; probes
// above the top row never decide.
bool SidewaysAllowed(int dx) {
  return WithBombPainted([dx] {
    bool allowed = true;
    for (int i = 0; i <= 4; ++i) {
      const int x = CellX(Game.PieceRot, i) + dx, y = CellY(Game.PieceRot, i);
      if (dx < 0 ? x < 0 : x > kFieldWidth) allowed = false;
      if (Occupied(x, y) && y > 0) allowed = false;
    }
    return allowed;
  });
}

bool FlipAllowed(int rot) {
  return WithBombPainted([rot] {
    bool allowed = true;
    for (int i = 0; i <= 4; ++i) {
      const int x = CellX(rot, i), y = CellY(rot, i);
      if (y > kFieldHeight || x < 0 || x > kFieldWidth) allowed = false;
      if (Occupied(x, y) && y > 0) allowed = false;
    }
    return allowed;
  });
}

// A bonus piece whose flip was pressed lands where it is.
bool FallAllowed() {
  return WithBombPainted([] {
    bool allowed = Game.FlipAction == 0;
    for (int i = 0; i <= 4; ++i) {
      const int x = CellX(Game.PieceRot, i), y = CellY(Game.PieceRot, i);
      if (y + 20 > kFieldHeight) allowed = false;
      if (Occupied(x, y + 20)) allowed = false;
    }
    return allowed;
  });
}

void ShowFrame(FrameDraw draw) {
  draw();
  display::PresentFrame(0);
}

// Three frames of 5-pixel slide, the last step shown by the pass's own frame.
void Slide(FrameDraw draw, int step, bool& latch, int32_t& repeatTime) {
  latch = true;
  const int level = core::Settings.Level;
  repeatTime = static_cast<int32_t>(Tick()) + (Game.DropDelay[level] >= 100 ? 100 : 170 - 5 * level);
  audio::PlaySoundEffect(2);
  for (int i = 0; i < 3; ++i) {
    Game.PieceX = static_cast<int16_t>(Game.PieceX + step);
    ShowFrame(draw);
  }
  Game.PieceX = static_cast<int16_t>(Game.PieceX + step);
}

FlipResult MovePiece(FrameDraw draw) {
  GameState& g = Game;
  input::ControlCheck();
  if (Controls.PauseRequest == 1) PauseScreen();
  if (Controls.KeyLeft && Controls.KeyRight) Controls.KeyLeft = Controls.KeyRight = false;

  if (Controls.KeyLeft && !Controls.LatchLeft && SidewaysAllowed(-20))
    Slide(draw, -5, Controls.LatchLeft, g.LeftRepeatTime);
  if (Controls.KeyRight && !Controls.LatchRight && SidewaysAllowed(20))
    Slide(draw, 5, Controls.LatchRight, g.RightRepeatTime);

  if (!Controls.KeyDown) g.SoftDropPoints = 0;
  if (Controls.KeyDown && !Controls.LatchDown) {
    g.NextDropTime = static_cast<int32_t>(Tick()) - 1;
    g.SoftDropPoints = static_cast<int16_t>(g.SoftDropPoints + core::Settings.Level + 1);
  }

  if (!Controls.KeyFlip || Controls.LatchFlip) return FlipResult::None;
  const int target = (g.PieceRot + 1) % 4;
  if (!FlipAllowed(target)) return FlipResult::Blocked;
  Controls.LatchFlip = true;
  g.PieceRot = static_cast<int16_t>(target);
  audio::PlaySoundEffect(3);
  ShowFrame(draw);
  return FlipResult::Turned;
}

}  // namespace game

// The Type C bomb going off: every block of the field flies out under a big
// explosion, the height (from 20 on, the level) rises, the bomb comes back
// whole at the bottom and new garbage falls in under it.
#include <cstdint>

#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/garbage.h"
#include "game/line_check.h"
#include "game/playfield.h"

namespace game {

using core::Settings;
using display::Assets;
using display::Display;

namespace {

// The explosion's t runs 0 to 22.8 in steps of 0.2: 115 frames, counted as
// whole steps so that rounding never adds one; its picture is Int(t).
constexpr int kExplosionSteps = 115;
constexpr int kStepsPerPicture = 5;

// Draws the flying blocks (screen coordinates) and moves them on.
void MoveParticles(int count) {
  for (int i = 0; i < count; ++i) {
    DebrisRecord& p = Game.Debris[i];
    if (p.Y < 600) display::BltKeyed(Display.BackBuffer, p.X, p.Y, 20, 20, Assets.TileSurfaces[i], 0, 0, 20, 20);
    p.X += p.DX;
    p.Y += p.DY;
    p.DY += 0.2;
  }
}

bool AllFallen(int count) {
  for (int i = 0; i < count; ++i)
    if (Game.Debris[i].Y < 600) return false;
  return true;
}

bool InBomb(int x, int y) {
  return x >= Game.BombX && x < Game.BombX + 40 && y >= Game.BombY && y < Game.BombY + 40;
}

}  // namespace

void DetonateBomb() {
  Game.BombRowsCleared[0] = Game.BombRowsCleared[1] = 0;
  Game.HideBomb = 1;

  display::Surface& field = Assets.FieldSurfaces[0];
  int count = 0;
  for (int y = 0; y < kFieldHeight; y += 20)
    for (int x = 0; x < kFieldWidth; x += 20) {
      if (!Occupied(x + 10, y + 10) || InBomb(x, y)) continue;
      display::Surface& tile = Assets.TileSurfaces[count];
      display::FillSurface(tile, Display.WholeRect, 0);
      display::BltOpaque(tile, 0, 0, 20, 20, field, x, y, 20, 20);
      double dx = core::RandomInt(4001) / 1000.0;
      if (core::RandomInt(2) == 1) dx = -dx;
      const double dy = -(core::RandomInt(3000, 3000) / 500.0);
      Game.Debris[count++] =
          DebrisRecord{static_cast<double>(x + kFieldLeft), static_cast<double>(y + kFieldTop), dx, dy, 20, 0};
    }

  audio::PlaySoundEffect(0);
  Settings.StartHeight += 1;
  // From height 20 on, a bomb raises the level instead.
  if (Settings.StartHeight > 20) {
    Settings.StartHeight = 20;
    ++Settings.Level;
  }
  if (Settings.Level > 20) Settings.Level = 20;
  Game.LevelUpPending = 1;

  display::FillSurface(field, Display.WholeRect, 0);
  for (int step = 0; step < kExplosionSteps; ++step) {
    DrawPlayfield();
    MoveParticles(count);
    const display::Surface& picture = Assets.ExplosionFrames[step / kStepsPerPicture];
    display::BltKeyed(Display.BackBuffer, Game.BombX + 11, Game.BombY - 23, 380, 380, picture, 0, 0, 80, 80);
    display::PresentFrame(0);
  }
  while (!AllFallen(count)) {
    DrawPlayfield();
    MoveParticles(count);
    display::PresentFrame(0);
  }
  DrawPlayfield();
  display::PresentFrame(0);

  // The on-screen bomb carries the cleared halves: a fresh one comes back.
  display::LoadSurface(Assets.BombImages[1], "\\graphics\\megabomb1.bmp", 40, 40);
  Game.BombRowsCleared[0] = Game.BombRowsCleared[1] = 0;
  Game.BombX = 120;
  Game.BombY = 380;
  audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 138)));
  audio::PlaySoundEffect(14);
  MakeBackground();  // turns a height above 15 into 20 before the bomb is scored
  Game.LevelUpPending = 0;

  const int height = static_cast<int>(Settings.StartHeight);
  Game.Score += 2000 * Settings.Level * height;

  // As many full rows as the height; 20 of them fit the falling-block table.
  DropGarbageRows(height);
  BlowHoles();
  Game.PieceKind = 0;
  CheckLine();
}

}  // namespace game

// Garbage rows falling in block by block, and the 96 blown-out cells that
// leave holes in them: the start height of a game and the rows a Type C
// detonation brings.
#include "game/garbage.h"

#include <algorithm>
#include <cmath>

#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/playfield.h"

namespace game {

using display::Assets;
using display::Display;

void DropGarbageRows(int rows) {
  // The table holds 21 full rows: more could never fit the field either.
  rows = std::min(rows, (kRowDebrisLast + 1) / 13);
  if (rows <= 0) return;
  const int count = rows * 13;
  auto& blocks = Game.RowDebris;
  int i = 0;
  for (int r = 1; r <= rows; ++r)
    for (int x = 0; x <= 240; x += 20) {
      RowDebrisRecord& b = blocks[i++];
      b.X = x;
      b.Y = -20;
      b.Speed = 0;
      b.Tile = static_cast<int16_t>(core::RandomInt(5));
      b.TargetY = 420 - 20 * r;
    }

  display::Surface& field = Assets.FieldSurfaces[0];
  blocks[0].Speed = 0.5;
  int next = 1;  // the block set moving after the pass
  bool moving = true;
  while (moving) {
    display::FillSurface(field, Display.WholeRect, 0);
    for (int k = 0; k < count; ++k) {
      const RowDebrisRecord& b = blocks[k];
      const display::Surface& tile = Assets.FillTiles[b.Tile];
      display::BltKeyed(field, b.X, std::floor(b.Y), 20, 20, tile, 0, 0, 20, 20);
    }
    moving = false;
    for (int k = 0; k < count; ++k) {
      RowDebrisRecord& b = blocks[k];
      if (b.Speed <= 0) continue;
      moving = true;
      b.Y += b.Speed;
      if (b.Y > b.TargetY) {
        b.Y = b.TargetY;
        b.Speed = 0;
        Game.Score += 5 * (core::Settings.Level + 1);
        if (k % 5 == 0) audio::PlaySoundEffect(1);
      } else {
        b.Speed += 0.75;
      }
    }
    if (next < count) blocks[next++].Speed = 0.5;
    DrawPlayfield();
    display::PresentFrame(0);
  }
}

void BlowHoles() {
  Game.HideBomb = 0;
  display::Surface& field = Assets.FieldSurfaces[0];
  constexpr int kPieces = 96;
  for (int i = 0; i < kPieces; ++i) {
    const int c = core::RandomInt(13), r = core::RandomInt(21);
    display::BltOpaque(Assets.TileSurfaces[i], 0, 0, 20, 20, field, 20 * c, 20 * r, 20, 20);
    display::BltOpaque(field, 20 * c, 20 * r, 20, 20, Assets.FillTiles[5], 0, 0, 20, 20);
    double dx = (core::RandomInt(3000) + 1) / 1000.0;
    if (core::RandomInt(2, 1) == 1) dx = -dx;
    const double dy = (core::RandomInt(3000) + 1) / 1000.0;
    Game.Debris[i] = DebrisRecord{20.0 * c, 20.0 * r, dx, -dy, 20, 0};
  }
  audio::PlaySoundEffect(0);

  auto allGone = [&] {
    for (int i = 0; i < kPieces; ++i)
      if (Game.Debris[i].Y < 600) return false;
    return true;
  };
  while (!allGone()) {
    DrawPlayfield();
    for (int i = 0; i < kPieces; ++i) {
      DebrisRecord& d = Game.Debris[i];
      // The pieces have always flown from one pixel left of the field.
      display::BltKeyed(Display.BackBuffer, d.X + 180, d.Y + kFieldTop, d.Size, d.Size, Assets.TileSurfaces[i], 0,
                        0, 20, 20);
      d.X += d.DX - 0.25;
      d.Y += d.DY - 0.25;
      d.DY += 0.1;
      d.Size += 0.5;
    }
    display::PresentFrame(0);
  }
}

}  // namespace game

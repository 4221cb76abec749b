// The LineClear piece: landed, its block sweeps its own row out of the field
// to the right; flipped, it flies to the top centre, unfolds a new row of
// garbage and rains it down, one block per column, onto the stacks.
#include <algorithm>
#include <cmath>

#include "audio/sound_effects.h"
#include "bonus/effect_drawing.h"
#include "bonus/effects.h"
#include "bonus/sparks.h"
#include "core/random.h"
#include "display/passes.h"
#include "game/playfield.h"

namespace bonus {

namespace {

using detail::Back;
using detail::Field;
using detail::PaintBlack;

// SingleClear's Debris record i, the tile of column i: X its field y, Y its
// vertical speed. Tiles past the field's right edge fall.
bool SweepTiles(int sweep) {
  bool onScreen = false;
  for (int i = 0; i <= 12; ++i) {
    game::DebrisRecord& d = game::Game.Debris[i];
    display::BltKeyed(Back(), game::kFieldLeft + 20 * i + sweep, d.X + game::kFieldTop, 20, 20,
                      display::Assets.TileSurfaces[i], 0, 0, 20, 20);
    if (20 * i + sweep > game::kFieldWidth) d.Y += 0.2;
    d.X += d.Y;
    if (d.X < 600) onScreen = true;
  }
  return onScreen;
}

void DrawLineSprite() {
  const game::GameState& g = game::Game;
  display::BltKeyed(Back(), g.PieceX + game::kFieldLeft, g.PieceY + game::kFieldTop, 80, 80,
                    display::Assets.PieceSprites[14][0][0], 0, 0, 80, 80);
}

int16_t Toward(int16_t value, int goal) {
  if (value < goal) return static_cast<int16_t>(std::min(value + 5, goal));
  return static_cast<int16_t>(std::max(value - 5, goal));
}

}  // namespace

void SingleClear() {
  game::GameState& g = game::Game;
  const int x = g.PieceX, y = g.PieceY, row = y + 20;

  audio::PlaySoundEffect(11);
  for (int slide = x + 30; slide >= -20; slide -= 5) {
    game::DrawPlayfield();
    detail::DrawPieceSprite(slide + 161, y + game::kFieldTop);
    LineSparks();
    g.PieceX = static_cast<int16_t>(slide - 20);
    display::PresentFrame(0);
  }

  for (int i = 0; i <= 12; ++i) {
    detail::CopyCell(display::Assets.TileSurfaces[i], 0, 0, Field(), 20 * i, row, false);
    g.Debris[i].X = row;
    g.Debris[i].Y = 0;
  }
  PaintBlack(0, row, game::kFieldWidth, row + 20);
  audio::PlaySoundEffect(17);

  int sweep = 0;
  for (; sweep <= 260; sweep += 4) {
    game::DrawPlayfield();
    SweepTiles(sweep);
    if (sweep > 0 && sweep % 20 == 0) {
      const int k = sweep / 20 - 1;
      // The bomb is blacked at every column; it moves down once the sweep has
      // passed its right column. The block that dropped into its left column
      // is erased by the next blacking, the one above its right column is
      // not: that is how the sweep runs.
      if (detail::InTypeC()) {
        PaintBlack(g.BombX, g.BombY, g.BombX + 40, g.BombY + 40);
        if (sweep == g.BombX + 40 && row > g.BombY + 20) g.BombY = static_cast<int16_t>(g.BombY + 20);
      }
      display::BltOpaque(Field(), 20 * k, 20, 20, row, Field(), 20 * k, 0, 20, row);
      PaintBlack(20 * k, 0, 20 * k + 20, 20);
    }
    detail::DrawPieceSprite(sweep + 121, y + game::kFieldTop);
    LineSparks();
    g.PieceX = static_cast<int16_t>(sweep - 60);
    display::PresentFrame(0);
  }

  bool onScreen = true;
  while (onScreen) {
    sweep += 4;
    game::DrawPlayfield();
    onScreen = SweepTiles(sweep);
    LineSparkFinish();
    display::PresentFrame(0);
  }
}

void SingleFall() {
  game::GameState& g = game::Game;
  display::AssetSurfaces& a = display::Assets;

  for (int j = 0; j <= 12; ++j) {
    int tile = core::RandomInt(5);
    detail::CopyCell(a.LineStrip, 20 * j, 0, a.FillTiles[tile], 0, 0, false);
    detail::CopyCell(a.TileSurfaces[j], 0, 0, a.LineStrip, 20 * j, 0, false);
  }

  // At least one frame, even when the piece is already at the top centre.
  do {
    game::DrawPlayfield();
    g.PieceX = Toward(g.PieceX, 80);
    g.PieceY = Toward(g.PieceY, -20);
    DrawLineSprite();
    LineSparks();
    display::PresentFrame(0);
  } while (g.PieceX != 80 || g.PieceY != -20);

  audio::PlaySoundEffect(11);
  for (int left = 130; left >= 0; left -= 2) {
    game::DrawPlayfield();
    DrawLineSprite();
    display::BltKeyed(Back(), left + game::kFieldLeft, game::kFieldTop, 2 * (130 - left), 20, a.LineStrip, 0, 0, 260,
                      20);
    LineSparkFinish();
    display::PresentFrame(0);
  }

  // The Type C bomb counts as occupied while the targets are found.
  if (detail::InTypeC()) game::PaintField(g.BombX, g.BombY, g.BombX + 40, g.BombY + 40, 255, 0, 0);
  for (int j = 0; j <= 12; ++j) {
    game::RowDebrisRecord& r = g.RowDebris[j];
    r.TargetY = 400;
    for (int centre = 10; centre <= 410; centre += 20) {
      if (game::Occupied(20 * j + 10, centre)) {
        r.TargetY = centre - 30;  // a full column's block lands above the field
        break;
      }
    }
    r.X = 20 * j;
    r.Y = 0;
    r.Speed = 0;
    r.Tile = static_cast<int16_t>(j);
  }
  if (detail::InTypeC()) PaintBlack(g.BombX, g.BombY, g.BombX + 40, g.BombY + 40);

  display::BltOpaque(a.FieldSurfaces[1], 0, 0, 260, 420, Field(), 0, 0, 260, 420);
  g.RowDebris[0].Speed = 0.5;
  double launch = 0;
  // Ends after the first frame in which no block moved, even if blocks still
  // wait in row 0.
  bool moving = true;
  while (moving) {
    moving = false;
    display::BltOpaque(Field(), 0, 0, 260, 420, a.FieldSurfaces[1], 0, 0, 260, 420);
    for (int j = 0; j <= 12; ++j) {
      game::RowDebrisRecord& r = g.RowDebris[j];
      display::BltKeyed(Field(), r.X, std::floor(r.Y), 20, 20, a.TileSurfaces[j], 0, 0, 20, 20);
      if (r.Speed > 0) {
        moving = true;
        r.Y += r.Speed;
        if (r.Y > r.TargetY) {
          r.Y = r.TargetY;
          r.Speed = 0;
          audio::PlaySoundEffect(1);
        } else {
          r.Speed += 0.25;
        }
      }
    }
    launch += 0.5;
    if (launch <= 12 && launch == std::floor(launch)) g.RowDebris[static_cast<int>(launch)].Speed = 0.1;
    game::DrawPlayfield();
    LineSparkFinish();
    display::PresentFrame(0);
  }
}

}  // namespace bonus

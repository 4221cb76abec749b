// The ColumnClear piece: landed, it pops the column below its block while the
// column above slides to the bottom; flipped, it drives its block down through
// the empty cells and leaves a new garbage block in each.
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

// ColumnClear's Debris record: X, Y the tile's field position, DX its
// vertical speed, DY its drawn size, Size its growth (0 while dormant).
void ClearTileStep(int i) {
  game::DebrisRecord& d = game::Game.Debris[i];
  display::BltKeyed(Back(), d.X + game::kFieldLeft, d.Y + game::kFieldTop, d.DY, d.DY,
                    display::Assets.TileSurfaces[i], 0, 0, 20, 20);
  d.DY += d.Size;
  d.X -= d.Size / 2;
  d.Y -= d.Size / 2;
  if (d.DY == 25) d.DX = -4;  // halves add up exactly
  if (d.DX != 0) d.DX += 0.3;
  d.Y += d.DX;
}

void ClearTilesStep(int count) {
  for (int i = count - 1; i >= 0; --i) ClearTileStep(i);
}

// ColumnFill's Debris record: X, Y the growing block's field position, DX its
// drawn size, DY the top of its cell.
void DrawFillBlocks(int count, int column, bool grow) {
  for (int i = 0; i < count; ++i) {
    game::DebrisRecord& d = game::Game.Debris[i];
    int cellY = static_cast<int>(d.DY);
    PaintBlack(column, cellY, column + 20, cellY + 20);
    display::BltKeyed(Field(), d.X, d.Y, d.DX, d.DX, display::Assets.TileSurfaces[i], 0, 0, 20, 20);
    if (grow && d.DX < 20) {
      d.DX += 2;
      d.X -= 1;
      d.Y -= 1;
    }
  }
}

// Below the field counts as occupied: the probe there is never made.
bool OccupiedOrBelow(int x, int y) { return y >= game::kFieldHeight || game::Occupied(x, y); }

}  // namespace

void ColumnClear() {
  game::GameState& g = game::Game;
  const int column = g.PieceX + 40, y = g.PieceY;

  int count = 0;
  for (int cellY = y + 40; cellY <= 400; cellY += 20) {
    detail::CopyCell(display::Assets.TileSurfaces[count], 0, 0, Field(), column, cellY, false);
    PaintBlack(column, cellY, column + 20, cellY + 20);
    game::DebrisRecord& d = g.Debris[count];
    d.X = column;
    d.Y = cellY;
    d.DX = 0;
    d.DY = 20;
    d.Size = 0;
    ++count;
  }

  int woken = -1;
  for (int front = y + 40; front <= 440; front += 2) {
    // Whatever slides into the Type C bomb's cells vanishes; the rest comes
    // to rest on the bomb.
    if (detail::InTypeC() && (column == g.BombX || column == g.BombX + 20))
      PaintBlack(column, g.BombY, column + 20, g.BombY + 40);
    if (front != 440) {
      display::BltOpaque(Field(), column, 2, 20, front - 20, Field(), column, 0, 20, front - 20);
      PaintBlack(column, 0, column + 20, 1);
    }
    game::DrawPlayfield();
    detail::DrawPieceSprite(column + 141, front + 107);
    g.PieceY = static_cast<int16_t>(front - 40);
    ClearTilesStep(count);
    if (front < 440 && front % 20 == 0) {
      ++woken;
      g.Debris[woken].Size = 0.5;
      if (front < 420) {
        display::ReadPixel(display::Assets.TileSurfaces[woken], 10, 10);
        if (display::Display.PixelValue != 0) audio::PlaySoundEffect(19);
      }
    }
    ColumnSparks();
    display::PresentFrame(0);
  }
  audio::PlaySoundEffect(20);

  for (int n = 0; n <= 20; ++n) {
    game::DrawPlayfield();
    ClearTilesStep(count);
    ColumnSparkFinish();
    display::PresentFrame(0);
  }
}

void ColumnFill() {
  game::GameState& g = game::Game;
  const int column = g.PieceX + 40, x = g.PieceX, y = g.PieceY;

  if (OccupiedOrBelow(column + 10, y + 50)) {
    audio::PlaySoundEffect(10);
    return;
  }

  int count = 0;
  auto frame = [&](bool grow) {
    DrawFillBlocks(count, column, grow);
    PaintBlack(column, y + 20, column + 20, y + 40);  // the block's starting cell stays empty
  };
  for (int front = y + 25; front <= 420; front += 5) {
    uint32_t deadline = display::GetTick() + 25;
    if (front < 420 && front % 20 == 0) {
      audio::PlaySoundEffect(18);
      int tile = core::RandomInt(5);
      detail::CopyCell(display::Assets.TileSurfaces[count], 0, 0, display::Assets.FillTiles[tile], 0, 0, false);
      game::DebrisRecord& d = g.Debris[count];
      d.X = column + 9;
      d.Y = front + 9;
      d.DX = 2;
      d.DY = front;
      ++count;
    }
    bool grow = true;
    do {
      frame(grow);
      grow = false;
      detail::DrawPieceSprite(x + game::kFieldLeft, front + 127);
      g.PieceY = static_cast<int16_t>(front - 20);
      game::DrawPlayfield();
      ColumnSparks();
      display::PresentFrame(0);
    } while (display::GetTick() < deadline);
    // The bomb is seen only from a front on the cell grid one cell above it,
    // and the first front lies below the starting cell: a block that starts
    // right on the bomb runs through it.
    if (OccupiedOrBelow(column + 10, front + 20)) break;
    if (detail::InTypeC() && g.BombY == front + 20 && (column == g.BombX || column == g.BombX + 20)) break;
  }
  audio::PlaySoundEffect(19);

  for (int n = 0; n < 9; ++n) {
    uint32_t deadline = display::GetTick() + 25;
    bool grow = true;
    do {
      PaintBlack(column, y + 20, column + 20, y + 40);
      DrawFillBlocks(count, column, grow);
      grow = false;
      game::DrawPlayfield();
      ColumnSparkFinish();
      display::PresentFrame(0);
    } while (display::GetTick() < deadline);
  }
}

}  // namespace bonus

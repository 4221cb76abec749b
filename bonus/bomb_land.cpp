// The bomb: its 3 x 3 square blown out, the columns above collapsing into the
// hole pixel by pixel, the eight neighbours flying off growing, a fireball.
// The Type C bomb plays no part: it is not in the field meanwhile.
#include "audio/sound_effects.h"
#include "bonus/effect_drawing.h"
#include "bonus/effects.h"
#include "bonus/sparks.h"
#include "display/bitmap_text.h"
#include "display/passes.h"
#include "game/playfield.h"

namespace bonus {

namespace {

using detail::Back;
using detail::Field;

constexpr int kDirX[8] = {-1, 0, 1, -1, 1, -1, 0, 1};
constexpr int kDirY[8] = {-1, -1, -1, 0, 0, 1, 1, 1};
constexpr int kCellX[8] = {20, 40, 60, 20, 60, 20, 40, 60};  // from PieceX
constexpr int kCellY[8] = {0, 0, 0, 20, 20, 40, 40, 40};     // from PieceY

// Debris 0..7: X, Y the tile's field position, DX, DY its direction.
struct Tiles {
  double size = 20;  // shared by all eight: each draw grows it
  double push = 0.1;

  void Draw(int i) {
    const game::DebrisRecord& d = game::Game.Debris[i];
    display::BltKeyed(Back(), d.X + game::kFieldLeft, d.Y + game::kFieldTop, size, size,
                      display::Assets.TileSurfaces[i], 0, 0, 20, 20);
  }
  // Grows and recentres a tile after its draw.
  void Grow(int i) {
    game::DebrisRecord& d = game::Game.Debris[i];
    size += 1;
    d.X -= 0.5;
    d.Y -= 0.5;
  }
  void Push(int i) {
    game::DebrisRecord& d = game::Game.Debris[i];
    push += 0.05;
    if (d.DX < 0) d.DX -= push;
    if (d.DX > 0) d.DX += push;
    if (d.DY < 0) d.DY -= push;
    if (d.DY > 0) d.DY += push;
    d.X += d.DX;
    d.Y += d.DY;
  }
  bool Visible(int i) const {
    const game::DebrisRecord& d = game::Game.Debris[i];
    double sx = d.X + game::kFieldLeft, sy = d.Y + game::kFieldTop;
    return sx < 800 && sx > -size && sy < 600 && sy > -size;
  }
};

void DrawFireball(int x, int y, int frame) {
  display::BltKeyed(Back(), x + 141, y + 87, 160, 160, display::Assets.SmallExplosionFrames[frame], 0, 0, 64, 64);
}

}  // namespace

void BombLand() {
  game::GameState& g = game::Game;
  const int x = g.PieceX, y = g.PieceY;
  const display::Surface& eraser = display::Text.BigDigits[10];

  for (int i = 0; i <= 7; ++i) {
    display::Surface& tile = display::Assets.TileSurfaces[i];
    display::BltOpaque(tile, 0, 0, 20, 20, eraser, 0, 0, 20, 20);
    // A neighbour outside the field leaves the tile black.
    display::BltOpaque(tile, 0, 0, 20, 20, Field(), x + kCellX[i], y + kCellY[i], 20, 20);
  }
  display::BltOpaque(Field(), x + 20, y, 60, 60, eraser, 0, 0, 20, 20);
  for (int i = 0; i <= 7; ++i) g.Debris[i] = {double(x + kCellX[i]), double(y + kCellY[i]), double(kDirX[i]),
                                              double(kDirY[i]), g.Debris[i].Size, g.Debris[i].Extra};

  int blastLeft = x + 20, blastWidth = 60, dropOffset = 0;
  int collapseSteps = 60;  // steps t = 0 .. 14.75 that still collapse
  if (blastLeft < 0) {
    blastLeft = 0;
    blastWidth = 40;
  }
  if (y == 380) {  // the bottom row: the square is cut to two rows
    dropOffset = -20;
    collapseSteps = 40;
  }
  if (blastLeft == 220) blastWidth = 40;

  Tiles tiles;
  audio::PlaySoundEffect(0);

  // 60 steps of a quarter, each lasting at least 20 ms.
  for (int step = 0; step < 60; ++step) {
    const int fireball = step / 4;
    uint32_t deadline = display::GetTick() + 20;
    if (step < collapseSteps) {
      int height = y + 59 + dropOffset;
      display::BltOpaque(Field(), blastLeft, 1, blastWidth, height, Field(), blastLeft, 0, blastWidth, height);
      display::DrawLine(Field(), blastLeft, 0, blastLeft + blastWidth, 0);  // the field's fore colour: black
    }
    game::DrawPlayfield();
    for (int i = 0; i <= 7; ++i) {
      tiles.Draw(i);
      tiles.Grow(i);
      tiles.Push(i);
    }
    DrawFireball(x, y, fireball);
    BombSparkFinish();
    display::PresentFrame(0);
    while (display::GetTick() < deadline) {
      game::DrawPlayfield();
      for (int i = 0; i <= 7; ++i) tiles.Draw(i);
      DrawFireball(x, y, fireball);
      display::PresentFrame(0);
    }
  }

  // The fly-out: one step a frame until every tile has left the screen.
  bool visible = true;
  while (visible) {
    visible = false;
    game::DrawPlayfield();
    for (int i = 0; i <= 7; ++i) {
      tiles.Draw(i);
      tiles.Grow(i);
      if (tiles.Visible(i)) visible = true;
      tiles.Push(i);
    }
    BombSparkFinish();
    display::PresentFrame(0);
  }
}

}  // namespace bonus

// A landed detonator: the crawl, then either everything undone (no charge
// reached) or the cracking, the explosions, the collapse and maybe a rock.
#include <cmath>
#include <cstdint>
#include <string>

#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "fuse/crawl.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_game.h"
#include "fuse/fuse_state.h"
#include "fuse/rocks.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/playfield.h"

namespace fuse {

namespace {

using display::Assets;
using game::Game;

void CopyField(int from, int to) {
  display::BltOpaque(Assets.FieldSurfaces[to], 0, 0, 260, 420, Assets.FieldSurfaces[from], 0, 0, 260, 420);
}

double RandomSpeed() { return (core::RandomInt(3000) + 1) / 1000.0; }

void DrawShakenField() {
  const int dx = static_cast<int>(std::floor(core::Rnd() * 10 - 5));
  const int dy = static_cast<int>(std::floor(core::Rnd() * 10 - 5));
  display::BltKeyed(display::Display.BackBuffer, game::kFieldLeft + dx, game::kFieldTop + dy, 260, 420,
                    Assets.FieldSurfaces[0], 0, 0, 260, 420);
}

// Flying burnt cells: drawn at their size, then moved on.
void DrawFlyingTiles(bool move) {
  FuseState& f = Fuse;
  for (int k = 1; k <= f.BurntCount; ++k) {
    game::DebrisRecord& d = Game.Debris[k];
    display::BltKeyed(display::Display.BackBuffer, d.X + 180, d.Y + 147, d.Size, d.Size, Assets.TileSurfaces[k], 0, 0,
                      20, 20);
    if (!move) continue;
    d.X += d.DX - 0.25;
    d.Y += d.DY - 0.25;
    d.DY += 0.1;
    d.Size += 0.5;
  }
}

bool TilesFlying() {
  for (int k = 1; k <= Fuse.BurntCount; ++k)
    if (Game.Debris[k].Y < 600) return true;
  return false;
}

bool IsChargeCell(int x, int y) {
  for (int k = 1; k <= Fuse.ChargeCount; ++k)
    if (Fuse.ChargePos[k][0] == x && Fuse.ChargePos[k][1] == y) return true;
  return false;
}

void Crack() {
  FuseState& f = Fuse;
  display::Surface& field = Assets.FieldSurfaces[0];
  f.BurntCount = 0;
  for (int x = 0; x <= 240; x += 20) {
    for (int y = 0; y <= 400; y += 20) {
      if (IsChargeCell(x, y) || f.BurntCount >= kLitLimit) continue;
      if (field.Row(y + 9)[x + 9] != display::kBurntMarker) continue;
      f.BurntCount = static_cast<int16_t>(f.BurntCount + 1);
      f.BurntPos[f.BurntCount][0] = static_cast<int16_t>(x);
      f.BurntPos[f.BurntCount][1] = static_cast<int16_t>(y);
    }
  }
  CopyField(0, 1);
  for (int s = 9; s >= 0; --s) {
    for (int frame = 0; frame < 3; ++frame) {
      DrawFuseField();
      for (int k = 1; k <= f.BurntCount; ++k) {
        const int x = f.BurntPos[k][0], y = f.BurntPos[k][1];
        display::BltKeyed(field, x + s, y + s, 20 - 2 * s, 20 - 2 * s, Assets.CrackedImage, s, s, 20 - 2 * s,
                          20 - 2 * s);
        if (s != 0) continue;
        display::Surface& tile = Assets.TileSurfaces[k];
        display::BltOpaque(tile, 0, 0, 20, 20, Assets.FieldSurfaces[1], x, y, 20, 20);
        display::BltKeyed(tile, 0, 0, 20, 20, Assets.CrackedImage, 0, 0, 20, 20);
        display::FillSurface(field, display::Rect{x, y, x + 20, y + 20}, 0);
        double dx = RandomSpeed();
        if (core::RandomInt(2, 1) == 1) dx = -dx;
        const double dy = -RandomSpeed();
        Game.Debris[k] = game::DebrisRecord{double(x), double(y), dx, dy, 20, 0};
      }
      if (s == 0) DrawFlyingTiles(false);
      ShowDetonationFrame();
    }
  }
}

void Explode(int32_t points) {
  FuseState& f = Fuse;
  Game.FieldBlitOff = 1;
  audio::PlaySoundEffect(0);
  FlashScore2(points);
  display::Surface& back = display::Display.BackBuffer;
  // t runs 0 to 22.75 in quarters: 92 frames, counted whole.
  for (int step = 0; step < 92; ++step) {
    const int picture = step / 4;
    DrawShakenField();
    ShowDetonationFrame(false);
    for (int k = 1; k <= f.LitCount; ++k) {
      const int x = f.LitPos[k][0], y = f.LitPos[k][1];
      display::BltKeyed(back, x + 61, y + 27, 280, 280, Assets.ExplosionFrames[picture], 0, 0, 80, 80);
      if (picture != 15) continue;
      display::FillSurface(Assets.FieldSurfaces[0], display::Rect{x - 49, y - 49, x + 51, y + 51}, 0);
      // Rule: a charge whose cell was cleared glows no more.
      for (int c = 1; c <= f.ChargeCount; ++c)
        if (f.ChargePos[c][0] >= x - 49 && f.ChargePos[c][0] < x + 51 && f.ChargePos[c][1] >= y - 49 &&
            f.ChargePos[c][1] < y + 51)
          f.ChargeSpent[c] = 1;
    }
    DrawFlyingTiles(true);
    display::PresentFrame(0);
  }
}

// Moves column strip (x, 0)-(x + 20, y) down a cell and blanks its top.
void DropColumn(int x, int y) {
  display::Surface& field = Assets.FieldSurfaces[0];
  for (int row = y - 1; row >= 0; --row) {
    const uint16_t* from = field.Row(row) + x;
    uint16_t* to = field.Row(row + 20) + x;
    for (int i = 0; i < 20; ++i) to[i] = from[i];
  }
  for (int row = 0; row < 20; ++row)
    for (int i = 0; i < 20; ++i) field.Row(row)[x + i] = 0;
}

void Collapse() {
  Fuse.ChargeCount = 0;
  bool moved = true;
  while (moved || TilesFlying()) {
    moved = false;
    for (int y = 400; y >= 20; y -= 20) {
      for (int x = 0; x <= 240; x += 20) {
        if (game::Occupied(x + 10, y + 10) || !game::Occupied(x + 10, y - 10)) continue;
        DropColumn(x, y);
        moved = true;
      }
    }
    DrawShakenField();
    DrawFuseField();
    DrawFlyingTiles(true);
    display::PresentFrame(0);
  }
}

void MaybeDropRock() {
  CopyField(0, 1);
  const int r = core::RandomInt(Fuse.BurntCells);
  if (r < 3) return;
  const int sizeClass = r <= 9 ? 0 : r <= 24 ? 1 : 2;
  const int x = 20 * core::RandomInt(13 - sizeClass);
  const int top = RockRestTop(sizeClass, x);
  Fuse.BurnFlag = 0;
  Game.FieldBlitOff = 0;
  audio::PlaySoundEffect(17);
  DropRock(sizeClass, x, top, 1, 0.25);
  audio::PlaySoundEffect(10);
  audio::StopSoundEffect(17);
}

void Finish() {
  core::MenuSettings& s = core::Settings;
  const int reached = Game.Lines / 50;
  if (reached > s.Level && s.Level < 20) {
    s.Level = static_cast<int16_t>(reached);
    audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 138)));
    audio::PlaySoundEffect(14);
    game::MakeBackground();
  }
  Fuse.BurnFlag = 0;
  Game.FieldBlitOff = 0;
  for (int k = 1; k <= Fuse.ChargeCount; ++k) Fuse.ChargeSpent[k] = 0;
}

}  // namespace

void FlashScore2(int32_t points) {
  display::Surface& flash = Assets.FlashSurface;
  display::FillSurface(flash, display::Display.WholeRect, 0);
  if (points != 0) {
    display::BltOpaque(flash, 0, 0, 220, 40, Assets.KaboomBanner, 0, 0, 220, 40);
    const int digits = static_cast<int>(std::to_string(points).size());
    display::DrawNumberText(flash, 216 - 16 * digits, 20, points, display::Text.ScoreDigits, 16, false);
  } else {
    display::BltOpaque(flash, 0, 0, 220, 40, Assets.FaultBanner, 0, 0, 220, 40);
  }
  Game.FlashSlide = 110;
  Game.FlashX = 201;
  Game.FlashY = 90;
  Game.FlashW = 220;
  Game.FlashH = 40;
  Game.FlashHold = 0;
}

void CheckFuse() {
  FuseState& f = Fuse;
  f.BurnFlag = 1;
  StartCrawl();
  CopyField(0, 1);
  audio::PlaySoundEffect(21);
  while (f.FireHeadCount > 0) {
    Sweep();
    f.FrameDivider = static_cast<int16_t>(f.FrameDivider + 1);
    if (f.FrameDivider > 4) {
      f.FrameDivider = 0;
      ShowDetonationFrame();
    }
  }

  if (f.LitCount == 0) {
    audio::PlaySoundEffect(22);
    Game.ScoreShown = Game.Score = Game.ScoreBefore;
    Game.LinesShown = Game.Lines = f.LinesBefore;
    CopyField(1, 0);
    FlashScore2(0);
  } else {
    const int32_t points = Game.Score - Game.ScoreBefore;
    Crack();
    Explode(points);
    Collapse();
    MaybeDropRock();
    // Rule: the list is rebuilt after every success, rock or no rock.
    RebuildCharges();
  }
  Finish();
}

}  // namespace fuse

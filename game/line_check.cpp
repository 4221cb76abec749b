// The line check after every landing: the bonus effect, the full rows and
// their score, lines and level, the blast and collapse, Type C's rising
// garbage and the bomb's row marks, the level-up and the score banner.
#include "game/line_check.h"

#include <algorithm>
#include <string>

#include "audio/sound_effects.h"
#include "bonus/effects.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/playfield.h"

namespace game {

using core::Settings;
using display::Assets;
using display::Display;

namespace {

// The frames of the blast: a particle shrinks by 0.4 a frame from 20 to 0,
// counted as whole steps so that rounding never adds a frame.
constexpr int kBlastFrames = 50;
constexpr double kBlastShrink = 0.4;

bool TypeC() { return Settings.PlayType == 2 && Settings.GameVariant < 2; }

void PaintBombBlack() { PaintField(Game.BombX, Game.BombY, Game.BombX + 40, Game.BombY + 40, 0, 0, 0); }

// The one place where the effect of a landed or flipped bonus piece runs,
// after its 100 points: kind 12 BombLand; 13 ColumnClear, or ColumnFill when
// flipped; 14 SingleClear, or SingleFall when flipped; 15 Earthquake.
void PayBonusPiece() {
  if (Game.PieceKind < 12 || Game.PieceKind > 15) return;
  Game.Score += 100;
  bonus::RunBonusEffect();
}

// Full rows from the bottom up. In Type C the bomb counts as four filled
// cells, and each cleared half of it shows in the on-screen bomb picture.
void ScanRows() {
  display::Surface& field = Assets.FieldSurfaces[0];
  const bool typeC = TypeC();
  Game.FullRowCount = 0;
  if (typeC) display::BltOpaque(field, Game.BombX, Game.BombY, 40, 40, Assets.BombImages[0], 0, 0, 40, 40);
  for (int y = 410; y >= 10; y -= 20) {
    bool full = true;
    for (int x = 10; x <= 250 && full; x += 20) full = Occupied(x, y);
    if (!full) continue;
    ++Game.FullRowCount;
    const int top = y - 10;
    Game.FullRows[Game.FullRowCount] = static_cast<int16_t>(top);
    if (!typeC) continue;
    for (int half = 0; half <= 1; ++half) {
      if (top != Game.BombY + 20 * half) continue;
      display::BltOpaque(Assets.BombImages[1], 0, 20 * half, 40, 20, Assets.BombImages[0], 0, 20 * half, 40, 20);
      Game.BombRowsCleared[half] = 1;
    }
  }
  if (typeC) PaintBombBlack();
}

void ScoreRows(int n) {
  const int32_t levelFactor = Settings.Level + 1;
  Game.ScoreBefore = Game.Score;
  static constexpr int32_t kPoints[5] = {0, 125, 375, 615, 975};
  if (n <= 4) {
    audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(5, 107 + 5 * (n - 1))));
    Game.Score += kPoints[n] * levelFactor;
  } else {
    audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 127)));
    Game.Score += 1775 * (levelFactor + (n - 4));
  }
  Game.ScoreBefore = Game.Score - Game.ScoreBefore;
  FlashScore(Game.ScoreBefore);
}

void CountLines(int n) {
  switch (Settings.PlayType) {
    case 0:
      Game.Lines = static_cast<int16_t>(Game.Lines + n);
      // May pass 20 here; capped at the level-up step.
      if (Game.Lines / 10 > Settings.Level) {
        Settings.Level = static_cast<int16_t>(Game.Lines / 10);
        Game.LevelUpPending = 1;
      }
      break;
    case 1:
      Game.Lines = static_cast<int16_t>(std::max(0, Game.Lines - n));
      break;
    default:
      Game.Lines = static_cast<int16_t>(Game.Lines + n);
      break;
  }
}

// The cleared blocks fly off shrinking while everything above them slides
// down over the first 20 frames; in Type C the bomb rides down with it.
void BlastAndCollapse(int n) {
  display::Surface& field = Assets.FieldSurfaces[0];
  const bool typeC = TypeC();
  int count = 0;
  for (int k = 1; k <= n; ++k) {
    const int top = Game.FullRows[k];
    for (int x = 0; x <= 240; x += 20) {
      display::BltOpaque(Assets.TileSurfaces[count], 0, 0, 20, 20, field, x, top, 20, 20);
      PaintField(x, top, x + 20, top + 20, 0, 0, 0);
      double dx = (core::RandomInt(5000) + 1) / 1000.0;
      if (core::RandomInt(2, 1) == 1) dx = -dx;
      Game.Debris[count++] = DebrisRecord{static_cast<double>(x), static_cast<double>(top), dx, 0, 20, 0};
    }
  }

  Game.HideBomb = 1;
  audio::PlaySoundEffect(4);
  display::Surface& saved = Assets.FieldSurfaces[1];
  display::BltOpaque(saved, 0, 0, kFieldWidth, kFieldHeight, field, 0, 0, kFieldWidth, kFieldHeight);
  int bombY = Game.BombY;
  int shift = 0;
  for (int frame = 0; frame < kBlastFrames; ++frame) {
    for (int i = 0; i < count; ++i) {
      DebrisRecord& p = Game.Debris[i];
      if (p.Size > 0)
        display::BltKeyed(Display.BackBuffer, p.X + kFieldLeft, p.Y + kFieldTop, p.Size, p.Size,
                          Assets.TileSurfaces[i], 0, 0, 20, 20);
      p.X += p.DX + 0.05;
      p.Y -= 1;
      p.Size = 20 - kBlastShrink * (frame + 1);
    }
    if (shift < 20) {
      ++shift;
      display::BltOpaque(field, 0, 0, kFieldWidth, kFieldHeight, saved, 0, 0, kFieldWidth, kFieldHeight);
      for (int k = n; k >= 1; --k) {
        const int top = Game.FullRows[k];
        display::BltOpaque(field, 0, shift, kFieldWidth, top, field, 0, 0, kFieldWidth, top);
        PaintField(0, 0, kFieldWidth, shift, 0, 0, 0);
        if (typeC && top > Game.BombY + 20) ++bombY;
      }
    }
    DrawPlayfield();
    if (typeC) {
      // Drawn here as the playfield drawing would, frame count included.
      Game.BombFrame = static_cast<int16_t>(Game.BombFrame + 1);
      if (Game.BombFrame >= 48) Game.BombFrame = 0;
      DrawTypeCBomb(bombY);
    }
    display::PresentFrame(0);
  }
  if (typeC) Game.BombY = static_cast<int16_t>(bombY);
  PaintField(0, 0, 259, 20 * n - 1, 0, 0, 0);
}

// Type C: every few clears (by difficulty) the whole field rises one row
// over a new garbage row with random holes, lifting the bomb.
void RaiseGarbage() {
  ++Game.GarbageCounter;
  if (Game.GarbageCounter < 3 - Settings.Difficulty) return;
  Game.GarbageCounter = 0;
  display::Surface& field = Assets.FieldSurfaces[0];
  for (int x = 0; x <= 240; x += 20) {
    display::BltOpaque(field, x, 1, 20, 399, field, x, 21, 20, 399);
    const display::Surface& tile = Assets.FillTiles[core::RandomInt(5)];
    display::BltOpaque(field, x, 400, 20, 20, tile, 0, 0, 20, 20);
    if (core::RandomInt(5, 1) == 2) PaintField(x, 400, x + 20, 420, 0, 0, 0);
  }
  Game.BombY = static_cast<int16_t>(Game.BombY - 20);
  DrawPlayfield();
  display::PresentFrame(0);
}

void AnnounceLevelUp() {
  Game.HideBomb = 0;
  if (Game.LevelUpPending == 1) {
    if (Settings.Level > 20) Settings.Level = 20;
    audio::PlaySoundEffect(static_cast<int16_t>(core::RandomInt(3, 138)));
    audio::PlaySoundEffect(14);
    MakeBackground();
  }
  Game.LevelUpPending = 0;
}

}  // namespace

void CheckLine() {
  PayBonusPiece();
  ScanRows();
  const int n = Game.FullRowCount;
  if (n == 0) return;
  ScoreRows(n);
  CountLines(n);
  BlastAndCollapse(n);
  if (TypeC()) RaiseGarbage();
  AnnounceLevelUp();
  if (Game.BombRowsCleared[0] == 1 && Game.BombRowsCleared[1] == 1) DetonateBomb();
  if (TypeC()) PaintBombBlack();
}

void FlashScore(int32_t points) {
  const display::Surface* banner = &Assets.SingleBanner;
  switch (Game.FullRowCount) {
    case 2: banner = &Assets.DoubleBanner; break;
    case 3: banner = &Assets.TripleBanner; break;
    case 4: banner = &Assets.VorrelBanner; break;
    default: banner = &Assets.MegaVorrelBanner; break;
  }
  display::Surface& flash = Assets.FlashSurface;
  display::BltOpaque(flash, 0, 0, 220, 40, *banner, 0, 0, 220, 40);
  // The digits overlap by 4 pixels; the last one ends at the right edge.
  const int digits = static_cast<int>(std::to_string(points).size());
  display::DrawNumberText(flash, 216 - 16 * digits, 20, points, display::Text.ScoreDigits, 16, false);
  Game.FlashSlide = 110;
  Game.FlashX = 201;
  Game.FlashY = 75;
  Game.FlashW = 220;
  Game.FlashH = 40;
  Game.FlashHold = 0;
}

}  // namespace game

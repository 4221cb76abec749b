// The picture of a Classic or Bonus game: the background for the level (or
// height), then every frame the field, the Type C bomb, the frame, the
// preview, the statistics, the counters and the score banner.
#include "game/playfield.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "bonus/sparks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_state.h"

namespace game {

namespace {

using display::Assets;
using display::Surface;

bool TypeC() { return core::Settings.PlayType == 2 && core::Settings.GameVariant < 2; }

// The number's decimal text, as a file name takes it.
std::string NumberText(double n) {
  if (n == std::floor(n)) return std::to_string(static_cast<long long>(n));
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%g", n);
  return buffer;
}

// A phase that steps by 0.2: kept on whole fifths, so a picture changes
// every fifth frame exactly however long the game runs.
double StepFifth(double phase) { return std::round(phase * 5 + 1) / 5; }


void AnimateBonusSprites() {
  GameState& g = Game;
  g.BonusAnimA = StepFifth(g.BonusAnimA);
  if (g.BonusAnimA >= 20) g.BonusAnimA = 0;
  const int earth = static_cast<int>(g.BonusAnimA);
  display::BltOpaque(Assets.PieceSprites[15][0][0], 20, 20, 40, 40, Assets.EarthImage, 40 * earth, 0, 40, 40);
  g.BonusAnimB = StepFifth(g.BonusAnimB);
  if (g.BonusAnimB >= 11) g.BonusAnimB = 0;
  const int arrow = static_cast<int>(g.BonusAnimB);
  display::BltOpaque(Assets.PieceSprites[14][0][0], 40, 20, 20, 20, Assets.LineArrowImage, 20 * arrow, 0, 20, 20);
  display::BltOpaque(Assets.PieceSprites[13][0][0], 40, 20, 20, 20, Assets.ColumnArrowImage, 20 * arrow, 0, 20, 20);
}



}  // namespace

void Counter(Surface& back, const Surface& label, int labelY, int64_t value) {
  display::BltKeyed(back, 600, labelY, label.Width, label.Height, label, 0, 0, label.Width, label.Height);
  display::DrawNumberText(back, 750, labelY + 50, value, display::Text.BigDigits, 27, true);
}

int32_t ScoreStep(int32_t gap) {
  if (gap < 500) return 11;
  if (gap < 5000) return 111;
  if (gap < 50000) return 1111;
  if (gap < 500000) return 11111;
  return 111111;
}

void DrawBanner(Surface& back) {
  GameState& g = Game;
  const Surface& banner = Assets.FlashSurface;
  if (g.FlashSlide > 0) {
    g.FlashSlide -= 5;
    display::BltKeyed(back, g.FlashX + g.FlashSlide, g.FlashY, g.FlashW - 2 * g.FlashSlide, g.FlashH, banner, 0, 0,
                      220, 40);
    if (g.FlashSlide == 0) g.FlashHold = 80;
  }
  if (g.FlashHold > 0) {
    g.FlashHold -= 1;
    if (g.FlashHold < 40) {
      g.FlashX += 2;
      g.FlashY += 0.5;
      g.FlashW -= 4;
      g.FlashH -= 1;
    }
    display::BltKeyed(back, g.FlashX, g.FlashY, g.FlashW, g.FlashH, banner, 0, 0, 220, 40);
  }
}

void MakeBackground() {
  core::MenuSettings& s = core::Settings;
  if (s.Level > 20) s.Level = 20;
  if (s.StartHeight > 15) s.StartHeight = 20;
  const double n = TypeC() ? s.StartHeight : s.Level;
  static const char* const kFolders[3] = {"classic", "bonus", "wickory"};
  const int variant = s.GameVariant >= 0 && s.GameVariant <= 2 ? s.GameVariant : 0;
  display::LoadSurface(Assets.BackgroundImage,
                       std::string("\\graphics\\backgrounds\\") + kFolders[variant] + "\\" + NumberText(n) + ".bmp",
                       400, 300);
  static constexpr int kShade[3][4] = {{90, 71, 130, 212}, {90, 71, 130, 211}, {88, 67, 134, 219}};
  const int* r = kShade[variant];
  display::FilterRect(Assets.BackgroundImage, r[0], r[1], r[2], r[3], s.Transparency / 10.0);
  Surface& backdrop = display::Display.Backdrop;
  display::BltOpaque(backdrop, 0, 0, 800, 600, Assets.BackgroundImage, 0, 0, 400, 300);
  display::BltKeyed(backdrop, 510, 40, 275, 116, Assets.SurfPlayVariant, 0, 0, 275, 116);
  display::BltKeyed(backdrop, 585, 130, 125, 40, Assets.SurfPlayType, 0, 0, 125, 40);
  display::BltKeyed(backdrop, 30, 60, 70, 20, Assets.PieceStatsImage, 0, 0, 70, 20);
}

void DrawBombPictures(double x, double y) {
  Surface& back = display::Display.BackBuffer;
  display::BltKeyed(back, x, y, 40, 40, Assets.BombImages[1], 0, 0, 40, 40);
  int over = 0;
  switch (Game.BombFrame) {
    case 40: case 47: over = 2; break;
    case 41: case 46: over = 3; break;
    case 43: case 45: over = 4; break;
    case 44: over = 5; break;
    default: break;
  }
  if (over) display::BltKeyed(back, x, y, 40, 40, Assets.BombImages[over], 0, 0, 40, 40);
}

void DrawTypeCBomb(int fieldY) {
  GameState& g = Game;
  Surface& back = display::Display.BackBuffer;
  const int x = g.BombX + 181, y = fieldY + 147;
  DrawBombPictures(x, y);

  if (core::RandomInt(25, 1) == 5) {
    g.BombSparkSlot = static_cast<int16_t>(g.BombSparkSlot + 1);
    if (g.BombSparkSlot >= 11) g.BombSparkSlot = 1;
    SparkleRecord& slot = g.BombSparkles[g.BombSparkSlot];
    slot.X = g.BombX + core::RandomInt(50) - 5 + 181;
    slot.Y = fieldY + core::RandomInt(50) - 5 + 147;
    slot.Size = 1;
    slot.Growth = 0.5;
  }
  for (int i = 1; i <= 10; ++i) {
    SparkleRecord& spark = g.BombSparkles[i];
    if (spark.Size <= 0) continue;
    const int half = static_cast<int>(std::floor(spark.Size / 2)), size = static_cast<int>(std::floor(spark.Size));
    display::BltKeyed(back, spark.X - half, spark.Y - half, size, size, Assets.SparkImages[0], 0, 0, 10, 10);
    spark.Size += spark.Growth;
    if (spark.Size >= 12) {
      spark.Size = 12;
      spark.Growth = -spark.Growth;
    }
  }
}

void DrawPlayfield() {
  GameState& g = Game;
  const core::MenuSettings& s = core::Settings;
  Surface& back = display::Display.BackBuffer;
  if (s.GameVariant == 1) AnimateBonusSprites();
  if (g.FieldBlitOff == 0)
    display::BltKeyed(back, kFieldLeft, kFieldTop, kFieldWidth, kFieldHeight, Assets.FieldSurfaces[0], 0, 0,
                      kFieldWidth, kFieldHeight);
  g.BombFrame = static_cast<int16_t>(g.BombFrame + 1);
  if (g.BombFrame >= 48) g.BombFrame = 0;
  if (TypeC() && g.HideBomb != 1) DrawTypeCBomb(g.BombY);

  const Surface& frame = Assets.FieldFrames[s.GameVariant >= 0 && s.GameVariant <= 2 ? s.GameVariant : 0];
  display::BltKeyed(back, g.FrameX, g.FrameY, g.FrameW, g.FrameH, frame, 0, 0, frame.Width, frame.Height);
  display::BltKeyed(back, g.NextPos[0], g.NextPos[1], 40, 40, Assets.PieceSprites[g.NextKind][0][g.NextFuse], 0, 0,
                    80, 80);
  display::BltKeyed(back, 30, 90, 70, 480, Assets.StatusImage, 0, 0, 70, 480);

  if (g.ScoreShown < g.Score) {
    g.ScoreShown += ScoreStep(g.Score - g.ScoreShown);
    if (g.ScoreShown > g.Score) g.ScoreShown = g.Score;
  }
  Counter(back, Assets.BScoreLabel, 200, g.ScoreShown);

  if (s.PlayType != 1 || s.GameVariant == 2) {
    if (g.LinesShown < g.Lines) g.LinesShown = static_cast<int16_t>(g.LinesShown + 1);
  } else if (g.LinesShown > g.Lines) {
    g.LinesShown = static_cast<int16_t>(g.LinesShown - 1);
    if (g.LinesShown == 0) g.GameAlive = 0;  // the last line of Type B is shown: won
  }
  Counter(back, Assets.BLinesLabel, 300, g.LinesShown);
  Counter(back, Assets.BLevelLabel, 400, s.Level);
  // A height set with a fraction shows its whole part.
  Counter(back, Assets.BHeightLabel, 500, static_cast<int64_t>(std::floor(s.StartHeight)));
  DrawBanner(back);
}

void DrawPiece() {
  const GameState& g = Game;
  display::BltKeyed(display::Display.BackBuffer, g.PieceX + kFieldLeft, g.PieceY + kFieldTop, 80, 80,
                    Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse], 0, 0, 80, 80);
  bonus::PieceSparks();
}

}  // namespace game

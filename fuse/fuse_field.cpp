#include "fuse/fuse_field.h"

#include <cmath>
#include <cstdint>

#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "fuse/fuse_state.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/playfield.h"

namespace fuse {

namespace {

using display::Assets;
using display::Surface;
using game::Counter;
using game::DrawBanner;
using game::ScoreStep;

// Phases that step by fractions are kept on whole steps, so that a picture
// changes on the same frame however long the game runs.
double Step(double phase, double step) { return std::round((phase + step) / step) * step; }




void AnimateSprites() {
  game::GameState& g = game::Game;
  g.BonusAnimA = Step(g.BonusAnimA, 0.5);
  if (g.BonusAnimA >= 30) g.BonusAnimA = 0;
  const int charge = g.BonusAnimA < 12 ? static_cast<int>(g.BonusAnimA) : 12;
  display::BltOpaque(Assets.PieceSprites[12][0][0], 40, 20, 20, 20, Assets.BombStripImage, 20 * charge, 0, 20, 20);
  display::BltOpaque(Assets.PieceSprites[9][0][1], 40, 20, 20, 20, Assets.BombStripImage, 20 * charge, 0, 20, 20);
  g.BonusAnimB = Step(g.BonusAnimB, 0.2);
  if (g.BonusAnimB >= 8) g.BonusAnimB = 0;
  const int detonator = static_cast<int>(g.BonusAnimB);
  display::BltOpaque(Assets.PieceSprites[13][0][0], 40, 20, 20, 20, Assets.DetonatorStripImage, 20 * detonator, 0, 20,
                     20);
}

void Glow() {
  FuseState& f = Fuse;
  f.ChargePhase = Step(f.ChargePhase, 0.25);
  if (f.ChargePhase > 7.6) f.ChargePhase = 0;
  const Surface& tile = Assets.BlockTiles[static_cast<int>(f.ChargePhase)];
  for (int k = 1; k <= f.ChargeCount; ++k) {
    // Rule: a charge the fire touched, reached or an explosion cleared keeps
    // its pixels; painting it again would feed the fire for ever.
    if (f.ChargeSpent[k]) continue;
    display::BltKeyed(Assets.FieldSurfaces[0], f.ChargePos[k][0], f.ChargePos[k][1], 20, 20, tile, 0, 0, 20, 20);
  }
}

}  // namespace

void DrawFuseField() {
  game::GameState& g = game::Game;
  const core::MenuSettings& s = core::Settings;
  Surface& back = display::Display.BackBuffer;
  AnimateSprites();
  if (Fuse.BurnFlag == 1) Glow();
  if (g.FieldBlitOff == 0)
    display::BltKeyed(back, game::kFieldLeft, game::kFieldTop, game::kFieldWidth, game::kFieldHeight,
                      Assets.FieldSurfaces[0], 0, 0, game::kFieldWidth, game::kFieldHeight);
  const Surface& frame = Assets.FieldFrames[2];
  display::BltKeyed(back, g.FrameX, g.FrameY, g.FrameW, g.FrameH, frame, 0, 0, frame.Width, frame.Height);
  display::BltKeyed(back, g.NextPos[0], g.NextPos[1], 40, 40, Assets.PieceSprites[g.NextKind][0][g.NextFuse], 0, 0,
                    80, 80);
  display::BltKeyed(back, 30, 90, 70, 480, Assets.StatusImage, 0, 0, 70, 480);

  if (g.ScoreShown < g.Score) {
    g.ScoreShown += ScoreStep(g.Score - g.ScoreShown);
    if (g.ScoreShown > g.Score) g.ScoreShown = g.Score;
  }
  Counter(back, Assets.BScoreLabel, 200, g.ScoreShown);
  if (g.LinesShown < g.Lines) g.LinesShown = static_cast<int16_t>(g.LinesShown + 1);
  Counter(back, Assets.BBricksLabel, 300, g.LinesShown);
  Counter(back, Assets.BLevelLabel, 400, s.Level);
  Counter(back, Assets.BHeightLabel, 500, static_cast<int64_t>(std::floor(s.StartHeight)));
  DrawBanner(back);
}

void RegisterCharge(int x, int y) {
  FuseState& f = Fuse;
  // Rule: the list holds 200; a 201st charge is not registered.
  if (f.ChargeCount >= kChargeLimit) return;
  f.ChargeCount = static_cast<int16_t>(f.ChargeCount + 1);
  f.ChargePos[f.ChargeCount][0] = static_cast<int16_t>(x);
  f.ChargePos[f.ChargeCount][1] = static_cast<int16_t>(y);
  f.ChargeSpent[f.ChargeCount] = 0;
}

void RebuildCharges() {
  Fuse.ChargeCount = 0;
  Surface& field = Assets.FieldSurfaces[0];
  for (int y = 0; y <= 400; y += 20) {
    for (int x = 0; x <= 240; x += 20) {
      display::ReadPixel(field, x + 9, y + 9);
      if (display::Display.PixelValue == Fuse.ChargeColour1) RegisterCharge(x, y);
    }
  }
}

void PaintFuseFieldRow(int row, const std::string& cells) {
  std::string plain = cells;
  for (char& c : plain)
    if (c == 'r') c = '.';
  game::PaintFieldRow(row, plain);
  for (int c = 0; c < 13 && c < static_cast<int>(cells.size()); ++c)
    if (cells[c] == 'r')
      display::BltOpaque(Assets.FieldSurfaces[0], 20 * c, 20 * row, 20, 20, Assets.RockImages[0], 0, 0, 20, 20);
}

void StampPiece(int kind, int rot, int fuseSet, int col, int row) {
  if (kind > 11) fuseSet = 0;
  const int x = 20 * col, y = 20 * row;
  if (kind != 13)
    display::BltKeyed(Assets.FieldSurfaces[0], x, y, 80, 80, Assets.PieceSprites[kind][rot][fuseSet], 0, 0, 80, 80);
  if (kind == 12 || (kind == 9 && fuseSet == 1)) RegisterCharge(x + 40, y + 20);
}

}  // namespace fuse

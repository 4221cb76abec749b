// The crawl: heads that move one pixel a sweep along the two fuse shades and
// through charges, burning every pixel they take and splitting at junctions.
#include "fuse/crawl.h"

#include <algorithm>
#include <cstdint>

#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_state.h"
#include "game/field.h"
#include "game/game_state.h"

namespace fuse {

namespace {

using display::Assets;

// The charge registered at each cell during one detonation (0: none).
int16_t ChargeAt[21][13];
bool Reached[kChargeLimit + 1];

// Outside the field every pixel reads 0, which is never fuse.
inline uint16_t Pixel(int x, int y) {
  if (x < 0 || y < 0 || x >= 260 || y >= 420) return 0;
  return Assets.FieldSurfaces[0].Row(y)[x];
}

inline bool IsFuse(uint16_t v) {
  const FuseState& f = Fuse;
  return v == f.FuseColour1 || v == f.FuseColour2 || v == f.ChargeColour2 || v == f.ChargeColour1;
}

void Burn(int x, int y) {
  if (x < 0 || y < 0 || x >= 260 || y >= 420) return;
  Assets.FieldSurfaces[0].Row(y)[x] = display::kBurntMarker;
  const int k = ChargeAt[y / 20][x / 20];
  if (k == 0) return;
  FuseState& f = Fuse;
  f.ChargeSpent[k] = 1;
  // Rule: a charge is reached the moment its probe point burns.
  if (x % 20 == 9 && y % 20 == 9 && !Reached[k] && f.LitCount < kLitLimit) {
    Reached[k] = true;
    f.LitCount = static_cast<int16_t>(f.LitCount + 1);
    f.LitPos[f.LitCount][0] = static_cast<int16_t>(x);
    f.LitPos[f.LitCount][1] = static_cast<int16_t>(y);
  }
}

// Rule: at 500 heads a new one is refused and its pixel left unburnt.
void Spawn(int x, int y) {
  FuseState& f = Fuse;
  if (f.FireHeadCount >= kHeadLimit) return;
  f.FireHeadCount = static_cast<int16_t>(f.FireHeadCount + 1);
  f.FireHeads[f.FireHeadCount][0] = static_cast<int16_t>(x);
  f.FireHeads[f.FireHeadCount][1] = static_cast<int16_t>(y);
  Burn(x, y);
}

void ScoreCell() {
  game::GameState& g = game::Game;
  FuseState& f = Fuse;
  g.Score += static_cast<int32_t>(f.CellValue);
  f.CellValue = std::min(7500.0, f.CellValue * (1 + core::Settings.Level / 40.0));
  g.Lines = static_cast<int16_t>(g.Lines + 1);
  f.BurntCells = static_cast<int16_t>(f.BurntCells + 1);
}

// Returns false when the head died (the last head then took its slot).
bool Advance(int i) {
  FuseState& f = Fuse;
  const int x = f.FireHeads[i][0], y = f.FireHeads[i][1];
  int nx = x, ny = y;
  bool moved = false;
  if (IsFuse(Pixel(x - 1, y))) moved = true, nx = x - 1;
  if (IsFuse(Pixel(x + 1, y))) moved = true, nx = x + 1;
  if (IsFuse(Pixel(x, y - 1))) moved = true, ny = y - 1;
  if (IsFuse(Pixel(x, y + 1))) moved = true, ny = y + 1;
  // Rule: with the table full the diagonal's side branches could not spawn,
  // so the head would burn nothing new and might wander burnt pixels for
  // ever; it takes the vertical branch alone, a fuse pixel, and the crawl ends.
  if (nx != x && ny != y && f.FireHeadCount >= kHeadLimit) nx = x;
  if (!moved) {
    f.FireHeads[i] = f.FireHeads[f.FireHeadCount];
    f.FireHeadCount = static_cast<int16_t>(f.FireHeadCount - 1);
    return false;
  }
  f.FireHeads[i][0] = static_cast<int16_t>(nx);
  f.FireHeads[i][1] = static_cast<int16_t>(ny);
  Burn(nx, ny);
  if (nx % 20 == 10 && ny % 20 == 10) ScoreCell();
  // Rule: a pixel equal to two reference colours spawns one head.
  if (IsFuse(Pixel(x - 1, y))) Spawn(x - 1, y);
  if (IsFuse(Pixel(x + 1, y))) Spawn(x + 1, y);
  if (IsFuse(Pixel(x, y - 1))) Spawn(x, y - 1);
  if (IsFuse(Pixel(x, y + 1))) Spawn(x, y + 1);
  return true;
}

}  // namespace

void StartCrawl() {
  FuseState& f = Fuse;
  game::GameState& g = game::Game;
  const display::Surface& glow = Assets.BlockTiles[static_cast<int>(f.ChargePhase)];
  f.ChargeColour1 = glow.Exists() ? glow.Row(9)[9] : 0;
  f.ChargeColour2 = glow.Exists() ? glow.Row(10)[10] : 0;
  const display::Surface& bar = Assets.PieceSprites[0][0][0];
  f.FuseColour1 = bar.Exists() ? bar.Row(29)[0] : 0;
  f.FuseColour2 = bar.Exists() ? bar.Row(30)[0] : 0;

  const int cx = g.PieceX + 40, cy = g.PieceY + 20;
  const int16_t heads[4][2] = {{int16_t(cx), int16_t(cy + 10)},
                               {int16_t(cx + 20), int16_t(cy + 10)},
                               {int16_t(cx + 10), int16_t(cy)},
                               {int16_t(cx + 10), int16_t(cy + 20)}};
  for (int i = 0; i < 4; ++i) {
    f.FireHeads[i + 1][0] = heads[i][0];
    f.FireHeads[i + 1][1] = heads[i][1];
  }
  f.FireHeadCount = 4;

  for (auto& row : ChargeAt)
    for (int16_t& k : row) k = 0;
  for (int k = 1; k <= f.ChargeCount; ++k) {
    Reached[k] = false;
    f.ChargeSpent[k] = 0;
    const int x = f.ChargePos[k][0], y = f.ChargePos[k][1];
    if (x >= 0 && y >= 0 && x < 260 && y < 420) ChargeAt[y / 20][x / 20] = static_cast<int16_t>(k);
  }
  f.LitCount = 0;
  g.ScoreBefore = g.Score;
  f.LinesBefore = g.Lines;
  f.CellValue = core::Settings.Level + 1;
  f.BurntCells = 0;
  f.RingRadius = 1;
  f.FrameDivider = 0;
}

bool Sweep() {
  FuseState& f = Fuse;
  if (f.FireHeadCount <= 0) return false;
  // Heads spawned during the sweep run in it; a head moved into a dead one's
  // slot waits for the next sweep.
  for (int i = 1;; ++i) {
    Advance(i);
    if (!(i < f.FireHeadCount)) break;
  }
  return f.FireHeadCount > 0;
}

void ShowDetonationFrame(bool present) {
  game::GameState& g = game::Game;
  FuseState& f = Fuse;
  display::Surface& back = display::Display.BackBuffer;
  DrawFuseField();
  display::BltKeyed(back, g.PieceX + game::kFieldLeft, g.PieceY + game::kFieldTop, 80, 80,
                    Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse], 0, 0, 80, 80);
  if (f.RingRadius < 256) {
    const int r = f.RingRadius, c = std::min(255, 256 - r);
    const double cx = g.PieceX + 231, cy = g.PieceY + 177;
    display::SetFillStyle(back, 1);
    display::SetForeColour(back, c, c, c);
    display::DrawCircle(back, cx, cy, r);
    display::SetForeColour(back, c, c, 0);
    if (r > 3) display::DrawCircle(back, cx, cy, r - 3);
    display::SetForeColour(back, c, 0, 0);
    if (r > 6) display::DrawCircle(back, cx, cy, r - 6);
    display::SetFillStyle(back, 0);
    f.RingRadius = static_cast<int16_t>(f.RingRadius + 5);
  }
  if (present) display::PresentFrame(0);
}

}  // namespace fuse

#include "bonus/sparks.h"

#include <cmath>

#include "bonus/bonus_state.h"
#include "core/random.h"
#include "display/assets.h"
#include "display/surface.h"
#include "game/game_state.h"

namespace bonus {

namespace {

// The ring of slots: filled in order from 1, then reused; the wrap value
// itself is never filled, though the update visits it once the cap is reached.
int NextSlot(int cap) {
  if (++Bonus.SparkCount > cap) Bonus.SparkCount = static_cast<int16_t>(cap);
  if (++Bonus.SparkNext == cap) Bonus.SparkNext = 1;
  return Bonus.SparkNext;
}

double Life() { return core::RandomInt(10000, 1) / 1000.0; }

template <class Table>
void Update(Table& table, double pull) {
  display::Surface& back = display::Display.BackBuffer;
  for (int k = 1; k <= Bonus.SparkCount; ++k) {
    SparkRecord& s = table[k];
    if (s.Life <= 0) continue;
    display::BltKeyed(back, s.X, s.Y, s.Life, s.Life, display::Assets.SparkImages[static_cast<int>(s.Image)], 0, 0,
                      10, 10);
    s.X += s.VX;
    s.Y += s.VY;
    s.VY += pull;
    s.Life -= 0.2;
    if (s.Life < 0) s.Life = 0;
  }
}

constexpr double kLinePull = 0.1, kColumnPull = 0.2;

void EmitBomb() {
  const game::GameState& g = game::Game;
  SparkRecord& s = Bonus.BombSparkTable[NextSlot(100)];
  s.X = g.PieceX + 26 + 181;
  s.Y = g.PieceY + 12 + 147;
  s.VX = core::RandomInt(1000) / 1000.0;
  s.VY = core::RandomInt(1000) / 1000.0;
  if (core::RandomInt(2) == 1) s.VX = -s.VX;
  if (core::RandomInt(2) == 1) s.VY = -s.VY;
  s.Life = Life();
  static constexpr int kImages[3] = {1, 4, 9};
  s.Image = kImages[core::RandomInt(3)];
}

void EmitLine() {
  const game::GameState& g = game::Game;
  SparkRecord& s = Bonus.LineSparkTable[NextSlot(50)];
  int height = core::RandomInt(9);
  s.VX = -core::RandomInt(3000) / 1000.0;
  s.VY = 0;
  s.Life = Life();
  // Moved back by its size so that it seems to leave the block's edge.
  s.X = g.PieceX + 40 + 181 - std::floor(s.Life);
  s.Y = g.PieceY + height + 172 - std::floor(s.Life / 2);
  s.Image = core::RandomInt(2) == 0 ? 4 : 9;
}

void EmitColumn() {
  const game::GameState& g = game::Game;
  SparkRecord& s = Bonus.LineSparkTable[NextSlot(50)];
  int across = core::RandomInt(9);
  s.VX = 0;
  s.VY = -core::RandomInt(1000) / 1000.0;
  s.Life = Life();
  s.Y = g.PieceY + 167 - std::floor(s.Life);
  s.X = g.PieceX + across + 226 - std::floor(s.Life / 2);
  s.Image = core::RandomInt(2) == 0 ? 4 : 9;
}

}  // namespace

void BombSparks() {
  for (int i = 0; i < 3; ++i) EmitBomb();
  BombSparkFinish();
}

void ColumnSparks() {
  for (int i = 0; i < 2; ++i) EmitColumn();
  ColumnSparkFinish();
}

void LineSparks() {
  for (int i = 0; i < 2; ++i) EmitLine();
  LineSparkFinish();
}

void BombSparkFinish() { Update(Bonus.BombSparkTable, 0); }
void ColumnSparkFinish() { Update(Bonus.LineSparkTable, kColumnPull); }
void LineSparkFinish() { Update(Bonus.LineSparkTable, kLinePull); }

void PieceSparks() {
  switch (game::Game.PieceKind) {
    case 12: BombSparks(); break;
    case 13: ColumnSparks(); break;
    case 14: LineSparks(); break;
    default: break;
  }
}

}  // namespace bonus

#include "game/game_state.h"

#include "core/variables.h"

namespace game {

GameState Game;

void FillDropDelay() {
  static constexpr int32_t kDelays[21] = {1500, 1300, 1075, 875, 700, 550, 425, 325, 250, 200, 160,
                                          140,  120,  100,  85,  70,  55,  45,  35,  20,  5};
  Game.DropDelay.name = "DropDelay";
  for (int level = 0; level <= 20; ++level) Game.DropDelay[level] = kDelays[level];
}

void ExposeGameState() {
  GameState& g = Game;
  g.PieceCells.name = "PieceCells";
  g.PieceCounts.name = "PieceCounts";
  g.FullRows.name = "FullRows";
  g.BombRowsCleared.name = "BombRowsCleared";
  g.BombSparkles.name = "BombSparkles";
  g.Debris.name = "Debris";
  g.RowDebris.name = "RowDebris";
  g.NextPos.name = "NextPos";
  vars::Expose("DropDelay", g.DropDelay);
  vars::Expose("PieceKind", g.PieceKind);
  vars::Expose("PieceRot", g.PieceRot);
  vars::Expose("PieceFuse", g.PieceFuse);
  vars::Expose("PieceX", g.PieceX);
  vars::Expose("PieceY", g.PieceY);
  vars::Expose("PieceCells", g.PieceCells);
  vars::Expose("NextKind", g.NextKind);
  vars::Expose("NextFuse", g.NextFuse);
  vars::Expose("NextPos", g.NextPos);
  vars::Expose("KindCount", g.KindCount);
  vars::Expose("PieceCounts", g.PieceCounts);
  vars::Expose("Score", g.Score);
  vars::Expose("ScoreShown", g.ScoreShown);
  vars::Expose("ScoreBefore", g.ScoreBefore);
  vars::Expose("Lines", g.Lines);
  vars::Expose("LinesShown", g.LinesShown);
  vars::Expose("FullRowCount", g.FullRowCount);
  vars::Expose("FullRows", g.FullRows);
  vars::Expose("LevelUpPending", g.LevelUpPending);
  vars::Expose("GarbageCounter", g.GarbageCounter);
  vars::Expose("SoftDropPoints", g.SoftDropPoints);
  vars::Expose("PiecesSinceBar", g.PiecesSinceBar);
  vars::Expose("NextDropTime", g.NextDropTime);
  vars::Expose("LeftRepeatTime", g.LeftRepeatTime);
  vars::Expose("RightRepeatTime", g.RightRepeatTime);
  vars::Expose("NowTick", g.NowTick);
  vars::Expose("GameAlive", g.GameAlive);
  vars::Expose("FlipAction", g.FlipAction);
  vars::Expose("DangerZone", g.DangerZone);
  vars::Expose("DangerZoneBefore", g.DangerZoneBefore);
  vars::Expose("FieldBlitOff", g.FieldBlitOff);
  vars::Expose("BombX", g.BombX);
  vars::Expose("BombY", g.BombY);
  vars::Expose("BombRowsCleared", g.BombRowsCleared);
  vars::Expose("HideBomb", g.HideBomb);
  vars::Expose("BombFrame", g.BombFrame);
  vars::Expose("BombSparkles", g.BombSparkles);
  vars::Expose("BombSparkSlot", g.BombSparkSlot);
  vars::Expose("BonusAnimA", g.BonusAnimA);
  vars::Expose("BonusAnimB", g.BonusAnimB);
  vars::Expose("FlashSlide", g.FlashSlide);
  vars::Expose("FlashHold", g.FlashHold);
  vars::Expose("FlashX", g.FlashX);
  vars::Expose("FlashY", g.FlashY);
  vars::Expose("FlashW", g.FlashW);
  vars::Expose("FlashH", g.FlashH);
  vars::Expose("Debris", g.Debris);
  vars::Expose("RowDebris", g.RowDebris);
}

}  // namespace game

// The state every part of a running game shares: the falling and the next
// piece, score, lines, clocks, the Type C bomb, the banner and the scratch
// tables of the animations. The playfield itself has no cell array: landed
// blocks are pixels of display::Assets.FieldSurfaces[0] (see game/field.h).
// The menu's choices (GameVariant, PlayType, Level, StartHeight, Difficulty,
// Transparency) are core::Settings.
#pragma once
#include <cstdint>
#include <tuple>

#include "core/table.h"

namespace game {

// One flying or falling thing of the shared particle table; each user gives
// the six numbers its own meaning.
struct DebrisRecord {
  double X = 0, Y = 0, DX = 0, DY = 0, Size = 0, Extra = 0;
  static constexpr auto VarFields() {
    return std::tuple(&DebrisRecord::X, &DebrisRecord::Y, &DebrisRecord::DX, &DebrisRecord::DY, &DebrisRecord::Size,
                      &DebrisRecord::Extra);
  }
};

// A falling garbage block of the start height or of a detonation.
struct RowDebrisRecord {
  double X = 0, Y = 0, Speed = 0;
  int16_t Tile = 0;
  double TargetY = 0;
  static constexpr auto VarFields() {
    return std::tuple(&RowDebrisRecord::X, &RowDebrisRecord::Y, &RowDebrisRecord::Speed, &RowDebrisRecord::Tile,
                      &RowDebrisRecord::TargetY);
  }
};

struct SparkleRecord {
  double X = 0, Y = 0, Size = 0, Growth = 0;
  static constexpr auto VarFields() {
    return std::tuple(&SparkleRecord::X, &SparkleRecord::Y, &SparkleRecord::Size, &SparkleRecord::Growth);
  }
};

// A detonation at height 20 needs 260 falling blocks: the table holds 21 full
// rows (273) instead of the 241 that set-up alone would need.
inline constexpr int kRowDebrisLast = 272;

struct GameState {
  core::Table<int32_t, 0, 20> DropDelay;  // ms per gravity step, by level

  // The falling piece.
  int16_t PieceKind = 0, PieceRot = 0, PieceFuse = 0;
  int16_t PieceX = 0, PieceY = 0;
  core::Table<core::Table<core::Table<int16_t, 0, 1>, 0, 4>, 0, 3> PieceCells;  // [rot][cell][0 x, 1 y]

  // The next piece.
  int16_t NextKind = 0, NextFuse = 0;
  core::Table<int16_t, 0, 1> NextPos;  // screen x, y of the preview
  int16_t KindCount = 7;
  core::Table<int32_t, 0, 16> PieceCounts;

  // Score, lines, level (the level itself is core::Settings.Level).
  int32_t Score = 0, ScoreShown = 0, ScoreBefore = 0;
  int16_t Lines = 0, LinesShown = 0;
  int16_t FullRowCount = 0;
  core::Table<int16_t, 1, 25> FullRows;
  int16_t LevelUpPending = 0;
  int16_t GarbageCounter = 1;
  int16_t SoftDropPoints = 0;
  int16_t PiecesSinceBar = 0;  // carries over from game to game

  // Clocks (ms ticks).
  int32_t NextDropTime = 0, LeftRepeatTime = 0, RightRepeatTime = 0, NowTick = 0;

  // Flags.
  int16_t GameAlive = 0;
  int16_t FlipAction = 0;
  int16_t DangerZone = 0, DangerZoneBefore = 0;  // set at program start only
  int16_t FieldBlitOff = 0;

  // The Type C bomb.
  int16_t BombX = 120, BombY = 380;
  core::Table<int16_t, 0, 1> BombRowsCleared;  // reset only by a detonation
  int16_t HideBomb = 0;
  int16_t BombFrame = 0;
  core::Table<SparkleRecord, 1, 10> BombSparkles;
  int16_t BombSparkSlot = 1;

  // The animated bonus sprites.
  double BonusAnimA = 0, BonusAnimB = 0;

  // The score banner.
  int16_t FlashSlide = 0, FlashHold = 0, FlashX = 0;
  double FlashY = 0;
  int16_t FlashW = 0, FlashH = 0;

  // The playfield frame's rectangle, set when a game is prepared.
  int16_t FrameX = 158, FrameY = 3, FrameW = 308, FrameH = 593;

  // Shared scratch tables: one user at a time, whichever animation runs.
  core::Table<DebrisRecord, 0, 900> Debris;
  core::Table<RowDebrisRecord, 0, kRowDebrisLast> RowDebris;
};
extern GameState Game;

// The 21 gravity delays, from 1500 ms at level 0 to 5 ms at level 20.
void FillDropDelay();
// Every variable above in the dumps, by its own name.
void ExposeGameState();

}  // namespace game

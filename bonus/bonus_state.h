// The bonus pieces' own state: the two spark tables and their shared
// counters. Only one bonus piece falls at a time, so one pair of counters
// serves both tables.
#pragma once
#include <cstdint>
#include <tuple>

#include "core/table.h"

namespace bonus {

struct SparkRecord {
  double X = 0, Y = 0;    // screen position of the top-left
  double VX = 0, VY = 0;  // pixels per frame
  double Life = 0;        // also the drawn width and height; 0 is dead
  double Image = 0;       // SparkImages index: 1, 4 or 9
  static constexpr auto VarFields() {
    return std::tuple(&SparkRecord::X, &SparkRecord::Y, &SparkRecord::VX, &SparkRecord::VY, &SparkRecord::Life,
                      &SparkRecord::Image);
  }
};

struct BonusState {
  core::Table<SparkRecord, 0, 100> BombSparkTable;  // slot 0 is never filled
  core::Table<SparkRecord, 0, 50> LineSparkTable;   // the line and the column piece
  int16_t SparkNext = 0;   // slot of the newest spark, 0 before the first
  int16_t SparkCount = 0;  // slots in use from 1
};
extern BonusState Bonus;

// Every variable above in the dumps, by its own name.
void ExposeBonusState();
// A new piece starts with no sparks of its own: old records are simply
// overwritten as it emits.
void ResetSparks();

}  // namespace bonus

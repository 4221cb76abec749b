// The fuse game's own state beside the block game's: the charges lying in
// the field, the glow, the reference colours of the fire and the working
// tables of one detonation. Fuses themselves exist only as field pixels.
#pragma once
#include <cstdint>

#include "core/table.h"

namespace fuse {

using Point = core::Table<int16_t, 0, 1>;  // x, y

inline constexpr int kChargeLimit = 200;
inline constexpr int kHeadLimit = 500;
inline constexpr int kLitLimit = 300;

struct FuseState {
  // The charges on the field: top-left corners of their cells.
  int16_t ChargeCount = 0;
  core::Table<Point, 1, kChargeLimit> ChargePos;
  double ChargePhase = 0;  // the glow's picture, 0..7.5
  int16_t BurnFlag = 0;    // the charges glow while it is 1

  // Sampled at the start of every detonation.
  int32_t FuseColour1 = 0, FuseColour2 = 0, ChargeColour1 = 0, ChargeColour2 = 0;

  // One detonation.
  core::Table<Point, 1, kHeadLimit> FireHeads;
  int16_t FireHeadCount = 0;
  double CellValue = 0;
  int16_t BurntCells = 0;
  int16_t LinesBefore = 0;
  int16_t RingRadius = 1;
  int16_t LitCount = 0;
  core::Table<Point, 1, kLitLimit> LitPos;
  int16_t BurntCount = 0;
  core::Table<Point, 1, kLitLimit> BurntPos;
  int16_t FrameDivider = 0;
  // Per registered charge: 1 once the fire touched its cell, reached it or an
  // explosion cleared it; its glow is then no longer painted.
  core::Table<int16_t, 1, kChargeLimit> ChargeSpent;
};
extern FuseState Fuse;

void ExposeFuseState();

}  // namespace fuse

// The game clock: an integer count of 1/60 ms. A presented frame adds 1000,
// a pass that presents nothing adds 60. Headless and in a window alike; a
// window paces it to real time, so a recorded session replays exactly.
#pragma once
#include <cstdint>

namespace platform {

uint64_t ClockUnits();
void ResetClock();
void AdvanceClock(uint64_t units);
// A kept game starts again at the clock it began at: the tick's rounding
// depends on where the count stands, not only on how far it moves.
void SetClock(uint64_t units);
// The millisecond tick the game reads: units / 60, rounded down.
inline uint32_t TickMs() { return static_cast<uint32_t>(ClockUnits() / 60); }

inline constexpr uint64_t kUnitsPerFrame = 1000;
inline constexpr uint64_t kUnitsPerPass = 60;

}  // namespace platform

#include "platform/clock.h"

namespace platform {
namespace {
uint64_t units = 0;
}

uint64_t ClockUnits() { return units; }
void ResetClock() { units = 0; }
void AdvanceClock(uint64_t n) { units += n; }
void SetClock(uint64_t n) { units = n; }

}  // namespace platform

#include "core/random.h"

namespace core {
namespace {
uint64_t state = 0x853C49E6748FEA9Bull;
}

void Randomize(uint32_t seed) { state = 0x853C49E6748FEA9Bull ^ (uint64_t(seed) * 0x9E3779B97F4A7C15ull); }

uint64_t RandomState() { return state; }
void SetRandomState(uint64_t s) { state = s; }

double Rnd() {
  // xorshift64*: fast, and the same sequence on every machine.
  state ^= state >> 12;
  state ^= state << 25;
  state ^= state >> 27;
  uint64_t v = state * 0x2545F4914F6CDD1Dull;
  return static_cast<double>(v >> 11) * (1.0 / 9007199254740992.0);
}

}  // namespace core

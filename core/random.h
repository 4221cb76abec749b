// The program's one uniform random generator, seeded once at start-up.
#pragma once
#include <cstdint>

namespace core {

void Randomize(uint32_t seed);
// A number in [0, 1).
double Rnd();
// Int(Rnd x n) + k, the way every random choice of the game is written.
inline int RandomInt(int n, int k = 0) { return static_cast<int>(Rnd() * n) + k; }

}  // namespace core

// The program's one uniform random generator, seeded once at start-up.
#pragma once
#include <cmath>
#include <cstdint>

namespace core {

void Randomize(uint32_t seed);
// The generator's whole state, so a kept game can start again from where it began.
uint64_t RandomState();
void SetRandomState(uint64_t state);
// A number in [0, 1).
double Rnd();
// Int(Rnd x n) + k, the way every random choice of the game is written. Int
// is the floor, so a negative n gives n..-1 (plus k), never 0.
inline int RandomInt(int n, int k = 0) { return static_cast<int>(std::floor(Rnd() * n)) + k; }

}  // namespace core

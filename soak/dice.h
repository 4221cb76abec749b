// The soak player's own random numbers: never the game's generator, so that
// steering draws nothing from the game's sequence.
#pragma once
#include <cstdint>

namespace soak {

struct Dice {
  uint64_t state = 0;
  Dice() = default;
  explicit Dice(uint64_t seed) : state(seed ^ 0x9E3779B97F4A7C15ull) {}
  // splitmix64: tiny, and the same numbers on every platform.
  uint64_t Next() {
    uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  // 0 .. n - 1 (n > 0).
  int Below(int n) { return static_cast<int>(Next() % static_cast<uint64_t>(n)); }
  // 1 in n.
  bool OneIn(int n) { return Below(n) == 0; }
};

}  // namespace soak

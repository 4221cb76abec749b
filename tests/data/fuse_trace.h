// A test-local copy of the Wickory fire: it crawls pixel by pixel along the
// fuse colours of a 260 x 420 field, exactly by the game's rules, so that the
// piece art can be checked against the fire that will run over it.
#pragma once
#include <cstdint>
#include <functional>

#include "platform/bmp_file.h"

namespace fuse_trace {

constexpr uint16_t kBurnt = 60000;

// The four colours the fire follows, sampled where the game samples them.
struct Colours {
  uint16_t fuse1, fuse2, charge1, charge2;
  bool IsFuse(uint16_t v) const { return v == fuse1 || v == fuse2 || v == charge1 || v == charge2; }
};

struct Result {
  int sweeps = 0;
  int scoredCentres = 0;  // moves onto a cell centre (x, y both 10 mod 20)
  int maxHeads = 0;
};

// Lights the four sides of the detonator cell whose top-left is (cx, cy) and
// crawls until no head is left. afterFifthSweep, if given, runs whenever the
// game would show a frame (after every fifth sweep).
Result Burn(bmp::Image565& field, const Colours& c, int cx, int cy,
            const std::function<void(bmp::Image565&)>& afterFifthSweep = {});

}  // namespace fuse_trace

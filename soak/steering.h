// The soak player's hold on one program run: it fills the automation's
// driver before the run and lets go after it.
#pragma once
#include <cstdint>
#include <set>
#include <string>

#include "soak/soak.h"

namespace soak {

// The player for the run about to start: counts go to shared, its dice are
// seeded with seed, frameBase frames came before this run out of soakFrames.
// replaysSeen: the files of HOME/replays/ already counted. gameLog: a line
// on standard output for every game that ends.
void Steer(Counts& shared, uint64_t seed, uint64_t frameBase, uint64_t soakFrames, const std::string& home,
           const std::set<std::string>& replaysSeen, bool gameLog);
// After the run: the last look at the replay folder; the driver is removed.
void EndSteering();

}  // namespace soak

// The soak: the whole program run headless again and again on one home
// folder, steered by a player made of code that reads what the game shows
// (the screen, the menu page, the falling piece, the field) and answers with
// the devices a player has. It counts what it reached.
#pragma once
#include <cstdint>
#include <string>

namespace soak {

// The bonus effects, in the order the line check's dispatch names them.
enum Effect { kBombLand, kColumnClear, kColumnFill, kSingleClear, kSingleFall, kEarthquake, kEffectKinds };
const char* EffectName(int effect);

// What the soak reached. Plain numbers: the program runs share it across
// their process boundary.
struct Counts {
  uint64_t frames = 0;  // presented, over every run
  int runs = 0;         // program runs started
  int cleanRuns = 0;    // ended with status 0
  int lastStatus = 0;   // the exit status of the last run that failed, or its signal as 128 + N
  int games[3][3] = {};  // [variant][play type] started from the menu
  int gameOvers = 0;
  int pauses = 0;
  int effects[kEffectKinds] = {};
  int typeCDetonations = 0;
  int wickoryDetonations = 0;
  int nameEntries = 0;     // high-score name entries reached
  int highScores = 0;      // names entered and stored
  int replaysWritten = 0;  // files that appeared in HOME/replays/
  int replaysWatched = 0;  // kept at the end, and watched again
  int replaysMatched = 0;  // ...that ended with their result in its place
  long peakRssKiB = 0;     // the largest run's peak resident size
  // One run over the whole soak (Options::runFrames = frames): resident size
  // at the end of the first and of the last quarter.
  long rssFirstQuarterKiB = 0, rssLastQuarterKiB = 0;
};

struct Options {
  uint64_t frames = 20000;  // at least this many, over all runs
  uint32_t seed = 1;
  std::string data;  // the data folder
  std::string home;  // kept from run to run; made if missing
  // Frames of one program run; 0: each run its own length from the seed.
  uint64_t runFrames = 0;
  // Where each run's standard error goes; empty: the soak's own.
  std::string errorLog;
  // One line on standard output for every game that ends.
  bool gameLog = false;
};

// Runs program after program (each in its own process, as a player starts
// it again) until the frames are spent.
Counts Run(const Options& options);

// Watches every kept game again (CheckReplays) once the runs are over.
void CheckReplays(const Options& options, Counts& counts);

// The coverage as lines of text (no memory figures: those vary from run to run).
std::string Describe(const Counts& counts);

}  // namespace soak

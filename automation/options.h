// What the command line asks of a run.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "core/hooks.h"

namespace automation {

struct Options {
  bool headless = false;
  bool windowed = false;
  std::optional<uint32_t> seed;   // without it, the time of day
  std::string dataDir;            // empty: the installed or built-in default
  std::string homeDir;            // empty: XDG data and config folders
  std::string scriptPath;
  std::optional<uint64_t> maxFrames;
  std::optional<uint64_t> maxTicks;
  std::string dumpPath;
  std::string recordPath;
  std::optional<core::GameRequest> game;  // --game: as a script line `0 game ...`
  std::string replayPath;                 // --replay: a kept game to watch
  bool listReplays = false;               // --replays
};

}  // namespace automation

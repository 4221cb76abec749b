// What the command line asks of a run.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace frame {

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
};

// Parses argv. On bad usage prints a clear message to stderr and returns
// false; the caller exits with status 2. --help prints usage and sets help.
bool ParseCommandLine(int argc, char** argv, Options& out, bool& help);

}  // namespace frame

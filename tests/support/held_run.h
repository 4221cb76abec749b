// Runs the real game as a child process that a test can hold still at one
// moment: the script's line `dump HELD` (HeldPath) writes into a pipe that
// is read only once `whileHeld` has run. A signal or a window event sent then
// reaches the game at that very moment, whatever the machine's speed.
#pragma once
#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace testsupport {

struct HeldRun {
  bool held = false;    // the game reached the held dump
  bool exited = false;  // it ended by exit, not by a signal or the test's limit
  int status = -1;
  std::string stderrText, dumpText, heldDump;
};

std::string HeldPath(const std::string& dir);

// `vorrel --seed 1 --data DATA --home DIR/home --script SCRIPT --dump DIR/dump.json
// --max-frames 20000 ARGS...` (give --headless or --windowed in ARGS) with ENV
// added ("NAME=value"). Without a held line it simply runs to its end.
HeldRun RunHeld(const std::string& dir, const std::string& script, const std::vector<std::string>& args,
                const std::vector<std::string>& env = {}, const std::function<void(pid_t)>& whileHeld = nullptr);

}  // namespace testsupport

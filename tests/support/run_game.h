// Runs the real game binary headless in a scratch home folder, for scenario
// tests: a script in, a dump, screenshots, the exit status and stderr out.
#pragma once
#include <string>
#include <vector>

namespace testsupport {

struct GameRun {
  int status = -1;
  std::string stderrText;
  std::string dumpText;  // the --dump file, if it was written
};

// A fresh scratch folder under the test's temporary directory.
std::string ScratchDir(const std::string& name);
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& text);

// A run that waits for something that never comes ends here (a few seconds)
// instead of at the test's timeout; a --max-frames in ARGS overrides it.
inline constexpr int kMaxFrames = 20000;

// Runs `vorrel --headless --data DATA --home HOME --seed 1 --script SCRIPT --dump DUMP
// --max-frames 20000 ARGS...` with the script's text written to a file in dir. data ""
// means the test data folder.
GameRun RunGame(const std::string& dir, const std::string& script, const std::vector<std::string>& args = {},
                const std::string& data = "");

// Runs `vorrel ARGS...` as given (no options added); stdout in `dumpText`.
GameRun RunVorrel(const std::string& dir, const std::vector<std::string>& args);

// The test data folder, or "" when it was not built.
std::string TestData();

// A number (or "null") of a top-level key of a dump: enough for the scenario
// checks without a JSON library.
std::string DumpValue(const std::string& dump, const std::string& key);

}  // namespace testsupport

// After the runs: every game kept with a high score is watched again, each in
// a process of its own, and must end on the final screen with its result in
// its place, as the player left it.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "automation/replays.h"
#include "frame/program.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "soak/soak.h"

namespace soak {

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The watched run's exit status, or 128 + its signal.
int Watch(const Options& o, const std::string& replay, const std::string& dump) {
  std::fflush(nullptr);
  const pid_t pid = fork();
  if (pid < 0) return 255;
  if (pid == 0) {
    if (!o.errorLog.empty()) std::freopen(o.errorLog.c_str(), "a", stderr);
    platform::ClearQuitRequest();
    platform::ResetClock();
    std::vector<std::string> args = {"vorrel", "--headless", "--data", o.data, "--replay", replay, "--dump", dump};
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    const int status = frame::RunProgram(static_cast<int>(args.size()), argv.data());
    std::fflush(nullptr);
    std::exit(status);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : 255;
}

}  // namespace

void CheckReplays(const Options& o, Counts& c) {
  const std::string dump = (fs::temp_directory_path() / ("vorrel-soak-watch-" + std::to_string(getpid()) + ".json")).string();
  std::error_code ec;
  for (const automation::Replay& r : automation::ReadReplayFolder(o.home + "/replays", nullptr)) {
    ++c.replaysWatched;
    fs::remove(dump, ec);
    const int status = Watch(o, r.path, dump);
    const std::string text = ReadAll(dump);
    // The result as the table's record shows it: ["NAME",SCORE,LINES,LEVEL].
    const std::string entry = "[\"" + r.name + "\"," + std::to_string(r.score) + "," + std::to_string(r.lines) + "," +
                              std::to_string(r.level) + "]";
    if (status == 0 && text.find("\"screen\":\"final\"") != std::string::npos && text.find(entry) != std::string::npos) {
      ++c.replaysMatched;
    } else {
      std::fprintf(stderr, "soak: the replay %s (status %d) did not end with %s on the final screen\n", r.path.c_str(),
                   status, entry.c_str());
    }
  }
  fs::remove(dump, ec);
}

}  // namespace soak

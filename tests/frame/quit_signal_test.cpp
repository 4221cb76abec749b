// SIGTERM and SIGINT end the game the way its own quit does, on whatever
// screen it stands: exit 0, the player's files whole, the dump written.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/run_game.h"

namespace fs = std::filesystem;
using namespace testsupport;

namespace {

struct Ended {
  bool exited = false;
  int status = -1;
};

// Starts the headless game with SCRIPT, waits until the script has written
// MARKER (so the run is where the script says), sends SIG and waits for the end.
// The game never reaches its frame limit on its own while the test waits.
Ended RunUntilSignal(const std::string& dir, const std::string& script, const std::string& marker, int sig,
                     const std::vector<std::string>& extra = {}) {
  WriteFile(dir + "/script.txt", script);
  fs::create_directories(dir + "/home");
  std::vector<std::string> args = {VORREL_BINARY, "--headless", "--seed", "1", "--data", TestData(),
                                   "--home", dir + "/home", "--script", dir + "/script.txt",
                                   "--dump", dir + "/dump.json", "--max-frames", "4000000000"};
  args.insert(args.end(), extra.begin(), extra.end());
  pid_t pid = fork();
  if (pid == 0) {
    int err = open((dir + "/stderr.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(err, 2);
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  Ended ended;
  int status = 0;
  // Bounded waits, so a game that ignores the signal fails the test instead of hanging it.
  auto waitFor = [&](auto done) {
    for (int i = 0; i < 6000; ++i) {
      if (done()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  };
  bool gone = false;
  bool marked = waitFor([&] { return fs::exists(marker) || (gone = waitpid(pid, &status, WNOHANG) == pid); });
  EXPECT_TRUE(marked && !gone) << "the run never reached " << marker << ":\n" << ReadFile(dir + "/stderr.txt");
  if (!gone) {
    kill(pid, sig);
    if (!waitFor([&] { return waitpid(pid, &status, WNOHANG) == pid; })) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      ADD_FAILURE() << "the game went on after signal " << sig;
    }
  }
  ended.exited = WIFEXITED(status);
  ended.status = ended.exited ? WEXITSTATUS(status) : -1;
  return ended;
}

void ExpectFilesWhole(const std::string& home) {
  for (const char* name : {"VSys/hs.inf", "VSys/maindata.inf"}) {
    EXPECT_EQ(ReadFile(home + "/" + name), ReadFile(TestData() + "/" + name)) << name;
    EXPECT_FALSE(fs::exists(home + "/" + name + ".tmp")) << name;
  }
}

}  // namespace

TEST(QuitSignals, EndTheGameInOrderOnAnyScreen) {
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder";

  // SIGTERM in the menu, which waits for the pointer for ever.
  std::string dir = ScratchDir("menu");
  Ended ended = RunUntilSignal(dir, "@menu dump " + dir + "/at-menu.json\n", dir + "/at-menu.json", SIGTERM);
  EXPECT_TRUE(ended.exited);
  EXPECT_EQ(ended.status, 0) << ReadFile(dir + "/stderr.txt");
  std::string dump = ReadFile(dir + "/dump.json");
  EXPECT_EQ(DumpValue(dump, "screen"), "menu");
  EXPECT_GE(std::stoll(DumpValue(dump, "frame")), std::stoll(DumpValue(ReadFile(dir + "/at-menu.json"), "frame")));
  ExpectFilesWhole(dir + "/home");

  // SIGINT (Ctrl+C in a terminal) in the middle of a game, with a recording:
  // the recording ends with the quit, as a closed window's would.
  dir = ScratchDir("play");
  ended = RunUntilSignal(dir, "@play mark\n+30 dump " + dir + "/in-play.json\n", dir + "/in-play.json", SIGINT,
                         {"--game", "bonus", "a", "5", "3", "0", "--record", dir + "/game.vs"});
  EXPECT_TRUE(ended.exited);
  EXPECT_EQ(ended.status, 0) << ReadFile(dir + "/stderr.txt");
  dump = ReadFile(dir + "/dump.json");
  EXPECT_NE(DumpValue(dump, "frame"), "");
  std::string recording = ReadFile(dir + "/game.vs");
  EXPECT_NE(recording.find("quit"), std::string::npos) << recording;
  ExpectFilesWhole(dir + "/home");
}

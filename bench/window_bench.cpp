// The game in a real window, run under Xvfb (bench/report.sh starts one):
// the gaps between 600 presented frames of play as the window paces them;
// and the peak memory of the program itself over one scripted run (the
// introduction, the menu, a Bonus C game), headless and in a window with
// sound.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdlib>
#include <ctime>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/bench_support.h"
#include "core/errors.h"
#include "core/hooks.h"
#include "core/random.h"
#include "frontend/game_over.h"
#include "frontend/high_scores.h"
#include "frontend/menu.h"
#include "game/end_hooks.h"
#include "game/game_loop.h"
#include "game/game_over_hook.h"
#include "platform/backend.h"

extern char** environ;

namespace {

constexpr long kPacedFrames = 600;

// Every thread of the program: the game's, the mixer's and the renderer's.
double ProcessCpuMs() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1000.0 + static_cast<double>(t.tv_nsec) / 1e6;
}

// A Bonus A game at level 5 started as the menu's start button starts it;
// no input, so the first piece is still falling when the 600 frames are up
// (20 rows at 550 ms a row).
void BM_WindowPacing(benchmark::State& state) {
  std::string why;
  if (!benchsupport::OpenWindow(why)) {
    state.SkipWithError(why.c_str());
    return;
  }
  game::GameOverHook = frontend::GameOver;
  game::RocketBlastHook = frontend::RocketBlast;
  game::QualifiesForTableHook = frontend::QualifiesForTable;
  game::NewHighScoreHook = frontend::NewHighScore;
  game::FinalScreenHook = frontend::FinalScreen;
  int otherScreens = 0;
  double cpuMs = 0;
  for (auto _ : state) {
    core::Randomize(1);
    frontend::StartRequestedGame(core::GameRequest{1, 0, 5, 0, 0});
    core::Hooks.ScreenEntered = [&otherScreens](const char* name) {
      if (std::strcmp(name, "play") != 0) ++otherScreens;
    };
    benchsupport::TimeFrames(kPacedFrames);
    const double cpuStart = ProcessCpuMs();
    try {
      game::BeginGame();
    } catch (const core::OrderlyQuit&) {
    }
    cpuMs = ProcessCpuMs() - cpuStart;
    platform::ClearQuitRequest();
  }
  benchsupport::CloseWindow();
  if (otherScreens > 0 || benchsupport::FramesSeen() != kPacedFrames) {
    state.SkipWithError("the game left play before its 600 frames");
    return;
  }
  state.counters["median_gap_ms"] = benchsupport::MedianFrameMs();
  state.counters["worst_gap_ms"] = benchsupport::WorstFrameMs();
  state.counters["gaps_over_two_refreshes"] = static_cast<double>(benchsupport::GapsOverMs(2000.0 / 60.0));
  state.counters["frames_per_second"] = 1000.0 * static_cast<double>(benchsupport::FramesSeen()) / benchsupport::TimedMs();
  state.counters["frames"] = static_cast<double>(benchsupport::FramesSeen());
  state.counters["cpu_per_frame_ms"] = cpuMs / static_cast<double>(kPacedFrames);
}
BENCHMARK(BM_WindowPacing)->Unit(benchmark::kSecond)->Iterations(1);

// Runs the game binary over the scripted run and gives its peak resident
// set in KiB, or 0 if it did not end with status 0.
long PeakRssKiB(bool window, std::string& why) {
  const std::string data = VORREL_TEST_DATA;
  const auto dir = std::filesystem::temp_directory_path() / (window ? "vorrel-bench-rss-window" : "vorrel-bench-rss");
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  std::ofstream(dir / "run.vs") << "@menu game bonus c 5 5 0\n";
  std::vector<std::string> words = {VORREL_BINARY, window ? "--windowed" : "--headless", "--seed", "1", "--data",
                                    data, "--home", (dir / "home").string(), "--script", (dir / "run.vs").string(),
                                    "--max-frames", "1500"};
  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&quiet, 2, (dir / "stderr.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = 0;
  // In a window, sound as on a player's machine: the soundfont is a large
  // share of the peak. SDL's dummy device takes it without a sound card.
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e)
    if (std::strncmp(*e, "SDL_AUDIODRIVER=", 16) != 0) env.emplace_back(*e);
  env.emplace_back("SDL_AUDIODRIVER=dummy");
  std::vector<char*> envp;
  for (std::string& e : env) envp.push_back(e.data());
  envp.push_back(nullptr);
  const int spawned = posix_spawn(&pid, argv[0], &quiet, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&quiet);
  if (spawned != 0) {
    why = std::string("cannot start the game: ") + std::strerror(spawned);
    return 0;
  }
  int status = 0;
  rusage usage{};
  if (wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    why = "the game's run failed; see " + (dir / "stderr.txt").string();
    return 0;
  }
  return usage.ru_maxrss;
}

void PeakMemory(benchmark::State& state, bool window) {
  if (window && std::getenv("DISPLAY") == nullptr) {
    state.SkipWithError("no Xvfb, and no DISPLAY");
    return;
  }
  long kib = 0;
  std::string why;
  for (auto _ : state) kib = PeakRssKiB(window, why);
  if (kib == 0) {
    state.SkipWithError(why.c_str());
    return;
  }
  state.counters["peak_rss_mib"] = static_cast<double>(kib) / 1024.0;
}

void BM_PeakMemoryHeadless(benchmark::State& s) { PeakMemory(s, false); }
void BM_PeakMemoryWindow(benchmark::State& s) { PeakMemory(s, true); }
BENCHMARK(BM_PeakMemoryHeadless)->Unit(benchmark::kSecond)->Iterations(1);
BENCHMARK(BM_PeakMemoryWindow)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

// Memory over a long run: the soak's player in one program run of N frames,
// the resident size at the end of its first and of its last quarter, and the
// growth between them, whole and per 1000 frames. Printed, never asserted.
// The default run is 40000 frames, about ten seconds; VORREL_SOAK_BENCH_FRAMES
// sets another (the long run: 200000).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "soak/soak.h"

namespace {

void BM_SoakMemoryGrowth(benchmark::State& state) {
  namespace fs = std::filesystem;
  const std::string data = VORREL_TEST_DATA;
  if (!fs::is_directory(data + "/graphics")) {
    state.SkipWithError("no generated data folder");
    return;
  }
  const uint64_t frames = static_cast<uint64_t>(state.range(0));
  soak::Counts c;
  for (auto _ : state) {
    const fs::path home = fs::temp_directory_path() / ("vorrel-soak-bench-" + std::to_string(getpid()));
    fs::remove_all(home);
    soak::Options o;
    o.frames = frames;
    o.runFrames = frames;  // one run: the growth of one long session
    o.seed = 26;
    o.data = data;
    o.home = home.string();
    o.errorLog = (home / "stderr.txt").string();
    c = soak::Run(o);
    fs::remove_all(home);
  }
  const double growth = static_cast<double>(c.rssLastQuarterKiB - c.rssFirstQuarterKiB);
  state.counters["rss_q1_KiB"] = static_cast<double>(c.rssFirstQuarterKiB);
  state.counters["rss_q4_KiB"] = static_cast<double>(c.rssLastQuarterKiB);
  state.counters["growth_KiB"] = growth;
  state.counters["frames"] = static_cast<double>(frames);
  state.counters["KiB_per_1000_frames"] = growth / (0.75 * static_cast<double>(frames) / 1000.0);
  if (c.cleanRuns != c.runs) state.SkipWithError("a run did not end cleanly");
}

const int kRegistered = [] {
  const char* env = std::getenv("VORREL_SOAK_BENCH_FRAMES");
  const long frames = env ? std::strtol(env, nullptr, 10) : 40000;
  benchmark::RegisterBenchmark("BM_SoakMemoryGrowth", BM_SoakMemoryGrowth)
      ->Arg(frames > 0 ? frames : 40000)
      ->Iterations(1)
      ->Unit(benchmark::kSecond);
  return 0;
}();

}  // namespace

// The front end's costs beside the 16.7 ms of a frame: one menu frame on the
// options page with every click burst alive, and the headless wall time from
// start-up to the first menu frame (loading and the whole introduction,
// which reads no input).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/bench_support.h"
#include "core/random.h"
#include "display/surface.h"
#include "frontend/front_state.h"
#include "frontend/menu.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace {

void BM_MenuFrameWithSparks(benchmark::State& state) {
  if (!benchsupport::LoadCatalogue()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  display::LoadSurface(display::Display.Backdrop, "\\graphics\\menu.bmp", 800, 600);
  frontend::Front.MenuPage = 0;
  input::Controls.PointerX = 600;  // over the variant buttons: they pulse
  input::Controls.PointerY = 150;
  core::Randomize(1);
  for (auto _ : state) {
    state.PauseTiming();
    // Five bursts of 100 sparks, all alive.
    for (int i = 0; i <= 500; ++i) {
      game::DebrisRecord& s = game::Game.Debris[i];
      s.X = 100 + core::RandomInt(600);
      s.Y = 100 + core::RandomInt(400);
      s.DX = core::RandomInt(3000, 1) / 1000.0;
      s.DY = core::RandomInt(3000, 1) / 1000.0;
      s.Size = core::RandomInt(12500, 1) / 1000.0;
    }
    state.ResumeTiming();
    frontend::DrawMenu();
    display::PresentFrame(0);
  }
  state.counters["frame_budget_ms"] = 1000.0 / 60.0;
}
BENCHMARK(BM_MenuFrameWithSparks)->Unit(benchmark::kMillisecond)->MinTime(0.2);

void BM_StartUpToFirstMenuFrame(benchmark::State& state) {
  const std::string data = VORREL_TEST_DATA;
  if (!std::filesystem::is_directory(data + "/graphics")) {
    state.SkipWithError("no generated data folder");
    return;
  }
  const std::string dir = std::filesystem::temp_directory_path() / "vorrel-bench-menu";
  std::filesystem::create_directories(dir);
  std::ofstream(dir + "/s.vs") << "@menu quit\n";
  const std::string cmd = std::string(VORREL_BINARY) + " --headless --seed 1 --data '" + data + "' --home '" + dir +
                          "/home' --script '" + dir + "/s.vs' --dump '" + dir + "/d.json' >/dev/null 2>&1";
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    if (std::system(cmd.c_str()) != 0) state.SkipWithError("the program failed");
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
}
BENCHMARK(BM_StartUpToFirstMenuFrame)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

}  // namespace

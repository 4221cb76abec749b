// The worst single frame of the line check's animations, headless, beside
// the 16.7 ms a frame has at 60 Hz: a four-row clear that brings a level-up
// (the new background is read and darkened before the next frame), and a
// Type C detonation at height 15 (reloaded bomb, new background, 20 garbage
// rows of 260 falling blocks, 96 holes).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

#include "bench/bench_support.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "core/hooks.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/line_check.h"
#include "game/playfield.h"
#include "platform/backend.h"
#include "platform/paths.h"

namespace {

void PrepareField(int playType, int level) {
  core::Settings.GameVariant = 0;
  core::Settings.PlayType = static_cast<int16_t>(playType);
  core::Settings.Level = static_cast<int16_t>(level);
  core::Settings.Difficulty = 0;
  core::Settings.MusicOn = 0;  // no track table here
  game::PrepareGame();
  display::FillSurface(display::Assets.FieldSurfaces[0], display::Display.WholeRect, 0);
  game::Game.PieceKind = 0;
  game::Game.LevelUpPending = 0;
  game::Game.HideBomb = 0;
}

void Row(int row, const std::string& cells) { game::PaintFieldRow(row, cells); }

// Runs one line check and the caller's next frame; the worst frame of it.
template <class Setup>
void WorstFrame(benchmark::State& state, Setup setup) {
  if (!benchsupport::LoadCatalogue()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  double worst = 0;
  long frames = 0, worstAt = 0;
  double total = 0;
  for (auto _ : state) {
    state.PauseTiming();
    setup();
    state.ResumeTiming();
    benchsupport::TimeFrames();
    const auto start = std::chrono::steady_clock::now();
    game::CheckLine();
    game::DrawPlayfield();
    display::PresentFrame(0);
    total += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    if (benchsupport::WorstFrameMs() > worst) {
      worst = benchsupport::WorstFrameMs();
      worstAt = benchsupport::WorstFrame();
    }
    frames = benchsupport::FramesSeen();
  }
  state.counters["worst_frame_ms"] = worst;
  state.counters["frame_budget_ms"] = 1000.0 / 60.0;
  state.counters["frames"] = static_cast<double>(frames);
  state.counters["worst_frame_no"] = static_cast<double>(worstAt);
  state.counters["mean_frame_ms"] = frames ? total / static_cast<double>(frames * state.iterations()) : 0;
}

void BM_FourRowsWithLevelUp(benchmark::State& state) {
  WorstFrame(state, [] {
    PrepareField(0, 3);
    game::Game.Lines = 36;
    for (int row = 10; row <= 16; ++row) Row(row, "######.######");
    for (int row = 17; row <= 20; ++row) Row(row, "#############");
  });
}
BENCHMARK(BM_FourRowsWithLevelUp)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_BombDetonation(benchmark::State& state) {
  WorstFrame(state, [] {
    PrepareField(2, 5);
    core::Settings.StartHeight = 15;
    for (int row = 2; row <= 18; ++row) Row(row, "######.######");
    Row(19, "######..#####");
    Row(20, "######..#####");
  });
}
BENCHMARK(BM_BombDetonation)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

// The worst single frame of each bonus effect, headless, beside the 16.7 ms
// a frame has at 60 Hz: the bomb's fireball over a flying square, a
// SingleFall rain of thirteen blocks, the earthquake's swelling sprite over
// a shaken full field, and the column and line sweeps.
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "bench/bench_support.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "bonus/bonus_state.h"
#include "bonus/effects.h"
#include "core/hooks.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "platform/backend.h"
#include "platform/paths.h"

namespace {

// A Bonus A game at level 5 with a stack in rows 8..20, the piece in place.
void Prepare(int kind, int x, int y, int flip) {
  core::Settings.GameVariant = 1;
  core::Settings.PlayType = 0;
  core::Settings.Level = 5;
  core::Settings.MusicOn = 0;  // no track table here
  game::PrepareGame();
  display::FillSurface(display::Assets.FieldSurfaces[0], display::Display.WholeRect, 0);
  for (int row = 8; row <= 20; ++row) game::PaintFieldRow(row, row % 2 ? "##.##.####.##" : "#.######.####");
  game::GameState& g = game::Game;
  g.PieceKind = static_cast<int16_t>(kind);
  g.PieceRot = 0;
  g.PieceFuse = 0;
  g.PieceX = static_cast<int16_t>(x);
  g.PieceY = static_cast<int16_t>(y);
  g.FlipAction = static_cast<int16_t>(flip);
  bonus::ResetSparks();
}

void WorstFrame(benchmark::State& state, int kind, int x, int y, int flip) {
  if (!benchsupport::LoadCatalogue()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  double worst = 0;
  long frames = 0;
  for (auto _ : state) {
    state.PauseTiming();
    Prepare(kind, x, y, flip);
    state.ResumeTiming();
    benchsupport::TimeFrames();
    bonus::RunBonusEffect();
    if (benchsupport::WorstFrameMs() > worst) worst = benchsupport::WorstFrameMs();
    frames = benchsupport::FramesSeen();
  }
  state.counters["worst_frame_ms"] = worst;
  state.counters["frame_budget_ms"] = 1000.0 / 60.0;
  state.counters["frames"] = static_cast<double>(frames);
}

void BM_BombLand(benchmark::State& s) { WorstFrame(s, 12, 80, 120, 0); }
void BM_ColumnClear(benchmark::State& s) { WorstFrame(s, 13, 80, 100, 0); }
void BM_ColumnFill(benchmark::State& s) { WorstFrame(s, 13, -40, 0, 1); }
void BM_SingleClear(benchmark::State& s) { WorstFrame(s, 14, 80, 300, 0); }
void BM_SingleFallRain(benchmark::State& s) { WorstFrame(s, 14, 80, 100, 1); }
void BM_EarthquakeSwell(benchmark::State& s) { WorstFrame(s, 15, 100, 100, 1); }
BENCHMARK(BM_BombLand)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ColumnClear)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ColumnFill)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SingleClear)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SingleFallRain)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_EarthquakeSwell)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

// Wickory's heavy frames, headless, beside the 16.7 ms a frame has at 60 Hz:
// one shown crawl frame (five sweeps and the frame) on fields packed with
// fuse, and the worst frame of a success with four charges and a large rock.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "bench/bench_support.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "fuse/crawl.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_game.h"
#include "fuse/fuse_state.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"

namespace {

using display::Assets;

void Prepare() {
  core::Settings.GameVariant = 2;
  core::Settings.PlayType = 0;
  core::Settings.Level = 5;
  core::Settings.StartHeight = 0;
  core::Settings.MusicOn = 0;
  game::PrepareGame();
  display::FillSurface(Assets.FieldSurfaces[0], display::Display.WholeRect, 0);
  fuse::Fuse.ChargeCount = 0;
  game::Game.PieceKind = 13;
  game::Game.PieceRot = 0;
  game::Game.PieceFuse = 0;
}

// The detonator's cell at (col, row).
void PlaceDetonator(int col, int row) {
  game::Game.PieceX = static_cast<int16_t>(20 * col - 40);
  game::Game.PieceY = static_cast<int16_t>(20 * row - 20);
}

// Every cell a charge (junctions on all four sides of every cell), or every
// pixel fuse (the widest front, the head table at its limit).
void PackedField(bool solid) {
  Prepare();
  PlaceDetonator(6, 10);
  if (!solid)
    for (int row = 0; row <= 20; ++row)
      for (int col = 0; col <= 12; ++col)
        if (col != 6 || row != 10) fuse::StampPiece(12, 0, 0, col - 2, row - 1);
  fuse::StartCrawl();
  if (solid)
    display::FillSurface(Assets.FieldSurfaces[0], display::Display.WholeRect,
                         static_cast<uint16_t>(fuse::Fuse.FuseColour1));
}

void CrawlFrame(benchmark::State& state, bool solid) {
  if (!benchsupport::LoadCatalogue()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  // Run the crawl to its widest shown frame, then time that frame again and again.
  PackedField(solid);
  std::vector<uint16_t> widestField;
  fuse::FuseState widest = fuse::Fuse;
  int most = 0;
  for (int sweep = 0; fuse::Fuse.FireHeadCount > 0; ++sweep) {
    if (sweep % 5 == 0 && fuse::Fuse.FireHeadCount > most) {
      most = fuse::Fuse.FireHeadCount;
      widest = fuse::Fuse;
      widestField = Assets.FieldSurfaces[0].Pixels;
    }
    fuse::Sweep();
  }
  for (auto _ : state) {
    state.PauseTiming();
    fuse::Fuse = widest;
    Assets.FieldSurfaces[0].Pixels = widestField;
    state.ResumeTiming();
    for (int i = 0; i < 5; ++i) fuse::Sweep();
    fuse::ShowDetonationFrame();
  }
  state.counters["heads"] = most;
  state.counters["frame_budget_ms"] = 1000.0 / 60.0;
}

void BM_CrawlFrameChargeGrid(benchmark::State& s) { CrawlFrame(s, false); }
void BM_CrawlFrameSolidFuse(benchmark::State& s) { CrawlFrame(s, true); }
BENCHMARK(BM_CrawlFrameChargeGrid)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(BM_CrawlFrameSolidFuse)->Unit(benchmark::kMillisecond)->Iterations(50);

// Four charges stacked in column 0, rows 17..20, bars beside them to the
// detonator at (9, 20) and to column 12: 48 cells burn, and the seed below
// draws the large rock (rock_cells says which fell).
constexpr uint32_t kSeed = 2;  // drops the 3 x 3 rock

void BM_SuccessWorstFrame(benchmark::State& state) {
  if (!benchsupport::LoadCatalogue()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  auto setUp = [] {
    Prepare();
    for (int row = 17; row <= 20; ++row) {
      fuse::StampPiece(12, 0, 0, -2, row - 1);
      for (int col = 1; col <= 9; col += 4)
        if (row != 20 || col != 9) fuse::StampPiece(0, 0, 0, col, row - 1);
    }
    PlaceDetonator(9, 20);
  };
  double worst = 0;
  long frames = 0;
  for (auto _ : state) {
    state.PauseTiming();
    setUp();
    core::Randomize(kSeed);
    state.ResumeTiming();
    benchsupport::TimeFrames();
    fuse::CheckFuse();
    worst = std::max(worst, benchsupport::WorstFrameMs());
    frames = benchsupport::FramesSeen();
  }
  state.counters["worst_frame_ms"] = worst;
  state.counters["frame_budget_ms"] = 1000.0 / 60.0;
  state.counters["frames"] = static_cast<double>(frames);
  state.counters["charges_lit"] = fuse::Fuse.LitCount;
  state.counters["burnt_cells"] = fuse::Fuse.BurntCells;
  // Everything else flew or exploded: what stands is the rock.
  int rock = 0;
  for (int y = 10; y < 420; y += 20)
    for (int x = 10; x < 260; x += 20) rock += game::Occupied(x, y) ? 1 : 0;
  state.counters["rock_cells"] = rock;
}
BENCHMARK(BM_SuccessWorstFrame)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

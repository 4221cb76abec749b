// One whole pass of the falling-piece loop on a busy Bonus field, headless:
// the control check, the probes of the four collision tests and the danger
// check, the playfield drawing, the piece and the present. Beside it, in the
// same run, a plain memcpy of the bytes the pass writes. The pass should stay
// under 1 ms and within a few times that copy.
#include <benchmark/benchmark.h>

#include "bench/bench_support.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "audio/audio_devices.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/playfield.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/paths.h"

namespace {

using Clock = std::chrono::steady_clock;

bool Ready() {
  static int ready = -1;
  if (ready >= 0) return ready == 1;
  ready = benchsupport::LoadCatalogue() ? 1 : 0;
  if (!ready) return false;
  std::string failed;
  input::InitInput(failed);
  return true;
}

// A Bonus A game at level 10 with a ragged stack up to row 5, a piece in
// mid-air and a banner on its way in.
void BusyField() {
  core::MenuSettings& s = core::Settings;
  s.GameVariant = 1;
  s.PlayType = 0;
  s.Level = 10;
  s.StartHeight = 0;
  s.MusicOn = 0;
  game::PrepareGame();
  static const char* const kRows[4] = {"0123401234.12", "#.3#4#0#1#2#3", "41.0314.21302", "2#4#0.1#3#4#1"};
  for (int row = 0; row <= 20; ++row) game::PaintFieldRow(row, row < 5 ? "............." : kRows[row % 4]);
  game::GameState& g = game::Game;
  g.KindCount = 13;
  g.NextKind = 7;
  g.NextPos[0] = 291;
  g.NextPos[1] = 48;
  g.PieceKind = 8;
  g.PieceRot = 1;
  g.PieceX = 100;
  g.PieceY = 40;
  g.Score = 987654;
  g.ScoreShown = 900000;
  g.Lines = 107;
  g.LinesShown = 100;
  g.FlashSlide = 60;
  g.FlashX = 201;
  g.FlashY = 75;
  g.FlashW = 220;
  g.FlashH = 40;
}

// The pass without its waits: every test probes five cells, the danger check
// its 91.
void PlayPass() {
  const game::GameState& g = game::Game;
  input::ControlCheck();
  for (int test = 0; test < 4; ++test)
    for (int i = 0; i <= 4; ++i)
      benchmark::DoNotOptimize(game::Occupied(g.PieceX + 10 + 20 * (i % 4) + (test - 1) * 20, g.PieceY + 10 + 20 * i));
  for (int y = 10; y <= 130; y += 20)
    for (int x = 10; x <= 250; x += 20) benchmark::DoNotOptimize(game::Occupied(x, y));
  game::DrawPlayfield();
  game::DrawPiece();
  display::PresentFrame(0);
}

// Bytes the pass writes: the back buffer refilled from the backdrop, the
// field, frame, panel, preview, piece, three animated sprite squares, four
// labels with their digits and the banner.
size_t PassBytes() {
  size_t px = 800 * 600 + 260 * 420 + 308 * 593 + 70 * 480 + 40 * 40 + 80 * 80 + 40 * 40 + 2 * 20 * 20;
  px += 95 * 35 + 111 * 36 + 106 * 34 + 123 * 47 + (6 + 3 + 2 + 1) * 29 * 36 + 220 * 40;
  return 2 * px;
}

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v.empty() ? 0 : v[v.size() / 2];
}

void BM_PlayPassOnABusyBonusField(benchmark::State& state) {
  if (!Ready()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  BusyField();
  const size_t bytes = PassBytes();
  std::vector<uint8_t> from(bytes, 1), to(bytes);
  std::vector<double> pass, copy;
  for (auto _ : state) {
    game::Game.ScoreShown = 900000;  // keep the counters walking
    game::Game.FlashSlide = 60;
    auto t0 = Clock::now();
    PlayPass();
    auto t1 = Clock::now();
    std::memcpy(to.data(), from.data(), bytes);
    benchmark::DoNotOptimize(to.data());
    auto t2 = Clock::now();
    pass.push_back(std::chrono::duration<double, std::milli>(t1 - t0).count());
    copy.push_back(std::chrono::duration<double, std::milli>(t2 - t1).count());
    from[pass.size() % bytes] ^= 1;
  }
  const double p = Median(pass), c = Median(copy);
  state.counters["pass_median_ms"] = p;
  state.counters["copy_median_ms"] = c;
  state.counters["pass_over_copy"] = c > 0 ? p / c : 0;
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_PlayPassOnABusyBonusField)->Unit(benchmark::kMicrosecond)->Iterations(2000);

}  // namespace

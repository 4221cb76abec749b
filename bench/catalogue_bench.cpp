// The whole catalogue: every picture decoded, scaled and cut, every sound
// buffer made, headless (its 43 progress frames cost next to nothing there).
#include <benchmark/benchmark.h>

#include "bench/bench_support.h"
#include "frame/catalogue.h"

namespace {

void BM_LoadCatalogue(benchmark::State& state) {
  if (!benchsupport::OpenHeadless()) {
    state.SkipWithError("no generated data folder");
    return;
  }
  for (auto _ : state) {
    frame::CreateGraphics();
    frame::CreateSound();
  }
}
BENCHMARK(BM_LoadCatalogue)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

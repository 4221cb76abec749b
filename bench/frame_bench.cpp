// What one frame costs to compose, beside the cost of plainly copying the
// same number of bytes: the play-like frame should stay within a few times
// that floor and well under a millisecond.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "display/surface.h"
#include "frame/catalogue.h"

using namespace display;

namespace {

struct Scene {
  Surface back, backdrop, field, frameArt, panel, stats;
  std::vector<Surface> glyphs;
  size_t bytes = 0;  // bytes the play-like frame moves

  Scene() {
    CreateBlankSurface(back, 800, 600);
    back.HasClipper = true;
    back.ClipRect = {0, 0, 800, 600};
    CreateBlankSurface(backdrop, 800, 600);
    for (size_t i = 0; i < backdrop.Pixels.size(); ++i) backdrop.Pixels[i] = static_cast<uint16_t>(i * 2654435761u >> 16);
    Checker(field, 260, 420, 20);
    Checker(frameArt, 300, 580, 7);
    Checker(panel, 70, 480, 3);
    Checker(stats, 70, 20, 2);
    for (int i = 0; i < 12; ++i) {
      glyphs.emplace_back();
      Checker(glyphs.back(), 29, 36, 4);
    }
    bytes = 2 * (800 * 600 + 260 * 420 + 300 * 580 + 70 * 480 + 70 * 20 + 12 * 29 * 36);
  }
  // Half the pixels keyed, as sprites and frames are.
  static void Checker(Surface& s, int w, int h, int cell) {
    CreateBlankSurface(s, w, h);
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x) s.Row(y)[x] = ((x / cell + y / cell) & 1) ? 0 : static_cast<uint16_t>(0x1234 + x);
  }
};

void BM_PlayLikeFrame(benchmark::State& state) {
  Scene sc;
  for (auto _ : state) {
    BltOpaque(sc.back, 0, 0, 800, 600, sc.backdrop, 0, 0, 800, 600);
    BltKeyed(sc.back, 181, 147, 260, 420, sc.field, 0, 0, 260, 420);
    BltKeyed(sc.back, 160, 7, 300, 580, sc.frameArt, 0, 0, 300, 580);
    BltKeyed(sc.back, 30, 90, 70, 480, sc.panel, 0, 0, 70, 480);
    BltKeyed(sc.back, 30, 60, 70, 20, sc.stats, 0, 0, 70, 20);
    for (int i = 0; i < 12; ++i) BltKeyed(sc.back, 750 - 27 * (i % 8), 250 + 100 * (i / 8), 29, 36, sc.glyphs[i], 0, 0, 29, 36);
    benchmark::DoNotOptimize(sc.back.Pixels.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sc.bytes));
}
BENCHMARK(BM_PlayLikeFrame)->Unit(benchmark::kMicrosecond);

void BM_PlainCopyOfTheSameBytes(benchmark::State& state) {
  Scene sc;
  std::vector<uint8_t> from(sc.bytes, 1), to(sc.bytes);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), sc.bytes);
    benchmark::DoNotOptimize(to.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sc.bytes));
}
BENCHMARK(BM_PlainCopyOfTheSameBytes)->Unit(benchmark::kMicrosecond);

void BM_LoadingScreenFrame(benchmark::State& state) {
  Surface& back = Display.BackBuffer;
  CreateBlankSurface(back, 800, 600);
  back.HasClipper = true;
  back.ClipRect = {0, 0, 800, 600};
  for (auto _ : state) {
    FillSurface(back, Display.WholeRect, 0);
    for (int n = 0; n < 10; ++n) {
      SetForeColour(back, 0, 255 - 20 * n, 0);
      SetFillColour(back, 0, 255 - 20 * n, 0);
      DrawBox(back, 0, 280 + 5 * n, 600 - 5 * n, 285 + 5 * n);
    }
    frame::DrawLoadingTexts();
    benchmark::DoNotOptimize(back.Pixels.data());
  }
}
BENCHMARK(BM_LoadingScreenFrame)->Unit(benchmark::kMicrosecond);

}  // namespace

// The whole catalogue: every picture decoded, scaled and cut, every sound
// buffer made, headless (its 43 progress frames cost next to nothing there).
#include <benchmark/benchmark.h>

#include <filesystem>

#include "audio/audio_devices.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "automation/automation.h"
#include "frame/catalogue.h"
#include "automation/options.h"
#include "platform/paths.h"
#include "platform/backend.h"

namespace {

void BM_LoadCatalogue(benchmark::State& state) {
  const std::string data = VORREL_TEST_DATA;
  if (!std::filesystem::is_directory(data + "/graphics")) {
    state.SkipWithError("no generated data folder");
    return;
  }
  platform::SetCurrent(platform::MakeHeadlessBackend());
  automation::Options none;
  automation::Configure(none);
  platform::SetDataFolder(data);
  std::string failed;
  display::InitDisplay(failed);
  display::CreateBlankSurface(display::Display.Backdrop, 800, 600);
  display::Text.GlyphOrder = display::MakeGlyphOrder();
  audio::OpenAudioDevices(true);
  for (auto _ : state) {
    frame::CreateGraphics();
    frame::CreateSound();
  }
}
BENCHMARK(BM_LoadCatalogue)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

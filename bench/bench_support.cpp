#include "bench/bench_support.h"

#include <chrono>
#include <filesystem>
#include <string>

#include "audio/audio_devices.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "core/hooks.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "platform/backend.h"
#include "platform/paths.h"

namespace benchsupport {
namespace {

using Clock = std::chrono::steady_clock;
Clock::time_point lastFrame;
double worstMs = 0;
long worstFrame = 0;
long framesSeen = 0;

void NoteFrame() {
  const auto now = Clock::now();
  const double ms = std::chrono::duration<double, std::milli>(now - lastFrame).count();
  ++framesSeen;
  if (ms > worstMs) {
    worstMs = ms;
    worstFrame = framesSeen;
  }
  lastFrame = now;
}

}  // namespace

bool OpenHeadless() {
  static int opened = -1;
  if (opened >= 0) return opened == 1;
  const std::string data = VORREL_TEST_DATA;
  opened = std::filesystem::is_directory(data + "/graphics") ? 1 : 0;
  if (!opened) return false;
  platform::SetCurrent(platform::MakeHeadlessBackend());
  automation::Options none;
  automation::Configure(none);
  platform::SetDataFolder(data);
  std::string failed;
  display::InitDisplay(failed);
  display::CreateBlankSurface(display::Display.Backdrop, 800, 600);
  display::Text.GlyphOrder = display::MakeGlyphOrder();
  audio::OpenAudioDevices(true);
  return true;
}

bool LoadCatalogue() {
  if (!OpenHeadless()) return false;
  if (!display::Assets.FieldSurfaces[0].Exists()) {
    frame::CreateGraphics();
    frame::CreateSound();
  }
  return true;
}

void TimeFrames() {
  core::Hooks.FrameMoment = NoteFrame;
  ResetFrames();
}

void ResetFrames() {
  lastFrame = Clock::now();
  worstMs = 0;
  worstFrame = 0;
  framesSeen = 0;
}

double WorstFrameMs() { return worstMs; }
long WorstFrame() { return worstFrame; }
long FramesSeen() { return framesSeen; }

}  // namespace benchsupport

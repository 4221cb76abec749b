#include "bench/bench_support.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "audio/audio_devices.h"
#include "audio/music.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "core/hooks.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "game/game_state.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/paths.h"

namespace benchsupport {
namespace {

using Clock = std::chrono::steady_clock;
Clock::time_point firstFrame, lastFrame;
double worstMs = 0;
long worstFrame = 0;
long framesSeen = 0;
long frameLimit = 0;
std::vector<double> gaps;

void NoteFrame() {
  const auto now = Clock::now();
  const double ms = std::chrono::duration<double, std::milli>(now - lastFrame).count();
  ++framesSeen;
  gaps.push_back(ms);
  if (ms > worstMs) {
    worstMs = ms;
    worstFrame = framesSeen;
  }
  lastFrame = now;
  if (frameLimit > 0 && framesSeen >= frameLimit) platform::RequestQuit();
}

enum class Opened { None, Headless, Window, NoData, WindowFailed };
Opened opened = Opened::None;

bool HaveData() { return std::filesystem::is_directory(std::string(VORREL_TEST_DATA) + "/graphics"); }

// The start-up handler's share that both back ends need.
bool OpenDisplayAndSound(bool silent, std::string& failed) {
  platform::SetDataFolder(VORREL_TEST_DATA);
  if (!display::InitDisplay(failed)) return false;
  display::CreateBlankSurface(display::Display.Backdrop, 800, 600);
  display::Text.GlyphOrder = display::MakeGlyphOrder();
  audio::OpenAudioDevices(silent);
  return true;
}

}  // namespace

bool OpenHeadless() {
  if (opened == Opened::None) {
    if (!HaveData()) {
      opened = Opened::NoData;
      return false;
    }
    opened = Opened::Headless;
    platform::SetCurrent(platform::MakeHeadlessBackend());
    automation::Options none;
    automation::Configure(none);
    std::string failed;
    OpenDisplayAndSound(true, failed);
  }
  return opened == Opened::Headless;
}

bool OpenWindow(std::string& why) {
  if (opened == Opened::Window) return true;
  if (opened == Opened::Headless) why = "the headless back end is open in this process: run the window benchmarks alone";
  if (opened == Opened::NoData || !HaveData()) why = "no generated data folder";
  if (opened == Opened::None && std::getenv("DISPLAY") == nullptr) why = "no Xvfb, and no DISPLAY";
  if (opened == Opened::WindowFailed) why = "the window did not open";
  if (!why.empty()) return false;
  opened = Opened::Window;
  // A scratch home: the menu's files are read and written there, never the player's.
  const auto home = std::filesystem::temp_directory_path() / "vorrel-bench-window-home";
  std::filesystem::remove_all(home);
  platform::SetHomeFolder(home.string());
  // Sound as on a player's machine (the soundfont loaded, the music mixed on
  // its thread), into SDL's dummy device: no sound card needed, no noise.
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  platform::SetCurrent(platform::MakeSdlBackend(true));
  automation::Options none;
  automation::Configure(none);
  if (!OpenDisplayAndSound(false, why) || !input::InitInput(why)) {
    opened = Opened::WindowFailed;
    return false;
  }
  audio::InitAudio();
  audio::FillTrackTable();
  game::FillDropDelay();
  frame::CreateGraphics();
  frame::CreateSound();
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

void CloseWindow() {
  if (opened == Opened::Window) audio::ShutdownAudio();  // joins the soundfont's loader
}

void TimeFrames(long limit) {
  core::Hooks.FrameMoment = NoteFrame;
  frameLimit = limit;
  ResetFrames();
}

void ResetFrames() {
  firstFrame = lastFrame = Clock::now();
  worstMs = 0;
  worstFrame = 0;
  framesSeen = 0;
  gaps.clear();
  gaps.reserve(static_cast<size_t>(std::max(frameLimit, 1000L)));
}

double WorstFrameMs() { return worstMs; }
long WorstFrame() { return worstFrame; }
long FramesSeen() { return framesSeen; }

double MedianFrameMs() {
  if (gaps.empty()) return 0;
  std::vector<double> sorted = gaps;
  std::nth_element(sorted.begin(), sorted.begin() + static_cast<long>(sorted.size() / 2), sorted.end());
  return sorted[sorted.size() / 2];
}

long GapsOverMs(double ms) { return std::count_if(gaps.begin(), gaps.end(), [ms](double g) { return g > ms; }); }

double TimedMs() { return std::chrono::duration<double, std::milli>(lastFrame - firstFrame).count(); }

}  // namespace benchsupport

#include "display/passes.h"

#include "display/surface.h"
#include "core/hooks.h"
#include "core/errors.h"
#include "platform/backend.h"
#include "platform/clock.h"

namespace display {

namespace {
uint64_t frames = 0;

void Pace() {
  platform::Backend& b = platform::Current();
  b.PaceTo(static_cast<double>(platform::ClockUnits()) / 60.0);
  b.PumpEvents();
}

void QuitIfAsked() {
  if (platform::QuitRequested()) throw core::OrderlyQuit{};
}
}  // namespace

void FramePresented() {
  ++frames;
  platform::AdvanceClock(platform::kUnitsPerFrame);
  Pace();
  core::FrameMoment();
  QuitIfAsked();
}

void IdlePass() {
  display::Surface& front = display::Display.PrimarySurface;
  if (display::Display.FrontDirty && front.Exists()) {
    platform::Current().ShowPicture(front.Pixels.data());
    display::Display.FrontDirty = false;
  }
  platform::AdvanceClock(platform::kUnitsPerPass);
  Pace();
  core::IdleMoment();
  QuitIfAsked();
}

void WaitMs(uint32_t ms) {
  const uint32_t start = GetTick();
  while (GetTick() - start < ms) IdlePass();
}

uint64_t FramesPresented() { return frames; }
uint32_t GetTick() { return platform::TickMs(); }

void YieldToSystem() {
  platform::Current().PumpEvents();
  QuitIfAsked();
}

}  // namespace display

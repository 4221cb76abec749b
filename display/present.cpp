// The flip chain: the back buffer is composed, presented, and refilled.
#include <utility>

#include "display/surface.h"
#include "core/errors.h"
#include "display/passes.h"
#include "platform/backend.h"

namespace display {

bool InitDisplay(std::string& failedCall) {
  if (!platform::Current().OpenDisplay(failedCall)) return false;
  const int w = platform::kScreenWidth, h = platform::kScreenHeight;
  CreateBlankSurface(Display.PrimarySurface, w, h, 0);
  CreateBlankSurface(Display.BackBuffer, w, h, 0);
  NameSurface(Display.PrimarySurface, "PrimarySurface");
  NameSurface(Display.BackBuffer, "BackBuffer");
  Display.BackBuffer.HasClipper = true;  // the screen clipper
  Display.BackBuffer.ClipRect = {0, 0, w, h};
  SetForeColour(Display.BackBuffer, 255, 255, 255);
  Display.FrontDirty = false;
  return true;
}

void PresentFrame(int mode) {
  Surface& front = Display.PrimarySurface;
  Surface& back = Display.BackBuffer;
  if (!front.Exists() || !back.Exists()) core::Fail("PresentFrame before the display exists");
  // The flip: the composed picture becomes the one on screen.
  std::swap(front.Pixels, back.Pixels);
  platform::Current().ShowPicture(front.Pixels.data());
  platform::Current().FramePresented();
  Display.FrontDirty = false;
  if (mode <= 0) {
    if (!Display.Backdrop.Exists()) core::Fail("PresentFrame(0) without a backdrop");
    const Rect r = Display.ScreenRect;  // a script may narrow it
    const int32_t w = r.Right - r.Left, h = r.Bottom - r.Top;
    BltOpaque(back, r.Left, r.Top, w, h, Display.Backdrop, r.Left, r.Top, w, h);
  } else {
    FillSurface(back, Display.WholeRect, static_cast<uint16_t>(mode - 1));
  }
  display::FramePresented();
}

void ShutdownDirectX() {
  platform::Current().SetMouseCaptured(false);
  platform::Current().CloseDisplay();
}

}  // namespace display

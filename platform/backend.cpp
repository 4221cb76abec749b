#include "platform/backend.h"

#include <algorithm>
#include <cstdlib>

namespace platform {
namespace {
std::unique_ptr<Backend> current;
bool quitRequested = false;
}  // namespace

Backend& Current() {
  if (!current) std::abort();  // the program sets a back end before anything runs
  return *current;
}

void SetCurrent(std::unique_ptr<Backend> backend) { current = std::move(backend); }

void RequestQuit() { quitRequested = true; }
bool QuitRequested() { return quitRequested; }
void ClearQuitRequest() { quitRequested = false; }

int32_t ScaleJoystickAxis(int32_t raw) {
  // Dead zone 10 % and saturation 95 % of the travel, then -1000..1000.
  double v = std::clamp(raw / 32767.0, -1.0, 1.0);
  double a = v < 0 ? -v : v;
  if (a <= 0.10) return 0;
  double scaled = std::min(1.0, (a - 0.10) / (0.95 - 0.10));
  int32_t out = static_cast<int32_t>(scaled * 1000.0 + 0.5);
  return v < 0 ? -out : out;
}

}  // namespace platform

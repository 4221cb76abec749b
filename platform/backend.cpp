#include "platform/backend.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace platform {
namespace {
std::unique_ptr<Backend> current;
bool quitRequested = false;
// Set by the signal handler, so only a sig_atomic_t written once; the passes read it.
volatile std::sig_atomic_t quitSignalled = 0;

extern "C" void OnQuitSignal(int) { quitSignalled = 1; }
}  // namespace

Backend& Current() {
  if (!current) std::abort();  // the program sets a back end before anything runs
  return *current;
}

void SetCurrent(std::unique_ptr<Backend> backend) { current = std::move(backend); }

void RequestQuit() { quitRequested = true; }
bool QuitRequested() { return quitRequested || quitSignalled != 0; }
void ClearQuitRequest() {
  quitRequested = false;
  quitSignalled = 0;
}

void CatchQuitSignals() {
  struct sigaction action = {};
  action.sa_handler = OnQuitSignal;
  sigemptyset(&action.sa_mask);
  // The first signal asks for the orderly quit; a second one, should the
  // game not get there, ends the process as usual.
  action.sa_flags = SA_RESETHAND | SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGINT, &action, nullptr);
}

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

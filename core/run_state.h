// Whether the program goes on: the menu's exit tab and F10 clear it, and the
// main driver ends once it is clear.
#pragma once

namespace core {

struct RunState {
  bool AppRunning = true;
};
extern RunState Run;

}  // namespace core

#pragma once

namespace frame {

// The whole program: command line, start-up handler, GameMain, ExitProgram.
// Returns the process's exit status (0 normal, 1 after a fatal message, 2 bad usage).
int RunProgram(int argc, char** argv);

// Runs body under the catch-all of the main driver: any failure shows the
// error box; every way out ends through ExitProgram. Returns the exit status.
int RunGuarded(void (*body)());

}  // namespace frame

// The command line of the program.
#pragma once
#include "automation/options.h"

namespace frame {

// Parses argv. On bad usage prints a clear message to stderr and returns
// false; the caller exits with status 2. --help prints usage and sets help.
bool ParseCommandLine(int argc, char** argv, automation::Options& out, bool& help);

}  // namespace frame

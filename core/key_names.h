// Key names of scripts and dumps ("Escape", "1", "A", "LShift", "F10", "Up"...)
// by key code, for the keys the game tests.
#pragma once
#include <string>

namespace core {

// Null for a code the game never tests.
const char* KeyName(int code);
// -1 for no such name.
int KeyCode(const std::string& name);

}  // namespace core

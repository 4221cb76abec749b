#pragma once
#include <string>
#include <vector>

namespace frame {

// The 152 lines that scroll up the final screen.
std::vector<std::string> CreditsLines();

}  // namespace frame

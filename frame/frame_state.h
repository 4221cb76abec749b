// The program frame's own state.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace frame {

struct FrameState {
  int32_t LoadStep = 0;                 // creation steps of the catalogue
};
extern FrameState Frame;

// The one-line notice on the loading screens.
inline constexpr const char* kMakersLine = "A Vorrel Works game - made for Linux, 2026";
inline constexpr const char* kLoadingText = "Loading Graphics & Data... Please Wait!";

// Shows a modal message box (after leaving full screen, so it cannot hide
// behind the window) and writes it to stderr; failed names the file or call.
void ShowMessage(const std::string& title, const std::string& text, const std::string& failed = "");

}  // namespace frame

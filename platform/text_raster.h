// Rasterises the surfaces' running text (menus, help pages, loading screen)
// with DejaVu Sans: a coverage mask the display layer blends in the fore colour.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

struct TextMask {
  int width = 0, height = 0;
  std::vector<uint8_t> coverage;  // 0..255, row-major
};

// Returns false (with error) when the font cannot be opened.
bool RasteriseText(const std::string& text, TextMask& out, std::string& error);

}  // namespace platform

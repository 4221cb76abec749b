#pragma once
#include <cstdint>
#include <string>

namespace platform {

// Writes RGB565 pixels as an 8-bit RGB PNG, widening each channel by repeating
// its top bits (so the 16-bit value is the top 5, 6 and 5 bits).
bool WritePng565(const std::string& path, int width, int height, const uint16_t* pixels, std::string& error);

}  // namespace platform

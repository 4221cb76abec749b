// Reading and writing Windows bitmap files as 16-bit RGB565 pixels.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace bmp {

struct Image565 {
  int width = 0;
  int height = 0;
  std::vector<uint16_t> pixels;  // row-major, top row first
  uint16_t at(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
};

// Decodes an uncompressed BMP (1/4/8-bit paletted, 16-bit 555/565, 24-bit, 32-bit).
// Colours are reduced to RGB565 by taking the top bits of each channel, so a
// 24-bit file written from 565 values round-trips exactly. Returns false and
// fills error on any problem.
bool Read(const std::string& path, Image565& out, std::string& error);
bool Decode(const uint8_t* data, size_t size, Image565& out, std::string& error);

// Writes a 16-bit BI_BITFIELDS 565 BMP (exact pixel codes). Writes to a
// temporary file first, so an interrupted run never leaves half a file.
bool Write565(const std::string& path, const Image565& img, std::string& error);

// Nearest-neighbour scaling: destination pixel (x, y) samples source
// (x * sw / dw, y * sh / dh).
Image565 Scale(const Image565& src, int width, int height);

inline uint16_t Pack565(int r8, int g8, int b8) {
  return static_cast<uint16_t>(((r8 >> 3) << 11) | ((g8 >> 2) << 5) | (b8 >> 3));
}
// Widens by repeating the top bits, so Pack565(Widen) is the identity.
inline void Unpack565(uint16_t p, int& r8, int& g8, int& b8) {
  int r5 = p >> 11, g6 = (p >> 5) & 63, b5 = p & 31;
  r8 = (r5 << 3) | (r5 >> 2);
  g8 = (g6 << 2) | (g6 >> 4);
  b8 = (b5 << 3) | (b5 >> 2);
}

}  // namespace bmp

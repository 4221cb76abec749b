// Writes a few small well-formed bitmaps for the fuzzer to start from: the
// 16-bit bitfields files the game writes, and 24-bit and 8-bit paletted ones.
#include <cstdio>
#include <string>
#include <vector>

#include "platform/bmp_file.h"

namespace {

void Put(std::vector<uint8_t>& b, size_t at, uint32_t v, int n) {
  for (int i = 0; i < n; ++i) b[at + i] = static_cast<uint8_t>(v >> (8 * i));
}

// A bottom-up file with a 40-byte header; palette: entries of 4 bytes.
std::vector<uint8_t> Make(int w, int h, int bpp, int paletteEntries) {
  size_t stride = (static_cast<size_t>(w) * bpp + 31) / 32 * 4;
  size_t offset = 54 + 4 * static_cast<size_t>(paletteEntries);
  std::vector<uint8_t> b(offset + stride * h, 0);
  b[0] = 'B';
  b[1] = 'M';
  Put(b, 2, static_cast<uint32_t>(b.size()), 4);
  Put(b, 10, static_cast<uint32_t>(offset), 4);
  Put(b, 14, 40, 4);
  Put(b, 18, static_cast<uint32_t>(w), 4);
  Put(b, 22, static_cast<uint32_t>(h), 4);
  Put(b, 26, 1, 2);
  Put(b, 28, static_cast<uint32_t>(bpp), 2);
  Put(b, 46, static_cast<uint32_t>(paletteEntries), 4);
  for (size_t i = 54; i < b.size(); ++i) b[i] = static_cast<uint8_t>((i * 7) & 0x0F);  // small values: valid palette indexes
  return b;
}

bool Save(const std::string& path, const std::vector<uint8_t>& b) {
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return false;
  bool ok = std::fwrite(b.data(), 1, b.size(), f) == b.size();
  return std::fclose(f) == 0 && ok;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: seed_bitmaps FOLDER\n");
    return 2;
  }
  const std::string dir = argv[1];
  bmp::Image565 img;
  img.width = 3;
  img.height = 2;
  img.pixels = {0x0000, 0xF800, 0x07E0, 0x001F, 0xFFFF, 0x1234};
  std::string error;
  bool ok = bmp::Write565(dir + "/565.bmp", img, error);
  ok = Save(dir + "/24.bmp", Make(3, 2, 24, 0)) && ok;
  ok = Save(dir + "/8.bmp", Make(5, 3, 8, 16)) && ok;
  ok = Save(dir + "/1.bmp", Make(9, 2, 1, 2)) && ok;
  ok = Save(dir + "/32.bmp", Make(2, 2, 32, 0)) && ok;
  if (!ok) std::fprintf(stderr, "seed_bitmaps: cannot write into %s\n", dir.c_str());
  return ok ? 0 : 1;
}

#include "platform/bmp_file.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

namespace bmp {
namespace {

uint32_t U32(const uint8_t* p) { return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t(p[3]) << 24); }
uint16_t U16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | (p[1] << 8)); }

int MaskShift(uint32_t m) {
  int s = 0;
  while (m && !(m & 1)) { m >>= 1; ++s; }
  return s;
}
int MaskBits(uint32_t m) {
  m >>= MaskShift(m);
  int b = 0;
  while (m & 1) { m >>= 1; ++b; }
  return b;
}
// Scales a channel of any width to 8 bits by repeating its top bits.
int Widen(uint32_t v, int bits) {
  if (bits <= 0) return 0;
  if (bits >= 8) return static_cast<int>(v >> (bits - 8));
  int out = 0, filled = 0;
  while (filled < 8) {
    out = (out << bits) | static_cast<int>(v);
    filled += bits;
  }
  return out >> (filled - 8);
}

void Put(std::vector<uint8_t>& b, uint32_t v, int n) {
  for (int i = 0; i < n; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}

}  // namespace

bool Decode(const uint8_t* d, size_t size, Image565& out, std::string& error) {
  // Every size and offset is checked in 64 bits against what is left of the
  // file, so no field of a damaged header can wrap into a pass.
  if (size < 54 || d[0] != 'B' || d[1] != 'M') { error = "not a BMP file"; return false; }
  const uint64_t fileSize = size;
  const uint64_t dataOffset = U32(d + 10);
  const uint64_t headerSize = U32(d + 14);
  if (headerSize < 40 || 14 + headerSize > fileSize) { error = "unsupported BMP header"; return false; }
  int32_t w = static_cast<int32_t>(U32(d + 18));
  int32_t h = static_cast<int32_t>(U32(d + 22));
  int bpp = U16(d + 28);
  uint32_t compression = U32(d + 30);
  uint32_t colours = U32(d + 46);
  if (h == INT32_MIN) { error = "bad BMP dimensions"; return false; }
  bool topDown = h < 0;
  if (topDown) h = -h;
  if (w <= 0 || h <= 0 || w > 16384 || h > 16384) { error = "bad BMP dimensions"; return false; }
  if (compression != 0 && compression != 3) { error = "compressed BMP not supported"; return false; }
  if (bpp != 1 && bpp != 4 && bpp != 8 && bpp != 16 && bpp != 24 && bpp != 32) {
    error = "unsupported bit depth " + std::to_string(bpp);
    return false;
  }
  // What lies between the headers and the pixels: the three masks after a
  // 40-byte header (larger headers hold them inside), or the palette.
  uint64_t headersEnd = 14 + headerSize;
  uint32_t rm = 0, gm = 0, bm = 0;
  if (bpp == 16) { rm = 0x7C00; gm = 0x03E0; bm = 0x001F; }
  if (bpp == 32) { rm = 0xFF0000; gm = 0xFF00; bm = 0xFF; }
  if (compression == 3) {
    if (bpp != 16 && bpp != 32) { error = "bitfields need 16 or 32 bits"; return false; }
    if (14 + 40 + 12 > fileSize) { error = "truncated BMP masks"; return false; }
    const uint8_t* masks = d + 14 + 40;
    rm = U32(masks); gm = U32(masks + 4); bm = U32(masks + 8);
    if (headerSize == 40) headersEnd += 12;
  }
  std::vector<uint16_t> palette;
  if (bpp <= 8) {
    const uint64_t n = colours ? colours : (1u << bpp);
    if (n > 256 || headersEnd + 4 * n > fileSize) { error = "bad BMP palette"; return false; }
    const uint8_t* p = d + headersEnd;
    for (uint64_t i = 0; i < n; ++i) palette.push_back(Pack565(p[4 * i + 2], p[4 * i + 1], p[4 * i]));
    headersEnd += 4 * n;
  }
  if (dataOffset < headersEnd) { error = "BMP pixel data overlaps its headers"; return false; }
  const uint64_t stride = ((static_cast<uint64_t>(w) * bpp + 31) / 32) * 4;
  if (dataOffset > fileSize || stride * h > fileSize - dataOffset) { error = "truncated BMP pixel data"; return false; }
  out.width = w;
  out.height = h;
  out.pixels.assign(static_cast<size_t>(w) * h, 0);
  int rs = MaskShift(rm), gs = MaskShift(gm), bs = MaskShift(bm);
  int rb = MaskBits(rm), gb = MaskBits(gm), bb = MaskBits(bm);
  bool exact565 = bpp == 16 && rm == 0xF800 && gm == 0x07E0 && bm == 0x001F;
  for (int y = 0; y < h; ++y) {
    const uint8_t* row = d + dataOffset + stride * (topDown ? y : h - 1 - y);
    uint16_t* dst = &out.pixels[static_cast<size_t>(y) * w];
    for (int x = 0; x < w; ++x) {
      switch (bpp) {
        case 1: case 4: case 8: {
          int perByte = 8 / bpp;
          int byte = row[x / perByte];
          int shift = 8 - bpp * (x % perByte + 1);
          size_t idx = (byte >> shift) & ((1 << bpp) - 1);
          if (idx >= palette.size()) { error = "BMP palette index out of range"; return false; }
          dst[x] = palette[idx];
          break;
        }
        case 16: {
          uint32_t v = U16(row + 2 * x);
          dst[x] = exact565 ? static_cast<uint16_t>(v)
                            : Pack565(Widen((v & rm) >> rs, rb), Widen((v & gm) >> gs, gb), Widen((v & bm) >> bs, bb));
          break;
        }
        case 24: dst[x] = Pack565(row[3 * x + 2], row[3 * x + 1], row[3 * x]); break;
        case 32: {
          uint32_t v = U32(row + 4 * x);
          dst[x] = Pack565(Widen((v & rm) >> rs, rb), Widen((v & gm) >> gs, gb), Widen((v & bm) >> bs, bb));
          break;
        }
      }
    }
  }
  return true;
}

bool Read(const std::string& path, Image565& out, std::string& error) {
  std::ifstream f(path, std::ios::binary);
  if (!f) { error = "cannot open " + path; return false; }
  std::vector<uint8_t> data((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  if (!Decode(data.data(), data.size(), out, error)) {
    error = path + ": " + error;
    return false;
  }
  return true;
}

bool Write565(const std::string& path, const Image565& img, std::string& error) {
  if (img.width <= 0 || img.height <= 0 || img.pixels.size() != static_cast<size_t>(img.width) * img.height) {
    error = "bad image for " + path;
    return false;
  }
  size_t stride = ((static_cast<size_t>(img.width) * 16 + 31) / 32) * 4;
  uint32_t offset = 14 + 40 + 12;
  std::vector<uint8_t> b;
  b.reserve(offset + stride * img.height);
  b.push_back('B'); b.push_back('M');
  Put(b, static_cast<uint32_t>(offset + stride * img.height), 4);
  Put(b, 0, 4);
  Put(b, offset, 4);
  Put(b, 40, 4);
  Put(b, static_cast<uint32_t>(img.width), 4);
  Put(b, static_cast<uint32_t>(img.height), 4);
  Put(b, 1, 2);
  Put(b, 16, 2);
  Put(b, 3, 4);  // BI_BITFIELDS
  Put(b, static_cast<uint32_t>(stride * img.height), 4);
  Put(b, 2835, 4); Put(b, 2835, 4);
  Put(b, 0, 4); Put(b, 0, 4);
  Put(b, 0xF800, 4); Put(b, 0x07E0, 4); Put(b, 0x001F, 4);
  for (int y = img.height - 1; y >= 0; --y) {
    size_t start = b.size();
    for (int x = 0; x < img.width; ++x) Put(b, img.at(x, y), 2);
    while (b.size() - start < stride) b.push_back(0);
  }
  std::string tmp = path + ".part";
  FILE* f = std::fopen(tmp.c_str(), "wb");
  if (!f) { error = "cannot write " + tmp; return false; }
  bool ok = std::fwrite(b.data(), 1, b.size(), f) == b.size();
  ok = (std::fclose(f) == 0) && ok;
  if (!ok || std::rename(tmp.c_str(), path.c_str()) != 0) {
    std::remove(tmp.c_str());
    error = "cannot write " + path;
    return false;
  }
  return true;
}

Image565 Scale(const Image565& src, int width, int height) {
  Image565 out;
  out.width = width;
  out.height = height;
  out.pixels.resize(static_cast<size_t>(width) * height);
  for (int y = 0; y < height; ++y) {
    int sy = static_cast<int>(static_cast<int64_t>(y) * src.height / height);
    for (int x = 0; x < width; ++x) {
      int sx = static_cast<int>(static_cast<int64_t>(x) * src.width / width);
      out.pixels[static_cast<size_t>(y) * width + x] = src.at(sx, sy);
    }
  }
  return out;
}

}  // namespace bmp

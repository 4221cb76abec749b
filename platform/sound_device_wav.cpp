#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/sound_device.h"

namespace platform {
namespace {

uint32_t Le32(const uint8_t* p) { return p[0] | p[1] << 8 | p[2] << 16 | static_cast<uint32_t>(p[3]) << 24; }
uint16_t Le16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | p[1] << 8); }

bool Fmt(const uint8_t* p, uint32_t size, std::string& why, uint64_t& bytesPerSecond) {
  if (size < 16) return why = "fmt chunk too short", false;
  const uint16_t tag = Le16(p), channels = Le16(p + 2), bits = Le16(p + 14);
  const uint32_t rate = Le32(p + 4);
  const uint16_t align = Le16(p + 12);
  bytesPerSecond = Le32(p + 8) ? Le32(p + 8) : uint64_t{rate} * align;
  // What the mixer decodes: PCM, IEEE float, the two ADPCMs, and the extensible header.
  if (tag != 1 && tag != 3 && tag != 2 && tag != 0x11 && tag != 0xFFFE)
    return why = "unsupported sample format " + std::to_string(tag), false;
  if (channels == 0 || channels > 8) return why = "bad channel count", false;
  if (rate == 0) return why = "bad sample rate", false;
  if (align == 0) return why = "bad block alignment", false;
  if ((tag == 1 || tag == 3) && (bits == 0 || bits > 32 || bits % 8 != 0))
    return why = "bad sample size", false;
  return true;
}

}  // namespace

bool CheckWaveFile(const std::string& path, std::string& why, uint32_t* lengthMs) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return why = "cannot open", false;
  std::vector<uint8_t> b((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (b.size() < 12 || std::string(b.begin(), b.begin() + 4) != "RIFF" ||
      std::string(b.begin() + 8, b.begin() + 12) != "WAVE")
    return why = "not a RIFF/WAVE file", false;
  bool haveFmt = false;
  uint64_t bytesPerSecond = 1;
  size_t pos = 12;
  while (pos + 8 <= b.size()) {
    const std::string id(b.begin() + pos, b.begin() + pos + 4);
    const uint32_t size = Le32(&b[pos + 4]);
    const size_t body = pos + 8;
    if (id == "fmt ") {
      if (body + size > b.size()) return why = "fmt chunk cut short", false;
      if (!Fmt(&b[body], size, why, bytesPerSecond)) return false;
      haveFmt = true;
    } else if (id == "data") {
      if (!haveFmt) return why = "data before fmt", false;
      if (size == 0) return why = "empty data chunk", false;
      if (body + size > b.size()) return why = "data chunk cut short", false;
      if (lengthMs) *lengthMs = static_cast<uint32_t>(uint64_t{size} * 1000 / bytesPerSecond);
      return true;
    }
    pos = body + size + (size & 1);  // chunks are padded to even sizes
  }
  return why = haveFmt ? "no data chunk" : "no fmt chunk", false;
}

}  // namespace platform

#include "tools/assetgen/sound_wav.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace assetgen {
namespace {

void Put16(std::vector<uint8_t>& b, uint32_t v) {
  b.push_back(v & 0xff);
  b.push_back((v >> 8) & 0xff);
}
void Put32(std::vector<uint8_t>& b, uint32_t v) {
  Put16(b, v & 0xffff);
  Put16(b, v >> 16);
}
void PutTag(std::vector<uint8_t>& b, const char* tag) { b.insert(b.end(), tag, tag + 4); }

uint32_t Get32(const uint8_t* p) { return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t(p[3]) << 24); }
uint16_t Get16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | (p[1] << 8)); }

}  // namespace

void WriteWav(const std::string& path, const Pcm& pcm) {
  const uint32_t dataBytes = static_cast<uint32_t>(pcm.s.size() * 2);
  std::vector<uint8_t> b;
  b.reserve(44 + dataBytes);
  PutTag(b, "RIFF");
  Put32(b, 36 + dataBytes);
  PutTag(b, "WAVE");
  PutTag(b, "fmt ");
  Put32(b, 16);
  Put16(b, 1);  // PCM
  Put16(b, 1);  // mono
  Put32(b, pcm.rate);
  Put32(b, pcm.rate * 2);
  Put16(b, 2);
  Put16(b, 16);
  PutTag(b, "data");
  Put32(b, dataBytes);
  for (float x : pcm.s) {
    long v = std::lround(static_cast<double>(x) * 32767.0);
    v = std::clamp(v, -32767L, 32767L);
    Put16(b, static_cast<uint16_t>(static_cast<int16_t>(v)));
  }
  const std::string tmp = path + ".tmp";
  {
    std::ofstream f(tmp, std::ios::binary | std::ios::trunc);
    f.write(reinterpret_cast<const char*>(b.data()), static_cast<std::streamsize>(b.size()));
    if (!f) throw std::runtime_error("cannot write " + tmp);
  }
  std::error_code ec;
  std::filesystem::rename(tmp, path, ec);
  if (ec) throw std::runtime_error("cannot rename " + tmp + ": " + ec.message());
}

bool ReadWavInfo(const std::string& path, WavInfo& out, std::string& error) {
  std::ifstream f(path, std::ios::binary);
  if (!f) { error = "cannot open"; return false; }
  uint8_t h[12];
  if (!f.read(reinterpret_cast<char*>(h), 12) || std::string(reinterpret_cast<char*>(h), 4) != "RIFF" ||
      std::string(reinterpret_cast<char*>(h) + 8, 4) != "WAVE") {
    error = "not a RIFF WAVE file";
    return false;
  }
  bool haveFmt = false;
  int blockAlign = 0;
  uint8_t c[8];
  while (f.read(reinterpret_cast<char*>(c), 8)) {
    const std::string tag(reinterpret_cast<char*>(c), 4);
    const uint32_t size = Get32(c + 4);
    if (tag == "fmt ") {
      if (size < 16) { error = "short fmt chunk"; return false; }
      std::vector<uint8_t> fmt(size);
      if (!f.read(reinterpret_cast<char*>(fmt.data()), size)) break;
      if (Get16(&fmt[0]) != 1) { error = "not PCM"; return false; }
      out.channels = Get16(&fmt[2]);
      out.rate = static_cast<int>(Get32(&fmt[4]));
      blockAlign = Get16(&fmt[12]);
      out.bits = Get16(&fmt[14]);
      haveFmt = true;
      if (size & 1) f.seekg(1, std::ios::cur);
    } else if (tag == "data") {
      if (!haveFmt || blockAlign <= 0) { error = "data before fmt"; return false; }
      out.frames = size / blockAlign;
      return true;
    } else {
      f.seekg(size + (size & 1), std::ios::cur);
    }
  }
  error = "no data chunk";
  return false;
}

}  // namespace assetgen

// Small sound and music files written by the tests themselves, so that the
// audio tests depend on no generated data.
#pragma once
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <string>
#include <vector>

namespace audiotest {

inline void Put32(std::vector<uint8_t>& b, uint32_t v) {
  for (int i = 0; i < 4; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}
inline void Put16(std::vector<uint8_t>& b, uint16_t v) {
  b.push_back(static_cast<uint8_t>(v));
  b.push_back(static_cast<uint8_t>(v >> 8));
}

// 16-bit mono PCM at 22050 Hz: a short click of n samples.
inline std::vector<uint8_t> WaveBytes(int n = 64) {
  std::vector<uint8_t> b;
  b.insert(b.end(), {'R', 'I', 'F', 'F'});
  Put32(b, 36 + 2 * n);
  b.insert(b.end(), {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '});
  Put32(b, 16);
  Put16(b, 1);
  Put16(b, 1);
  Put32(b, 22050);
  Put32(b, 44100);
  Put16(b, 2);
  Put16(b, 16);
  b.insert(b.end(), {'d', 'a', 't', 'a'});
  Put32(b, 2 * n);
  for (int i = 0; i < n; ++i) Put16(b, static_cast<uint16_t>(i % 2 ? 8000 : -8000));
  return b;
}

struct Note {
  uint32_t start, length;  // ticks
  uint8_t key;
};

inline void PutVlq(std::vector<uint8_t>& b, uint32_t v) {
  uint8_t tmp[4];
  int n = 0;
  do tmp[n++] = v & 0x7F, v >>= 7;
  while (v);
  while (n--) b.push_back(static_cast<uint8_t>(tmp[n] | (n ? 0x80 : 0)));
}

// A format 0 file, 480 ticks a quarter, one channel, the notes in order and
// not overlapping; the track ends endTick after its start.
inline std::vector<uint8_t> MidiBytes(const std::vector<Note>& notes, uint32_t usPerQuarter, uint32_t endTick,
                                      uint8_t program = 0) {
  std::vector<uint8_t> t;
  PutVlq(t, 0);
  t.insert(t.end(), {0xFF, 0x51, 0x03, static_cast<uint8_t>(usPerQuarter >> 16),
                     static_cast<uint8_t>(usPerQuarter >> 8), static_cast<uint8_t>(usPerQuarter)});
  PutVlq(t, 0);
  t.insert(t.end(), {0xC0, program});
  uint32_t now = 0;
  for (const Note& n : notes) {
    PutVlq(t, n.start - now);
    t.insert(t.end(), {0x90, n.key, 100});
    PutVlq(t, n.length);
    t.insert(t.end(), {0x80, n.key, 0});
    now = n.start + n.length;
  }
  PutVlq(t, endTick - now);
  t.insert(t.end(), {0xFF, 0x2F, 0x00});
  std::vector<uint8_t> b = {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 0, 0, 1, 480 >> 8, 480 & 0xFF, 'M', 'T', 'r', 'k'};
  for (int i = 3; i >= 0; --i) b.push_back(static_cast<uint8_t>(t.size() >> (8 * i)));
  b.insert(b.end(), t.begin(), t.end());
  return b;
}

inline void WriteBytes(const std::filesystem::path& p, const std::vector<uint8_t>& b) {
  std::filesystem::create_directories(p.parent_path());
  std::ofstream(p, std::ios::binary).write(reinterpret_cast<const char*>(b.data()),
                                           static_cast<std::streamsize>(b.size()));
}

// A fresh folder below the system's temporary folder for one test.
inline std::filesystem::path FreshFolder(const std::string& name) {
  auto p = std::filesystem::temp_directory_path() / ("vorrel-audio-" + name + "-" + std::to_string(::getpid()));
  std::filesystem::remove_all(p);
  std::filesystem::create_directories(p);
  return p;
}

}  // namespace audiotest

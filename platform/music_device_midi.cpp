#include <fluidsynth.h>

#include <fstream>
#include <iterator>

#include "platform/music_device_synth.h"

namespace platform {
namespace {

uint32_t Be32(const uint8_t* p) { return static_cast<uint32_t>(p[0]) << 24 | p[1] << 16 | p[2] << 8 | p[3]; }
uint16_t Be16(const uint8_t* p) { return static_cast<uint16_t>(p[0] << 8 | p[1]); }

bool Vlq(const uint8_t*& p, const uint8_t* end, uint32_t& out) {
  out = 0;
  for (int i = 0; i < 4; ++i) {
    if (p == end) return false;
    const uint8_t b = *p++;
    out = out << 7 | (b & 0x7F);
    if (!(b & 0x80)) return true;
  }
  return false;
}

// Walks every event of one track so that a damaged file fails here, on the
// game's thread, and not half way through the piece.
bool Track(const uint8_t* p, const uint8_t* end, std::string& why) {
  uint8_t running = 0;
  while (p < end) {
    uint32_t delta, len;
    if (!Vlq(p, end, delta)) return why = "bad delta time", false;
    if (p == end) return why = "event cut short", false;
    uint8_t status = *p;
    if (status & 0x80) {
      ++p;
    } else if (running) {
      status = running;
    } else {
      return why = "data byte without status", false;
    }
    if (status == 0xFF) {
      if (p == end) return why = "meta event cut short", false;
      const uint8_t type = *p++;
      if (!Vlq(p, end, len) || len > static_cast<uint32_t>(end - p)) return why = "meta event cut short", false;
      p += len;
      if (type == 0x2F) return true;  // end of track
      running = 0;
    } else if (status == 0xF0 || status == 0xF7) {
      if (!Vlq(p, end, len) || len > static_cast<uint32_t>(end - p)) return why = "sysex cut short", false;
      p += len;
      running = 0;
    } else if (status >= 0xF1) {
      return why = "bad status byte", false;
    } else {
      const int data = (status & 0xF0) == 0xC0 || (status & 0xF0) == 0xD0 ? 1 : 2;
      if (end - p < data) return why = "channel event cut short", false;
      for (int i = 0; i < data; ++i)
        if (p[i] & 0x80) return why = "bad data byte", false;
      p += data;
      running = status;
    }
  }
  return true;  // a track without its end marker still plays
}

}  // namespace

bool ReadMidiFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& why) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return why = "cannot open", false;
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  in.close();
  if (!fluid_is_midifile(path.c_str())) return why = "not a MIDI file", false;
  if (bytes.size() < 14 || std::string(bytes.begin(), bytes.begin() + 4) != "MThd")
    return why = "not a MIDI file", false;
  const uint32_t headLen = Be32(&bytes[4]);
  const uint16_t format = Be16(&bytes[8]), tracks = Be16(&bytes[10]), division = Be16(&bytes[12]);
  if (headLen < 6 || format > 2 || tracks == 0 || (format == 0 && tracks != 1) || division == 0)
    return why = "bad MIDI header", false;
  size_t pos = 8 + static_cast<size_t>(headLen);
  int found = 0;
  while (found < tracks) {
    if (pos + 8 > bytes.size()) return why = "missing track " + std::to_string(found + 1), false;
    const uint32_t len = Be32(&bytes[pos + 4]);
    const size_t body = pos + 8;
    if (len > bytes.size() - body) return why = "track chunk cut short", false;
    if (std::string(bytes.begin() + pos, bytes.begin() + pos + 4) == "MTrk") {
      if (!Track(&bytes[body], &bytes[body] + len, why)) return false;
      ++found;
    }
    pos = body + len;  // other chunk kinds are skipped, as players do
  }
  return true;
}

}  // namespace platform

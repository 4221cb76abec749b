#include "tools/assetgen/music_midi.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace music {
namespace {

void PutVarLen(std::vector<uint8_t>& out, uint32_t v) {
  uint8_t buf[5];
  int n = 0;
  buf[n++] = v & 0x7f;
  while (v >>= 7) buf[n++] = 0x80 | (v & 0x7f);
  while (n) out.push_back(buf[--n]);
}

void Put32(std::vector<uint8_t>& out, uint32_t v) {
  for (int s = 24; s >= 0; s -= 8) out.push_back(uint8_t(v >> s));
}

uint8_t Data(int v) { return uint8_t(std::clamp(v, 0, 127)); }

}  // namespace

void MidiTrack::Meta(int tick, int type, const std::vector<uint8_t>& data) {
  std::vector<uint8_t> b = {0xff, uint8_t(type)};
  PutVarLen(b, uint32_t(data.size()));
  b.insert(b.end(), data.begin(), data.end());
  events_.push_back({tick, 0, b});
}

void MidiTrack::Tempo(int tick, int us) {
  Meta(tick, 0x51, {uint8_t(us >> 16), uint8_t(us >> 8), uint8_t(us)});
}

void MidiTrack::TimeSignature(int num, int den) {
  uint8_t log2 = 0;
  while ((1 << log2) < den) ++log2;
  // Metronome click every beat (a dotted quarter in compound time), 8 32nds a quarter.
  uint8_t clocks = (den == 8 && num % 3 == 0) ? 36 : uint8_t(96 / den);
  Meta(0, 0x58, {uint8_t(num), log2, clocks, 8});
}

void MidiTrack::Program(int channel, int program) {
  events_.push_back({0, 1, {uint8_t(0xc0 | channel), Data(program)}});
}

void MidiTrack::Controller(int channel, int number, int value) {
  events_.push_back({0, 1, {uint8_t(0xb0 | channel), Data(number), Data(value)}});
}

std::vector<uint8_t> MidiTrack::Encode(int endTick) const {
  std::vector<Event> ev = events_;
  // Group by channel and pitch to keep each pitch's notes from overlapping.
  std::map<std::pair<int, int>, std::vector<MidiNote>> byKey;
  for (const auto& [ch, n] : notes_) byKey[{ch, n.pitch}].push_back(n);
  for (auto& [key, list] : byKey) {
    std::stable_sort(list.begin(), list.end(), [](auto& a, auto& b) { return a.tick < b.tick; });
    for (size_t i = 0; i < list.size(); ++i) {
      MidiNote n = list[i];
      int end = n.tick + n.dur;
      if (i + 1 < list.size()) end = std::min(end, list[i + 1].tick);
      end = std::min(end, endTick);
      if (end <= n.tick) continue;
      uint8_t ch = uint8_t(key.first), p = Data(key.second);
      ev.push_back({n.tick, 3, {uint8_t(0x90 | ch), p, Data(std::max(1, n.velocity))}});
      ev.push_back({end, 2, {uint8_t(0x80 | ch), p, 64}});
    }
  }
  std::stable_sort(ev.begin(), ev.end(),
                   [](const Event& a, const Event& b) { return a.tick != b.tick ? a.tick < b.tick : a.order < b.order; });
  std::vector<uint8_t> body;
  int now = 0;
  for (const auto& e : ev) {
    if (e.tick < 0 || e.tick > endTick) throw std::runtime_error("MIDI event outside the piece");
    PutVarLen(body, uint32_t(e.tick - now));
    now = e.tick;
    body.insert(body.end(), e.bytes.begin(), e.bytes.end());
  }
  PutVarLen(body, uint32_t(endTick - now));
  body.insert(body.end(), {0xff, 0x2f, 0x00});
  std::vector<uint8_t> chunk = {'M', 'T', 'r', 'k'};
  Put32(chunk, uint32_t(body.size()));
  chunk.insert(chunk.end(), body.begin(), body.end());
  return chunk;
}

std::vector<uint8_t> EncodeMidiFile(int ticksPerQuarter, const std::vector<MidiTrack>& tracks, int endTick) {
  std::vector<uint8_t> out = {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1};
  out.push_back(uint8_t(tracks.size() >> 8));
  out.push_back(uint8_t(tracks.size()));
  out.push_back(uint8_t(ticksPerQuarter >> 8));
  out.push_back(uint8_t(ticksPerQuarter));
  for (const auto& t : tracks) {
    auto chunk = t.Encode(endTick);
    out.insert(out.end(), chunk.begin(), chunk.end());
  }
  return out;
}

}  // namespace music

#include "tools/assetgen/contact_sheet_midi.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

namespace assetgen {
namespace {

struct Reader {
  const uint8_t* p;
  const uint8_t* end;
  bool ok = true;
  int Byte() {
    if (p >= end) { ok = false; return 0; }
    return *p++;
  }
  uint32_t Be(int n) {
    uint32_t v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | Byte();
    return v;
  }
  uint32_t Vlq() {
    uint32_t v = 0;
    for (int i = 0; i < 4; ++i) {
      const int b = Byte();
      v = (v << 7) | (b & 0x7f);
      if (!(b & 0x80)) return v;
    }
    ok = false;  // longer than the four bytes the format allows
    return v;
  }
  void Skip(uint32_t n) {
    if (static_cast<size_t>(end - p) < n) { ok = false; p = end; return; }
    p += n;
  }
};

}  // namespace

bool SummariseMidi(const std::vector<uint8_t>& data, MidiSummary& out, std::string& error) {
  Reader r{data.data(), data.data() + data.size()};
  if (data.size() < 14 || std::string(data.begin(), data.begin() + 4) != "MThd") {
    error = "not a standard MIDI file";
    return false;
  }
  r.Skip(4);
  const uint32_t headerLen = r.Be(4);
  out.format = static_cast<int>(r.Be(2));
  const int declared = static_cast<int>(r.Be(2));
  out.division = static_cast<int>(r.Be(2));
  if (headerLen < 6 || out.division == 0) { error = "bad header"; return false; }
  r.Skip(headerLen - 6);

  std::multimap<int64_t, uint32_t> tempos;  // tick -> microseconds per quarter
  out.tracks = 0;
  out.endTick = 0;
  while (r.ok && r.p + 8 <= r.end) {
    const std::string tag(reinterpret_cast<const char*>(r.p), 4);
    r.Skip(4);
    const uint32_t len = r.Be(4);
    if (static_cast<size_t>(r.end - r.p) < len) { error = "truncated chunk " + tag; return false; }
    if (tag != "MTrk") { r.Skip(len); continue; }  // unknown chunks are allowed and ignored
    Reader t{r.p, r.p + len};
    r.Skip(len);
    ++out.tracks;
    int64_t tick = 0;
    int status = 0;
    while (t.ok && t.p < t.end) {
      tick += t.Vlq();
      int b = t.Byte();
      if (b == 0xff) {
        const int type = t.Byte();
        const uint32_t n = t.Vlq();
        if (type == 0x51 && n == 3) tempos.emplace(tick, t.Be(3));
        else t.Skip(n);
        if (type == 0x2f) break;  // end of track
      } else if (b == 0xf0 || b == 0xf7) {
        t.Skip(t.Vlq());
      } else {
        if (b & 0x80) status = b;
        else if (status) --t.p;  // running status: b was the first data byte
        else { error = "data byte without status"; return false; }
        t.Byte();
        const int kind = status & 0xf0;
        if (kind != 0xc0 && kind != 0xd0) t.Byte();
      }
    }
    if (!t.ok) { error = "truncated track " + std::to_string(out.tracks); return false; }
    out.endTick = std::max(out.endTick, tick);
  }
  if (out.tracks == 0 || (declared && out.tracks != declared)) {
    error = "expected " + std::to_string(declared) + " tracks, found " + std::to_string(out.tracks);
    return false;
  }
  out.tempoChanges = static_cast<int>(tempos.size());

  if (out.division & 0x8000) {  // SMPTE: frames per second and ticks per frame
    const int fps = -static_cast<int8_t>(out.division >> 8);
    const double rate = (fps == 29 ? 29.97 : fps) * (out.division & 0xff);
    out.seconds = rate > 0 ? out.endTick / rate : 0;
    return rate > 0;
  }
  double seconds = 0;
  int64_t at = 0;
  uint32_t tempo = 500000;  // 120 beats a minute until told otherwise
  for (const auto& [tick, us] : tempos) {
    if (tick >= out.endTick) break;
    seconds += double(tick - at) * tempo / (1e6 * out.division);
    at = tick;
    tempo = us;
  }
  seconds += double(out.endTick - at) * tempo / (1e6 * out.division);
  out.seconds = seconds;
  return true;
}

bool SummariseMidiFile(const std::string& path, MidiSummary& out, std::string& error) {
  std::ifstream f(path, std::ios::binary);
  if (!f) { error = "cannot open"; return false; }
  std::vector<uint8_t> data((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  return SummariseMidi(data, out, error);
}

}  // namespace assetgen

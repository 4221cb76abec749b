// The music files. Each is read here the way a MIDI player reads it (running
// status, meta and system events allowed) and held to where it plays: the
// game opens it by its title, loops it by restarting the file (so a loop must
// end on a bar line with its notes closed) or plays it once as a short cue.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "audio/music.h"

namespace {

struct Listed {
  std::string path, kind, generator;
  int width = -1, height = -1;
  std::vector<std::string> args;
};

std::vector<Listed> MusicManifest() {
  std::ifstream in(std::string(VORREL_SOURCE_DIR) + "/assets/files/music.tsv");
  std::vector<Listed> out;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream s(line);
    Listed l;
    s >> l.path >> l.kind >> l.width >> l.height >> l.generator;
    for (std::string a; s >> a;) l.args.push_back(a);
    for (size_t at; (at = l.path.find("%20")) != std::string::npos;) l.path.replace(at, 3, " ");
    out.push_back(l);
  }
  return out;
}

struct Midi {
  std::string error;
  int format = -1, tracks = 0, division = 0;
  int num = 0, den = 0;
  std::map<long, int> tempi;        // tick -> microseconds per quarter
  std::vector<long> trackEnds;      // tick of each end-of-track
  std::set<int> noteChannels;
  std::set<int> unprogrammed;       // channels whose first note came before a program change
  int stuck = 0, doubled = 0, strayOffs = 0;
  long lastOn = -1;
  std::multiset<std::pair<long, int>> melodic;  // (tick, pitch) of every non-drum note

  double Seconds(long tick) const {
    double s = 0;
    long at = 0;
    int us = 500000;
    for (const auto& [t, v] : tempi) {
      if (t >= tick) break;
      s += double(t - at) * us / division / 1e6;
      at = t;
      us = v;
    }
    return s + double(tick - at) * us / division / 1e6;
  }
  long BarTicks() const { return long(division) * 4 * num / den; }
};

uint32_t VarLen(const std::vector<uint8_t>& b, size_t& i, size_t end) {
  uint32_t v = 0;
  for (int n = 0; n < 4 && i < end; ++n) {
    uint8_t c = b[i++];
    v = (v << 7) | (c & 0x7f);
    if (!(c & 0x80)) return v;
  }
  throw std::runtime_error("bad variable-length number");
}

uint32_t Big(const std::vector<uint8_t>& b, size_t i, int n) {
  uint32_t v = 0;
  for (int k = 0; k < n; ++k) v = (v << 8) | b.at(i + k);
  return v;
}

Midi Read(const std::string& path) {
  Midi m;
  std::ifstream f(path, std::ios::binary);
  std::vector<uint8_t> b((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  try {
    if (b.size() < 14 || std::string(b.begin(), b.begin() + 4) != "MThd" || Big(b, 4, 4) != 6)
      throw std::runtime_error("no MThd header");
    m.format = int(Big(b, 8, 2));
    m.tracks = int(Big(b, 10, 2));
    m.division = int(Big(b, 12, 2));
    if (m.division <= 0 || m.division >= 0x8000) throw std::runtime_error("division");
    size_t pos = 14;
    std::set<int> programmed;
    for (int t = 0; t < m.tracks; ++t) {
      if (pos + 8 > b.size() || std::string(b.begin() + long(pos), b.begin() + long(pos) + 4) != "MTrk")
        throw std::runtime_error("missing MTrk");
      size_t i = pos + 8, end = i + Big(b, pos + 4, 4);
      if (end > b.size()) throw std::runtime_error("track runs past the file");
      long tick = 0;
      uint8_t status = 0;
      bool ended = false;
      std::map<std::pair<int, int>, int> sounding;
      while (i < end && !ended) {
        tick += VarLen(b, i, end);
        uint8_t c = b.at(i);
        if (c == 0xff) {
          uint8_t type = b.at(i + 1);
          i += 2;
          uint32_t len = VarLen(b, i, end);
          if (type == 0x51 && len == 3) m.tempi[tick] = int(Big(b, i, 3));
          if (type == 0x58 && len == 4) { m.num = b[i]; m.den = 1 << b[i + 1]; }
          if (type == 0x2f) { ended = true; m.trackEnds.push_back(tick); }
          i += len;
          continue;
        }
        if (c == 0xf0 || c == 0xf7) {
          ++i;
          i += VarLen(b, i, end);
          continue;
        }
        if (c & 0x80) { status = c; ++i; }
        if (!(status & 0x80)) throw std::runtime_error("data byte without status");
        int kind = status & 0xf0, ch = status & 0x0f;
        int d1 = b.at(i++), d2 = (kind == 0xc0 || kind == 0xd0) ? 0 : b.at(i++);
        if (kind == 0xc0) programmed.insert(ch);
        bool on = kind == 0x90 && d2 > 0, off = kind == 0x80 || (kind == 0x90 && d2 == 0);
        if (on) {
          m.noteChannels.insert(ch);
          if (ch != 9 && !programmed.count(ch)) m.unprogrammed.insert(ch);
          if (sounding[{ch, d1}]++) ++m.doubled;
          m.lastOn = std::max(m.lastOn, tick);
          if (ch != 9) m.melodic.insert({tick, d1});
        } else if (off) {
          if (sounding[{ch, d1}] > 0) --sounding[{ch, d1}];
          else ++m.strayOffs;
        }
      }
      if (!ended || i != end) throw std::runtime_error("track without end-of-track at its end");
      for (const auto& [key, n] : sounding) m.stuck += n;
      pos = end;
    }
  } catch (const std::exception& e) {
    m.error = e.what();
  }
  return m;
}

std::string DataPath(const std::string& rel) { return std::string(VORREL_TEST_DATA) + "/" + rel; }

// The game's own track table: the title is the file name it opens.
std::map<int, std::string> GameTitles() {
  audio::FillTrackTable();
  std::map<int, std::string> titles;
  for (int i = 1; i <= 50; ++i)
    if (!audio::TrackTitles[i].empty()) titles[i] = audio::TrackTitles[i];
  return titles;
}

bool OneShot(const std::string& path) { return path == "music/Intro.mid" || path == "music/TypeBWin.mid"; }

TEST(DataMusic, EveryTrackOfTheTableHasItsFile) {
  const std::map<int, std::string> titles = GameTitles();
  auto listed = MusicManifest();
  std::map<int, std::string> seen;
  for (const auto& l : listed) {
    SCOPED_TRACE(l.path);
    EXPECT_EQ(l.kind, "mid");
    EXPECT_EQ(l.width, 0);
    EXPECT_EQ(l.height, 0);
    ASSERT_FALSE(l.args.empty());
    int index = std::stoi(l.args[0]);
    ASSERT_TRUE(titles.count(index)) << "index " << index;
    EXPECT_EQ(l.path, "music/" + titles.at(index) + ".mid") << "the game opens its tracks by title";
    EXPECT_TRUE(seen.emplace(index, l.path).second) << "index listed twice";
    EXPECT_TRUE(std::ifstream(DataPath(l.path)).good()) << "not generated";
  }
  EXPECT_EQ(seen.size(), titles.size());
}

TEST(DataMusic, FilesReadAsStandardMidiAndEveryNoteEnds) {
  for (const auto& l : MusicManifest()) {
    SCOPED_TRACE(l.path);
    Midi m = Read(DataPath(l.path));
    ASSERT_EQ(m.error, "");
    EXPECT_EQ(m.format, 1);
    EXPECT_GE(m.tracks, 5);
    ASSERT_TRUE(m.tempi.count(0)) << "no tempo at the start";
    ASSERT_GT(m.num, 0) << "no time signature";
    EXPECT_EQ(m.stuck, 0) << "notes left sounding";
    EXPECT_EQ(m.doubled, 0) << "a pitch struck again while it sounds";
    EXPECT_EQ(m.strayOffs, 0);
  }
}

TEST(DataMusic, LengthsFitWhereThePiecesPlay) {
  for (const auto& l : MusicManifest()) {
    SCOPED_TRACE(l.path);
    Midi m = Read(DataPath(l.path));
    ASSERT_EQ(m.error, "");
    ASSERT_FALSE(m.trackEnds.empty());
    long end = *std::max_element(m.trackEnds.begin(), m.trackEnds.end());
    double s = m.Seconds(end);
    if (l.path == "music/Intro.mid") {
      // The introduction's burst, zoom, hold and fly-off take about nine seconds.
      EXPECT_GE(s, 8.0);
      EXPECT_LE(s, 12.0);
    } else if (l.path == "music/TypeBWin.mid") {
      // Sounds through the four-second freeze after a Type B win.
      EXPECT_GE(s, 4.0);
      EXPECT_LE(s, 6.5);
    } else {
      EXPECT_GE(s, 60.0);
      EXPECT_LE(s, 180.0);
    }
    if (!OneShot(l.path)) {
      // Restarting the file must keep the beat: every track stops on the same
      // bar line and the last bar still plays.
      EXPECT_EQ(end % m.BarTicks(), 0) << "ends " << end % m.BarTicks() << " ticks into a bar";
      for (long e : m.trackEnds) EXPECT_EQ(e, end);
      EXPECT_GE(m.lastOn, end - m.BarTicks()) << "silent last bar";
    }
  }
}

TEST(DataMusic, EveryPieceIsAFullArrangementOfItsOwn) {
  std::map<std::multiset<std::pair<long, int>>, std::string> tunes;
  for (const auto& l : MusicManifest()) {
    SCOPED_TRACE(l.path);
    Midi m = Read(DataPath(l.path));
    ASSERT_EQ(m.error, "");
    EXPECT_TRUE(m.noteChannels.count(9)) << "no drums";
    EXPECT_GE(m.noteChannels.size() - m.noteChannels.count(9), 3u) << "fewer than three melodic channels";
    EXPECT_TRUE(m.unprogrammed.empty()) << "a channel plays before its instrument is chosen";
    auto [at, fresh] = tunes.emplace(m.melodic, l.path);
    EXPECT_TRUE(fresh) << "same notes as " << at->second;
  }
}

}  // namespace

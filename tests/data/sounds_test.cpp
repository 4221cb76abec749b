// The generated sounds: every WAV the manifest lists is a well-formed file the
// mixer can play at once, effects are short and punchy, and the voices are
// equally loud so that no remark drowns the others; the contact sheet lists
// every sound and track with its length.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "audio/sound_effects.h"

namespace {

struct ListedFile {
  std::string path;
  int index = -1;  // sound table index: below 100 an effect, from 100 a voice
};

std::vector<ListedFile> Listed(const std::string& wanted) {
  std::vector<std::filesystem::path> lists;
  for (const auto& f : std::filesystem::directory_iterator(VORREL_SOURCE_DIR "/assets/files"))
    if (f.path().extension() == ".tsv") lists.push_back(f.path());
  std::sort(lists.begin(), lists.end());
  std::vector<ListedFile> out;
  for (const auto& list : lists) {
    std::ifstream in(list);
    for (std::string line; std::getline(in, line);) {
      if (line.empty() || line[0] == '#') continue;
      std::istringstream s(line);
      std::string path, kind, w, h, gen, index;
      s >> path >> kind >> w >> h >> gen >> index;
      if (kind != wanted) continue;
      ListedFile l;
      l.path = path;
      if (!index.empty() && std::all_of(index.begin(), index.end(), ::isdigit)) l.index = std::stoi(index);
      out.push_back(l);
    }
  }
  return out;
}

std::vector<ListedFile> ListedSounds() { return Listed("wav"); }

struct Wav {
  int rate = 0, channels = 0, bits = 0;
  std::vector<int16_t> mono;  // first channel
  double Seconds() const { return rate ? double(mono.size()) / rate : 0; }
};

uint32_t Le(const std::vector<uint8_t>& b, size_t at, int n) {
  uint32_t v = 0;
  for (int i = n - 1; i >= 0; --i) v = (v << 8) | b[at + i];
  return v;
}

// Returns an empty string on success, else what is wrong.
std::string ReadWav(const std::string& path, Wav& w) {
  std::ifstream f(path, std::ios::binary);
  if (!f) return "missing";
  std::vector<uint8_t> b((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  if (b.size() < 12 || std::string(b.begin(), b.begin() + 4) != "RIFF" ||
      std::string(b.begin() + 8, b.begin() + 12) != "WAVE")
    return "not RIFF WAVE";
  if (Le(b, 4, 4) + 8 != b.size()) return "RIFF size does not match the file";
  for (size_t at = 12; at + 8 <= b.size();) {
    const std::string tag(b.begin() + at, b.begin() + at + 4);
    const size_t size = Le(b, at + 4, 4), body = at + 8;
    if (body + size > b.size()) return "chunk " + tag + " runs past the end";
    if (tag == "fmt ") {
      if (Le(b, body, 2) != 1) return "not PCM";
      w.channels = Le(b, body + 2, 2);
      w.rate = Le(b, body + 4, 4);
      w.bits = Le(b, body + 14, 2);
    } else if (tag == "data") {
      if (w.bits != 16 || w.channels < 1) return "data before a 16-bit fmt";
      for (size_t i = body; i + 2 * w.channels <= body + size; i += 2 * w.channels)
        w.mono.push_back(static_cast<int16_t>(Le(b, i, 2)));
      return "";
    }
    at = body + size + (size & 1);
  }
  return "no data chunk";
}

struct Level {
  double rms = 0, leadMs = 0;
  int fullScale = 0;
};

Level Measure(const Wav& w) {
  Level l;
  double e = 0;
  size_t lead = w.mono.size();
  for (size_t i = 0; i < w.mono.size(); ++i) {
    const int x = w.mono[i];
    e += double(x) * x;
    if (std::abs(x) >= 32767) ++l.fullScale;
    // -40 dBFS: the first moment anything is heard.
    if (lead == w.mono.size() && std::abs(x) > 328) lead = i;
  }
  l.rms = w.mono.empty() ? 0 : std::sqrt(e / w.mono.size()) / 32768;
  l.leadMs = 1000.0 * lead / w.rate;
  return l;
}

std::string Name(const std::string& path) {
  return std::filesystem::path(path).stem().string();
}

TEST(DataSound, ManifestListsTheWholeSoundTable) {
  // The game opens each slot's file by its own table; a missing one fails its start.
  std::map<int, std::string> byIndex;
  for (const ListedFile& l : ListedSounds()) {
    if (l.path.rfind("sounds/", 0) != 0) continue;
    EXPECT_EQ(l.path, "sounds/" + Name(l.path) + ".wav");
    EXPECT_TRUE(l.index >= 0 && l.index <= 200) << l.path << ": table index missing";
    EXPECT_TRUE(byIndex.emplace(l.index, l.path).second) << l.path << ": index " << l.index << " used twice";
  }
  int slots = 0;
  for (int index = 0; index <= 200; ++index) {
    const std::string& file = audio::SoundFileName(index);
    if (file.empty()) {
      EXPECT_EQ(byIndex.count(index), 0u) << "slot " << index << " is empty in the game";
      continue;
    }
    ++slots;
    EXPECT_EQ(byIndex[index], "sounds/" + file) << "slot " << index;
  }
  EXPECT_EQ(slots, 90);
  EXPECT_EQ(byIndex.size(), 90u);
}

TEST(DataSound, EverySoundParsesStartsAtOnceAndIsNeitherSilentNorClipped) {
  const auto sounds = ListedSounds();
  ASSERT_FALSE(sounds.empty());
  for (const ListedFile& l : sounds) {
    SCOPED_TRACE(l.path);
    Wav w;
    const std::string err = ReadWav(std::string(VORREL_TEST_DATA) + "/" + l.path, w);
    ASSERT_EQ(err, "");
    EXPECT_TRUE(w.rate == 22050 || w.rate == 44100) << w.rate;
    EXPECT_TRUE(w.channels == 1 || w.channels == 2) << w.channels;
    const Level lv = Measure(w);
    EXPECT_GT(lv.rms, 0.02) << "too quiet to hear";
    EXPECT_LE(lv.fullScale, static_cast<int>(w.mono.size() / 1000)) << "clipped";
    EXPECT_LT(lv.leadMs, 20.0) << "starts late";

    const bool voice = l.index >= 100;
    EXPECT_GT(w.Seconds(), voice ? 0.2 : 0.01);
    EXPECT_LT(w.Seconds(), voice ? 2.5 : 2.0);
    // The slide runs for a rock's whole fall and is stopped when it lands.
    if (Name(l.path) == "slide") {
      EXPECT_GE(w.Seconds(), 0.8);
      EXPECT_LE(w.Seconds(), 1.5);
    }
  }
}

TEST(DataSound, VoicesAreLevelledWithinFourDecibels) {
  double loudest = 0, quietest = 1;
  std::string loud, quiet;
  int voices = 0;
  for (const ListedFile& l : ListedSounds()) {
    if (l.index < 100) continue;
    Wav w;
    ASSERT_EQ(ReadWav(std::string(VORREL_TEST_DATA) + "/" + l.path, w), "") << l.path;
    const double rms = Measure(w).rms;
    if (rms > loudest) { loudest = rms; loud = l.path; }
    if (rms < quietest) { quietest = rms; quiet = l.path; }
    ++voices;
  }
  EXPECT_EQ(voices, 66);
  // Whole-file RMS, so short pauses inside a phrase count against it:
  // a factor of 1.6 (about 4 dB) still keeps any voice from standing out.
  EXPECT_LT(loudest / quietest, 1.6) << loud << " " << loudest << " vs " << quiet << " " << quietest;
}

TEST(DataSound, ContactSheetListsEverySoundAndTrackWithItsLength) {
  const std::string data = VORREL_TEST_DATA;
  std::ifstream png(data + "/contact-sheet.png", std::ios::binary);
  char sig[8] = {};
  png.read(sig, 8);
  EXPECT_EQ(std::string(sig, 8), "\x89PNG\r\n\x1a\n");

  std::map<std::string, double> seconds;
  std::ifstream txt(data + "/contact-sheet.txt");
  ASSERT_TRUE(txt) << "no contact-sheet.txt";
  for (std::string line; std::getline(txt, line);) {
    if (line.empty() || line[0] == '#') continue;
    EXPECT_EQ(line.find("BROKEN"), std::string::npos) << line;
    // Paths may hold spaces: the length is the number before " s ".
    const size_t unit = line.find(" s  ");
    ASSERT_NE(unit, std::string::npos) << line;
    const size_t num = line.find_last_of(' ', unit - 1);
    std::string path = line.substr(0, num);
    path.erase(path.find_last_not_of(' ') + 1);
    seconds[path] = std::stod(line.substr(num + 1, unit - num - 1));
  }
  for (const ListedFile& l : ListedSounds()) {
    Wav w;
    ASSERT_EQ(ReadWav(data + "/" + l.path, w), "") << l.path;
    ASSERT_TRUE(seconds.count(l.path)) << l.path << " not listed";
    EXPECT_NEAR(seconds[l.path], w.Seconds(), 0.001) << l.path;
  }
  for (ListedFile l : Listed("mid")) {
    for (size_t at; (at = l.path.find("%20")) != std::string::npos;) l.path.replace(at, 3, " ");
    ASSERT_TRUE(seconds.count(l.path)) << l.path << " not listed";
    // A track is a jingle of a few seconds or a piece of a few minutes.
    EXPECT_GT(seconds[l.path], 2.0) << l.path;
    EXPECT_LT(seconds[l.path], 600.0) << l.path;
  }
}

}  // namespace

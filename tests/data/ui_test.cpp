// The generated interface pictures and default files: the rules the game's
// drawing code depends on (cut columns, the black field window, the blank
// space glyph) and the formats the menu reads back.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/bmp_file.h"

namespace {

const std::string kData = VORREL_TEST_DATA;

bmp::Image565 Load(const std::string& rel) {
  bmp::Image565 img;
  std::string error;
  EXPECT_TRUE(bmp::Read(kData + "/" + rel, img, error)) << rel << ": " << error;
  return img;
}

// Non-black pixels in a rectangle (right and bottom exclusive).
int Ink(const bmp::Image565& img, int x0, int y0, int x1, int y1) {
  int n = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x) n += img.at(x, y) != 0;
  return n;
}

std::vector<uint16_t> Cell(const bmp::Image565& img, int x0, int w) {
  std::vector<uint16_t> out;
  for (int y = 0; y < img.height; ++y)
    for (int x = x0; x < x0 + w; ++x) out.push_back(img.at(x, y));
  return out;
}

std::vector<std::string> CrLfLines(const std::string& rel) {
  std::ifstream in(kData + "/" + rel, std::ios::binary);
  std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::vector<std::string> lines;
  size_t at = 0;
  while (at < all.size()) {
    size_t end = all.find("\r\n", at);
    if (end == std::string::npos) {
      ADD_FAILURE() << rel << ": last line has no CR LF";
      break;
    }
    lines.push_back(all.substr(at, end - at));
    at = end + 2;
  }
  for (const auto& l : lines) EXPECT_EQ(l.find_first_of("\r\n"), std::string::npos) << rel << ": stray CR or LF";
  return lines;
}

bool IsNumber(const std::string& s) {
  if (s.empty()) return false;
  for (char ch : s)
    if (!std::isdigit(static_cast<unsigned char>(ch))) return false;
  return true;
}

TEST(DataUiTest, DigitSheetsKeepTheirCutRules) {
  bmp::Image565 big = Load("graphics/numbers.bmp");
  ASSERT_EQ(big.width, 317);
  ASSERT_EQ(big.height, 36);
  for (int d = 0; d < 10; ++d) {
    EXPECT_EQ(Ink(big, 29 * d + 28, 0, 29 * d + 29, 36), 0) << "digit " << d << " reaches its 29th column";
    EXPECT_GT(Ink(big, 29 * d, 0, 29 * d + 28, 36), 150) << "digit " << d << " is missing";
  }
  EXPECT_EQ(Ink(big, 290, 0, 317, 36), 0) << "the eraser sign must be all black";

  // Counts are pasted opaque into the statistics panel: no keyed pixel, and
  // the ground is the panels' own count-strip colour.
  bmp::Image565 stat = Load("graphics/statnumbers.bmp");
  ASSERT_EQ(stat.width, 100);
  ASSERT_EQ(stat.height, 10);
  EXPECT_EQ(Ink(stat, 0, 0, 100, 10), 1000);
  std::set<std::vector<uint16_t>> statFaces, scoreFaces;
  for (int d = 0; d < 10; ++d) {
    EXPECT_EQ(stat.at(10 * d, 0), bmp::Pack565(24, 28, 41)) << "digit " << d;
    statFaces.insert(Cell(stat, 10 * d, 10));
  }
  EXPECT_EQ(statFaces.size(), 10u);
  bmp::Image565 panel;
  std::string error;
  if (bmp::Read(kData + "/graphics/classicStatus.bmp", panel, error)) {
    EXPECT_EQ(panel.at(60, 10), stat.at(0, 0)) << "the stat digits do not match the panel's count strip";
  }

  bmp::Image565 score = Load("graphics/scorenumbers.bmp");
  ASSERT_EQ(score.width, 200);
  ASSERT_EQ(score.height, 20);
  for (int d = 0; d < 10; ++d) {
    EXPECT_GT(Ink(score, 20 * d, 0, 20 * d + 20, 20), 60) << "banner digit " << d;
    scoreFaces.insert(Cell(score, 20 * d, 20));
  }
  EXPECT_EQ(scoreFaces.size(), 10u);
}

TEST(DataUiTest, CharacterSheetReadsAtBothSizes) {
  bmp::Image565 sheet = Load("graphics/characterset.bmp");
  ASSERT_EQ(sheet.width, 2400);
  ASSERT_EQ(sheet.height, 50);
  // The game also loads the sheet at half size; every sign must survive that
  // and stay unlike every other.
  bmp::Image565 small = bmp::Scale(sheet, 1200, 25);
  std::set<std::vector<uint16_t>> bigFaces, smallFaces;
  for (int g = 0; g < 48; ++g) {
    if (g == 46) continue;
    EXPECT_GT(Ink(sheet, 50 * g, 0, 50 * g + 50, 50), 40) << "glyph " << g;
    EXPECT_GT(Ink(small, 25 * g, 0, 25 * g + 25, 25), 8) << "small glyph " << g;
    bigFaces.insert(Cell(sheet, 50 * g, 50));
    smallFaces.insert(Cell(small, 25 * g, 25));
  }
  EXPECT_EQ(bigFaces.size(), 47u);
  EXPECT_EQ(smallFaces.size(), 47u);
  EXPECT_EQ(Ink(sheet, 46 * 50, 0, 47 * 50, 50), 0) << "the space glyph must be blank";

  bmp::Image565 select = Load("graphics/select.bmp");
  ASSERT_EQ(select.width, 50);
  EXPECT_GT(Ink(select, 0, 0, 50, 50), 2000) << "the key frame should be a solid plate";
}

TEST(DataUiTest, FramesLeaveTheFieldWindowBlack) {
  struct Frame {
    const char* path;
    int w, h, fx, fy;
  };
  const Frame frames[] = {{"graphics/classicframe.bmp", 304, 581, 21, 140},
                          {"graphics/bonusframe.bmp", 308, 593, 23, 144},
                          {"graphics/wickoryframe.bmp", 299, 571, 18, 127}};
  for (const Frame& f : frames) {
    SCOPED_TRACE(f.path);
    bmp::Image565 img = Load(f.path);
    ASSERT_EQ(img.width, f.w);
    ASSERT_EQ(img.height, f.h);
    EXPECT_EQ(Ink(img, f.fx, f.fy, f.fx + 260, f.fy + 420), 0) << "field window not black";
    // A closed ring right round the window, so no background leaks onto the field's edge.
    EXPECT_EQ(Ink(img, f.fx - 1, f.fy - 1, f.fx + 261, f.fy), 262);
    EXPECT_EQ(Ink(img, f.fx - 1, f.fy + 420, f.fx + 261, f.fy + 421), 262);
    EXPECT_EQ(Ink(img, f.fx - 1, f.fy, f.fx, f.fy + 420), 420);
    EXPECT_EQ(Ink(img, f.fx + 260, f.fy, f.fx + 261, f.fy + 420), 420);
    // The preview is drawn keyed over a solid panel.
    EXPECT_EQ(Ink(img, 128, 33, 181, 89), 53 * 56) << "preview panel has holes";
  }
}

TEST(DataUiTest, PicturesShowAndStatesDiffer) {
  // Keyed pictures that would silently vanish if drawn all black.
  const char* keyed[] = {
      "single",  "double",    "triple",    "vorrel",     "megavorrel", "kaboom",     "fault",   "bar",
      "colorbar", "transbar", "highlight", "level",      "height",     "transparency", "music", "soundfx",
      "voice",   "check",     "boxhighlight", "cursor",  "cursor2",    "blines",     "blevel",  "bheight",
      "bbricks", "bscore",    "piecestats", "playclassic", "playbonus", "playfuse",  "playtypea", "playtypeb",
      "playtypec"};
  for (const char* name : keyed) {
    bmp::Image565 img = Load(std::string("graphics/") + name + ".bmp");
    EXPECT_GT(Ink(img, 0, 0, img.width, img.height), img.width * img.height / 20) << name;
  }
  // The pointer's hot spot is its top-left pixel.
  EXPECT_NE(Load("graphics/cursor.bmp").at(1, 1), 0);
  EXPECT_NE(Load("graphics/cursor2.bmp").at(1, 1), 0);
  // The slider fills are cut at any step: no keyed hole anywhere.
  for (const char* name : {"graphics/colorbar.bmp", "graphics/transbar.bmp"}) {
    bmp::Image565 img = Load(name);
    EXPECT_EQ(Ink(img, 0, 0, img.width, img.height), img.width * img.height) << name;
  }
  // The slider frame lets its fill show through every step.
  bmp::Image565 bar = Load("graphics/bar.bmp");
  for (int s = 0; s < 10; ++s) EXPECT_EQ(bar.at(25 * s + 12, 10), 0) << "step " << s;
  // Headers are copied opaque: every pixel painted.
  for (const char* name : {"graphics/menuhigh.bmp", "graphics/menuhelp.bmp"}) {
    bmp::Image565 img = Load(name);
    EXPECT_EQ(img.width, 225);
    EXPECT_EQ(Ink(img, 0, 0, img.width, img.height), img.width * img.height) << name;
  }
  // Each control's two states (plain first, as the game numbers them) must differ.
  const std::pair<const char*, const char*> states[] = {
      {"easy0", "easy"},         {"medium0", "medium"},       {"hard0", "hard"},   {"help0", "help1"},
      {"menu0", "menu1"},        {"high0", "high1"},          {"exit0", "exit1"},  {"classic1", "classic2"},
      {"bonus1", "bonus2"},      {"wickory1", "wickory2"},    {"a2", "a"},         {"b2", "b"},
      {"c2", "c"},               {"leftarrow1", "leftarrow2"}, {"rightarrow1", "rightarrow2"},
      {"start1", "start2"},      {"cursor", "cursor2"}};
  for (const auto& [plain, lit] : states) {
    bmp::Image565 a = Load(std::string("graphics/") + plain + ".bmp");
    bmp::Image565 b = Load(std::string("graphics/") + lit + ".bmp");
    EXPECT_GT(Ink(a, 0, 0, a.width, a.height), 0) << plain;
    EXPECT_NE(a.pixels, b.pixels) << plain << " and " << lit << " look the same";
  }
}

TEST(DataUiTest, DefaultHighScoresFollowTheFileFormat) {
  const std::string glyphOrder = "abcdefghijklmnopqrstuvwxyz0123456789&!?/+-:\"'. ";
  std::vector<std::string> lines = CrLfLines("VSys/hs.inf");
  ASSERT_EQ(lines.size(), 140u);
  for (int table = 0; table < 7; ++table) {
    long previous = -1;
    for (int rank = 0; rank < 5; ++rank) {
      int at = (table * 5 + rank) * 4;
      const std::string& name = lines[at];
      SCOPED_TRACE("table " + std::to_string(table) + " rank " + std::to_string(rank) + ": " + name);
      ASSERT_GE(name.size(), 3u);
      EXPECT_EQ(name.front(), '"');
      EXPECT_EQ(name.back(), '"');
      std::string inner = name.substr(1, name.size() - 2);
      EXPECT_GE(inner.size(), 1u);
      EXPECT_LE(inner.size(), 8u);
      EXPECT_EQ(inner.find('"'), std::string::npos);
      for (char ch : inner) {
        EXPECT_FALSE(std::islower(static_cast<unsigned char>(ch))) << "names are stored in upper case";
        EXPECT_NE(glyphOrder.find(static_cast<char>(std::tolower(static_cast<unsigned char>(ch)))),
                  std::string::npos)
            << "no glyph for " << ch;
      }
      for (int f = 1; f < 4; ++f) EXPECT_TRUE(IsNumber(lines[at + f])) << lines[at + f];
      if (!IsNumber(lines[at + 1]) || !IsNumber(lines[at + 3])) continue;
      long score = std::stol(lines[at + 1]);
      if (previous >= 0) {
        EXPECT_LE(score, previous) << "table not sorted best first";
      }
      previous = score;
      EXPECT_LE(std::stoi(lines[at + 3]), 20) << "level";
      if (rank == 4) {
        EXPECT_LE(score, 2500) << "a fifth place should be within a beginner's reach";
      }
    }
  }
}

TEST(DataUiTest, DefaultSettingsAreInRange) {
  std::vector<std::string> lines = CrLfLines("VSys/maindata.inf");
  ASSERT_EQ(lines.size(), 10u);
  // Variant, type, level, height, difficulty, darkening, music, effects, voices, track.
  const int high[10] = {2, 2, 9, 9, 2, 9, 1, 1, 1, 30};
  for (int i = 0; i < 10; ++i) {
    ASSERT_TRUE(IsNumber(lines[i])) << "line " << i + 1 << ": " << lines[i];
    EXPECT_LE(std::stoi(lines[i]), high[i]) << "line " << i + 1;
  }
}

}  // namespace

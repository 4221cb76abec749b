// The generated scene pictures: every file the game opens by name is there in
// its size; backgrounds are distinct and quiet behind the field; keyed
// pictures keep their key where the game shows through them; the menu panel
// lets the game's three text colours read; rockets stand where they launch.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
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

struct Rgb {
  double r, g, b;
};
Rgb At(const bmp::Image565& im, int x, int y) {
  int r, g, b;
  bmp::Unpack565(im.at(x, y), r, g, b);
  return {double(r), double(g), double(b)};
}
double Luma(Rgb c) { return 0.299 * c.r + 0.587 * c.g + 0.114 * c.b; }

// Relative luminance of an sRGB colour, for contrast ratios.
double RelLum(Rgb c) {
  auto lin = [](double v) {
    v /= 255;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * lin(c.r) + 0.7152 * lin(c.g) + 0.0722 * lin(c.b);
}
double Contrast(Rgb a, Rgb b) {
  double la = RelLum(a), lb = RelLum(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Rgb Mean(const bmp::Image565& im, int x0, int y0, int x1, int y1) {
  Rgb s{0, 0, 0};
  int n = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x, ++n) {
      Rgb c = At(im, x, y);
      s.r += c.r, s.g += c.g, s.b += c.b;
    }
  return {s.r / n, s.g / n, s.b / n};
}

// Mean luminance step between neighbouring 4 x 4 blocks: how busy a region
// looks, blind to the fine grain of dithering.
double Busy(const bmp::Image565& im, int x0, int y0, int x1, int y1) {
  int bw = (x1 - x0) / 4, bh = (y1 - y0) / 4;
  std::vector<double> block(static_cast<size_t>(bw) * bh);
  for (int by = 0; by < bh; ++by)
    for (int bx = 0; bx < bw; ++bx) {
      double s = 0;
      for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) s += Luma(At(im, x0 + bx * 4 + x, y0 + by * 4 + y));
      block[by * bw + bx] = s / 16;
    }
  double sum = 0;
  int n = 0;
  for (int by = 0; by + 1 < bh; ++by)
    for (int bx = 0; bx + 1 < bw; ++bx, ++n) {
      double l = block[by * bw + bx];
      sum += std::abs(l - block[by * bw + bx + 1]) + std::abs(l - block[(by + 1) * bw + bx]);
    }
  return sum / n;
}

int Opaque(const bmp::Image565& im, int x0, int y0, int x1, int y1) {
  int n = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x) n += im.at(x, y) != 0;
  return n;
}

std::string Background(const std::string& variant, int level) {
  return "graphics/backgrounds/" + variant + "/" + std::to_string(level) + ".bmp";
}

TEST(DataScenes, EveryPictureTheGameOpensIsListedAndMade) {
  std::map<std::string, std::pair<int, int>> listed;
  std::ifstream in(std::string(VORREL_SOURCE_DIR) + "/assets/files/scenes.tsv");
  ASSERT_TRUE(in) << "scenes.tsv missing";
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream s(line);
    std::string path, kind;
    int w = 0, h = 0;
    s >> path >> kind >> w >> h;
    listed[path] = {w, h};
  }
  std::map<std::string, std::pair<int, int>> wanted = {
      {"graphics/menu.bmp", {800, 600}},          {"graphics/gameoverscreen.bmp", {800, 600}},
      {"graphics/newhighscreen.bmp", {800, 600}}, {"graphics/rocketback.bmp", {800, 600}},
      {"graphics/worksback.bmp", {800, 600}},     {"graphics/intro.bmp", {640, 480}},
      {"graphics/star.bmp", {11, 11}},            {"graphics/pause.bmp", {260, 420}},
      {"graphics/gameover.bmp", {260, 420}},      {"graphics/rocketsmall.bmp", {21, 50}},
      {"graphics/rocketmed.bmp", {62, 150}},      {"graphics/rocket.bmp", {146, 355}},
      {"graphics/rocketfire.bmp", {48, 40}},      {"graphics/rocketfire2.bmp", {48, 40}}};
  for (int i = 1; i <= 10; ++i) wanted["graphics/work" + std::to_string(i) + ".bmp"] = {11, 11};
  for (int i = 2; i <= 24; ++i) {
    char name[64];
    std::snprintf(name, sizeof name, "graphics/explosion/eexplo%03d.bmp", i);
    wanted[name] = {80, 80};
  }
  for (int i = 12001; i <= 12015; ++i) wanted["graphics/explosion1/" + std::to_string(i) + ".bmp"] = {64, 64};
  for (const char* v : {"classic", "bonus", "wickory"})
    for (int l = 0; l <= 20; ++l) wanted[Background(v, l)] = {400, 300};
  for (const auto& [path, size] : wanted) {
    ASSERT_TRUE(listed.count(path)) << path << " is not in scenes.tsv";
    EXPECT_EQ(listed[path], size) << path;
    bmp::Image565 im = Load(path);
    EXPECT_EQ(im.width, size.first) << path;
    EXPECT_EQ(im.height, size.second) << path;
  }
  EXPECT_EQ(listed.size(), wanted.size()) << "scenes.tsv lists files the game never opens";
}

TEST(DataScenes, BackgroundsAreDistinctAndQuietBehindTheField) {
  std::vector<bmp::Image565> all;
  std::vector<std::string> names;
  for (const char* v : {"classic", "bonus", "wickory"})
    for (int l = 0; l <= 20; ++l) {
      names.push_back(Background(v, l));
      all.push_back(Load(names.back()));
      const bmp::Image565& im = all.back();
      ASSERT_EQ(im.width, 400);
      // The field's area (where the game darkens) against the strips on each side.
      double field = Busy(im, 92, 73, 218, 281);
      double sides = (Busy(im, 0, 0, 80, 300) + Busy(im, 240, 100, 400, 300)) / 2;
      EXPECT_LT(field, std::max(sides * 0.5, 2.5)) << names.back() << ": busy behind the field";
      EXPECT_LT(Luma(Mean(im, 92, 73, 218, 281)), 110) << names.back() << ": too bright behind the field";
      // Titles are painted at the top right: it must not glare either.
      EXPECT_LT(Luma(Mean(im, 256, 20, 392, 84)), 150) << names.back();
      EXPECT_GT(Luma(Mean(im, 0, 0, 400, 300)), 12) << names.back() << ": nearly black";
      // Classic stays cool blue and teal, Wickory warm embers.
      Rgb m = Mean(im, 0, 0, 400, 300);
      if (names.back().find("classic") != std::string::npos) {
        EXPECT_GT(m.b, m.r) << names.back();
      }
      if (names.back().find("wickory") != std::string::npos) {
        EXPECT_GT(m.r, m.b * 1.3) << names.back();
      }
    }
  // Every level looks different: sampled mean colour distance between any two.
  for (size_t i = 0; i < all.size(); ++i)
    for (size_t j = i + 1; j < all.size(); ++j) {
      double d = 0;
      int n = 0;
      for (int y = 0; y < 300; y += 3)
        for (int x = 0; x < 400; x += 3, ++n) {
          Rgb a = At(all[i], x, y), b = At(all[j], x, y);
          d += std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
        }
      EXPECT_GT(d / n, 15) << names[i] << " and " << names[j] << " look alike";
    }
}

TEST(DataScenes, KeyedPicturesKeepTheirKeyWhereTheGameShowsThrough) {
  // Boards fill the field but leave their rounded corners to the key.
  for (const char* board : {"graphics/pause.bmp", "graphics/gameover.bmp"}) {
    bmp::Image565 im = Load(board);
    EXPECT_EQ(im.at(0, 0), 0) << board;
    EXPECT_EQ(im.at(259, 419), 0) << board;
    EXPECT_GT(Opaque(im, 0, 0, 260, 420), 260 * 420 * 9 / 10) << board;
  }
  // The intro art floats over the stars: key all round, picture in the middle.
  bmp::Image565 intro = Load("graphics/intro.bmp");
  EXPECT_EQ(Opaque(intro, 0, 0, 640, 4), 0);
  EXPECT_EQ(Opaque(intro, 0, 476, 640, 480), 0);
  EXPECT_EQ(Opaque(intro, 220, 200, 420, 280), 200 * 80);
  // Sparks and the star are stretched from their top-left 10 x 10: the
  // spare row and column are key, the middle is lit.
  std::vector<std::string> small = {"graphics/star.bmp"};
  for (int i = 1; i <= 10; ++i) small.push_back("graphics/work" + std::to_string(i) + ".bmp");
  std::vector<uint16_t> middles;
  for (const auto& name : small) {
    bmp::Image565 im = Load(name);
    EXPECT_EQ(Opaque(im, 10, 0, 11, 11) + Opaque(im, 0, 10, 11, 11), 0) << name;
    EXPECT_EQ(im.at(0, 0), 0) << name;
    EXPECT_GT(Luma(At(im, 5, 5)), 180) << name;
    if (name != "graphics/star.bmp") middles.push_back(im.at(2, 5));
  }
  // The fireworks pick a spark per colour: the ten must differ.
  std::sort(middles.begin(), middles.end());
  EXPECT_EQ(std::unique(middles.begin(), middles.end()), middles.end());
}

// Counts pixels with gold lettering's colour: bright, warm, little blue.
int GoldPixels(const bmp::Image565& im, int x0, int y0, int x1, int y1) {
  int n = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x) {
      Rgb c = At(im, x, y);
      n += c.r > 200 && c.g > 140 && c.b < 110;
    }
  return n;
}

TEST(DataScenes, KeyedArtHasCleanEdgesAndReadableLettering) {
  // Blending edges over black leaves a rim of the darkest colours, which the
  // key does not remove: a dark halo round every sprite. Keep it rare.
  const uint16_t darkest = (1 << 11) | (1 << 5) | 1;
  for (const char* name : {"graphics/pause.bmp", "graphics/gameover.bmp", "graphics/intro.bmp", "graphics/rocket.bmp",
                           "graphics/rocketmed.bmp", "graphics/rocketfire.bmp"}) {
    bmp::Image565 im = Load(name);
    int dark = 0, opaque = 0;
    for (uint16_t p : im.pixels) {
      opaque += p != 0;
      int r, g, b;
      bmp::Unpack565(p, r, g, b);
      dark += p != 0 && (p == darkest || r + g + b < 24);
    }
    EXPECT_LT(dark, opaque / 50 + 1) << name << ": dark fringe round the key";
  }
  // The boards and the title carry gold words big enough to read at a glance.
  EXPECT_GT(GoldPixels(Load("graphics/pause.bmp"), 0, 180, 260, 260), 1000);
  EXPECT_GT(GoldPixels(Load("graphics/gameover.bmp"), 0, 120, 260, 270), 2500);
  EXPECT_GT(GoldPixels(Load("graphics/intro.bmp"), 60, 150, 580, 280), 6000);
}

TEST(DataScenes, ExplosionsGrowThenFadeInsideTheirFrames) {
  struct Set {
    std::string prefix;
    int first, count, size;
  };
  for (const Set& s : {Set{"graphics/explosion/eexplo", 2, 23, 80}, Set{"graphics/explosion1/", 12001, 15, 64}}) {
    std::vector<int> cover;
    for (int i = 0; i < s.count; ++i) {
      char num[16];
      std::snprintf(num, sizeof num, s.size == 80 ? "%03d" : "%d", s.first + i);
      bmp::Image565 im = Load(s.prefix + num + ".bmp");
      // The corners stay clear so the stretched frame never shows a square.
      EXPECT_EQ(im.at(0, 0) | im.at(s.size - 1, 0) | im.at(0, s.size - 1) | im.at(s.size - 1, s.size - 1), 0);
      cover.push_back(Opaque(im, 0, 0, s.size, s.size));
    }
    auto peak = std::max_element(cover.begin(), cover.end()) - cover.begin();
    EXPECT_GT(cover[0], 0) << s.prefix;
    EXPECT_GT(peak, 0) << s.prefix << ": never grows";
    EXPECT_LT(peak, s.count - 3) << s.prefix << ": never fades";
    EXPECT_GT(cover[peak], s.size * s.size / 3) << s.prefix;
    EXPECT_LT(cover.back(), cover[peak] / 3) << s.prefix << ": smoke does not thin out";
    // The first frames burn bright, the last are smoke.
    bmp::Image565 first = Load(s.prefix + (s.size == 80 ? "004" : std::to_string(s.first + 2)) + ".bmp");
    EXPECT_GT(Luma(At(first, s.size / 2, s.size / 2)), 200) << s.prefix;
  }
}

TEST(DataScenes, RocketsAndFlamesLineUpOnThePad) {
  // The game centres every rocket on x = 530 from its left edge and hangs
  // the flame from its bottom: each must be symmetric and reach its bottom.
  for (const char* name : {"graphics/rocketsmall.bmp", "graphics/rocketmed.bmp", "graphics/rocket.bmp"}) {
    bmp::Image565 im = Load(name);
    int left = im.width, right = -1;
    for (int y = 0; y < im.height; ++y)
      for (int x = 0; x < im.width; ++x)
        if (im.at(x, y)) left = std::min(left, x), right = std::max(right, x);
    EXPECT_LE(std::abs((left + right) - (im.width - 1)), 2) << name << ": off centre";
    EXPECT_GT(Opaque(im, 0, im.height - 2, im.width, im.height), 0) << name << ": feet do not reach the bottom";
    EXPECT_GT(Opaque(im, im.width / 2 - 1, 0, im.width / 2 + 2, 3), 0) << name << ": no nose at the top";
  }
  for (const char* name : {"graphics/rocketfire.bmp", "graphics/rocketfire2.bmp"}) {
    bmp::Image565 im = Load(name);
    EXPECT_EQ(Opaque(im, 12, 0, 36, 1), 24) << name << ": flame must hang from its top edge";
    EXPECT_EQ(im.at(0, 39), 0) << name;
  }
  bmp::Image565 a = Load("graphics/rocketfire.bmp"), b = Load("graphics/rocketfire2.bmp");
  EXPECT_NE(a.pixels, b.pixels) << "the two flames must differ to flicker";
  // The pad: the ground under the rockets' feet is lighter than the sky above it.
  bmp::Image565 back = Load("graphics/rocketback.bmp");
  EXPECT_GT(Luma(Mean(back, 460, 500, 600, 506)), Luma(Mean(back, 460, 470, 600, 480)));
}

TEST(DataScenes, FullScreenPicturesLeaveRoomForTheGamesDrawing) {
  bmp::Image565 menu = Load("graphics/menu.bmp");
  const Rgb gold{250, 200, 0}, lightBlue{100, 150, 255}, olive{100, 100, 45};
  // The table rows are dark olive on the panel; the headings light blue on
  // their rail; the track name gold on its strip.
  EXPECT_GT(Contrast(olive, Mean(menu, 470, 330, 760, 395)), 3.0);
  EXPECT_GT(Contrast(lightBlue, Mean(menu, 475, 293, 750, 309)), 3.0);
  EXPECT_GT(Contrast(gold, Mean(menu, 590, 404, 720, 420)), 4.0);
  // The left half carries the gold title up top; the controls' area is plain.
  EXPECT_GT(GoldPixels(menu, 0, 0, 440, 200), 4000);
  EXPECT_LT(Busy(menu, 456, 80, 764, 280), 3.5);

  // White credits with dark shadows scroll at x 430..800: a dark, calm column.
  bmp::Image565 final = Load("graphics/gameoverscreen.bmp");
  EXPECT_GT(Contrast({255, 255, 255}, Mean(final, 440, 0, 800, 600)), 7.0);
  EXPECT_LT(Busy(final, 440, 0, 800, 600), 4.0);

  // The new-high-score heading sits above y 270; the keyboard area is calm.
  bmp::Image565 high = Load("graphics/newhighscreen.bmp");
  EXPECT_GT(GoldPixels(high, 0, 0, 800, 270), 3000);
  EXPECT_LT(GoldPixels(high, 0, 270, 800, 600), 100);
  EXPECT_LT(Busy(high, 100, 360, 700, 575), 4.0);

  // Fireworks burst in the top 125 rows: a dark sky there.
  bmp::Image565 works = Load("graphics/worksback.bmp");
  EXPECT_LT(Luma(Mean(works, 0, 0, 800, 125)), 30);
}

}  // namespace

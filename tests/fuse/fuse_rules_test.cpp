// Wickory's rules one by one: the charge's four arms, the crawl's junctions
// and limits, levels crossed at once, what registers a charge, the set-up
// rocks, the field's far corner and the ending's table.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "display/assets.h"
#include "display/surface.h"
#include "fuse/crawl.h"
#include "fuse/fuse_state.h"
#include "game/game_state.h"
#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;

namespace {

std::string Dump(const std::string& name, const std::string& script, int maxFrames = 3000,
                 std::string* home = nullptr) {
  const std::string dir = testsupport::ScratchDir(name);
  if (home) *home = dir + "/home";
  std::string text = script;
  for (size_t at; (at = text.find("DIR")) != std::string::npos;) text.replace(at, 3, dir);
  testsupport::GameRun run = testsupport::RunGame(dir, text, {"--max-frames", std::to_string(maxFrames)});
  EXPECT_EQ(run.status, 0) << run.stderrText;
  return testsupport::ReadFile(dir + "/d.json");
}

// A detonator queued first and dropped with Down held onto SETUP.
std::string Detonate(const std::string& name, const std::string& setup, int level = 0) {
  return Dump(name, "0 game wickory a " + std::to_string(level) + " 0 0\n0 next 13\n0 next 1\n0 next 1\n@play mark\n" +
                        setup + "+0 key down Down\n+400 dump DIR/d.json\n+0 quit\n");
}

std::string Stamp(int kind, int fuse, int col, int row) {
  return "+0p stamp " + std::to_string(kind) + " 0 " + std::to_string(fuse) + " " + std::to_string(col) + " " +
         std::to_string(row) + "\n";
}
// A charge whose own cell is (col, row).
std::string Charge(int col, int row) { return Stamp(12, 0, col - 2, row - 1); }

int Occupied(const std::vector<std::string>& field, int fromRow = 0) {
  int n = 0;
  for (size_t r = fromRow; r < field.size(); ++r)
    for (char c : field[r]) n += c != '.';
  return n;
}

}  // namespace

TEST(Detonation, AChargeIsReachedThroughEachOfItsFourArms) {
  // The detonator comes to rest at (6, 19) on the charge at (6, 20), which it
  // enters from above; (7, 19) is entered from its left, (5, 19) from its
  // right and (5, 18), touching only (5, 19), from below.
  const std::string d = Detonate("arms", Charge(6, 20) + Charge(7, 19) + Charge(5, 19) + Charge(5, 18));
  EXPECT_EQ(Number(d, "LitCount"), 4);
  std::vector<std::string> lit;
  for (const auto& p : Records(d, "LitPos")) lit.push_back(p[0] + "," + p[1]);
  lit.resize(4);
  for (const char* probe : {"129,409", "149,389", "109,389", "109,369"})
    EXPECT_NE(std::find(lit.begin(), lit.end(), probe), lit.end()) << probe;
  EXPECT_EQ(Number(d, "ChargeCount"), 0);
  EXPECT_EQ(Occupied(Field(d)), 0) << "all four boxes cleared";
}

TEST(Detonation, BricksCanCrossTwoLevelsAtOnce) {
  // Level 1 at 148 bricks: a charge and a bar burn at least 4 cells.
  const std::string d = Detonate("levels",
                                 "+0p set Lines 148\n+0 set LinesShown 148\n" + Charge(1, 20) + Stamp(0, 0, 2, 19), 1);
  EXPECT_GE(Number(d, "BurntCells"), 4);
  EXPECT_EQ(Number(d, "Lines"), 148 + Number(d, "BurntCells"));
  EXPECT_EQ(Number(d, "Level"), 3) << "straight from 1 to 3";
  EXPECT_EQ(CountSounds(d, 14, 14), 1) << "one level-up fanfare";
}

TEST(Charges, KindNineRegistersOnlyInFuseSetOne) {
  std::string home;
  const std::string d = Dump("nine",
                             "0 game wickory a 0 0 0\n@play mark\n" + Stamp(9, 0, 0, 16) + Stamp(9, 2, 4, 16) +
                                 "+0 dump DIR/sets02.json\n" + Stamp(9, 1, 8, 16) + "+0 dump DIR/d.json\n+0 quit\n",
                             3000, &home);
  EXPECT_EQ(Number(testsupport::ReadFile(home + "/../sets02.json"), "ChargeCount"), 0);
  EXPECT_EQ(Number(d, "ChargeCount"), 1);
  const auto pos = Records(d, "ChargePos");
  ASSERT_FALSE(pos.empty());
  EXPECT_EQ(pos[0][0], "200");
  EXPECT_EQ(pos[0][1], "340");
}

TEST(Charges, TheTwoHundredAndFirstIsNotRegistered) {
  std::string stamps;
  for (int row = 5; row <= 20; ++row)
    for (int col = 0; col <= 12; ++col) stamps += Charge(col, row);
  const std::string d = Dump("limit", "0 game wickory a 0 0 0\n@play mark\n" + stamps + "+0 dump DIR/d.json\n+0 quit\n");
  EXPECT_EQ(Number(d, "ChargeCount"), 200);
  const auto pos = Records(d, "ChargePos");
  ASSERT_EQ(pos.size(), 200u);
  // The 200th stamp: row 5 + 199 / 13 = 20, column 199 % 13 = 4.
  EXPECT_EQ(pos[199][0], "80");
  EXPECT_EQ(pos[199][1], "400");
  EXPECT_EQ(Occupied(Field(d)), 16 * 13) << "the rest are stamped all the same";
}

TEST(Detonation, ADetonatorInTheFarCornerReadsNothingBeyondTheField) {
  // Rocks make every other column a failure: at 10 the detonator rests on
  // rocks, at 11 on a rock over the charge; only at (12, 20) does it touch
  // the charge's right arm, with its right and bottom heads outside the field.
  const std::string d = Dump("corner",
                             "0 game wickory a 0 0 0\n0 next 13\n0 next 1\n0 next 1\n@play mark\n"
                             "+0p field 19 ..........rr.\n+0 field 20 ..........r..\n" +
                                 Charge(11, 20) +
                                 "+0 key down Right\n+90 key down Down\n+400 dump DIR/d.json\n+0 quit\n");
  EXPECT_EQ(Number(d, "LitCount"), 1);
  const auto lit = Records(d, "LitPos");
  ASSERT_FALSE(lit.empty());
  EXPECT_EQ(lit[0][0], "229");
  EXPECT_EQ(lit[0][1], "409");
  EXPECT_EQ(Occupied(Field(d)), 0);
}

TEST(Setup, StartRocksRestBelowTheTopFiveRowsAndPayForEveryCell) {
  for (int level : {0, 7}) {
    // Height 9: eighteen draws; the dump comes before the first piece lands.
    const std::string d =
        Dump("rocks" + std::to_string(level), "0 game wickory a " + std::to_string(level) +
                                                  " 9 0\n0 next 1\n@play mark\n+1p dump DIR/d.json\n+0 quit\n");
    const auto field = Field(d);
    ASSERT_EQ(field.size(), 21u);
    EXPECT_EQ(Occupied(field, 0) - Occupied(field, 5), 0) << "nothing above y = 100";
    EXPECT_GT(Occupied(field), 0);
    EXPECT_EQ(Number(d, "Score"), 10 * (level + 1) * 9 * Occupied(field));
  }
}

TEST(Ending, AWickoryScoreEntersItsOwnTableAtItsRank) {
  const std::string data = testsupport::TestData();
  if (data.empty()) GTEST_SKIP() << "no test data";
  const auto lines = [](const std::string& path) {
    std::vector<std::string> lines;
    std::string text = testsupport::ReadFile(path), line;
    for (char c : text) {
      if (c == '\n') lines.push_back(line), line.clear();
      else if (c != '\r') line += c;
    }
    return lines;
  };
  const std::vector<std::string> table = lines(data + "/VSys/hs.inf");
  ASSERT_EQ(table.size(), 140u);
  const size_t block = 4 * 30;  // the Wickory table comes last
  auto scoreAt = [&](int rank) { return std::stoi(table[block + 4 * rank + 1]); };

  // Type C is stored, yet the Wickory table is the one looked at.
  std::string home;
  auto lose = [&](const std::string& name, int score, bool enters) {
    const std::string d = Dump(name, "0 game wickory c 0 0 0\n0 next 1\n@play mark\n+0p set Score " +
                                         std::to_string(score) + "\n+0 set ScoreShown " + std::to_string(score) +
                                         "\n+0 field 1 ############.\n+0 field 2 ############.\n" +
                                         (enters ? "@highscore mark\n+300 key tap Z\n+2 key tap Return\n" : "") +
                                         "@final mark\n+400 mouse click 1\n"
                                         "@menu dump DIR/d.json\n+0 quit\n",
                               4000, &home);
    EXPECT_EQ(testsupport::DumpValue(d, "screen"), "menu");
    return d;
  };
  const int score = scoreAt(2) + 1;  // above the third, below the second
  ASSERT_LT(score, scoreAt(1));
  lose("entered", score, true);
  std::vector<std::string> expected = table;
  expected.erase(expected.begin() + block + 16, expected.begin() + block + 20);
  expected.insert(expected.begin() + block + 8, {"\"Z\"", std::to_string(score), "0", "0"});
  EXPECT_EQ(lines(home + "/VSys/hs.inf"), expected);
  // Equal to the fifth: no entry, straight to the final screen.
  lose("tied", scoreAt(4), false);
  EXPECT_EQ(lines(home + "/VSys/hs.inf"), table);
}

// The crawl on a bare field surface: one reference colour, heads put by hand.
class Crawl : public ::testing::Test {
 protected:
  static constexpr uint16_t kFuse = 0x07e0;
  void SetUp() override {
    display::CreateBlankSurface(display::Assets.FieldSurfaces[0], 260, 420);
    fuse::FuseState& f = fuse::Fuse;
    f.FuseColour1 = f.FuseColour2 = f.ChargeColour1 = f.ChargeColour2 = kFuse;
    f.ChargeCount = 0;
    f.LitCount = 0;
    f.CellValue = 1;
  }
  void Paint(int x0, int y0, int x1, int y1) {
    for (int y = y0; y <= y1; ++y)
      for (int x = x0; x <= x1; ++x) display::Assets.FieldSurfaces[0].Row(y)[x] = kFuse;
  }
  void Head(int x, int y) {
    fuse::Fuse.FireHeadCount = 1;
    fuse::Fuse.FireHeads[1][0] = static_cast<int16_t>(x);
    fuse::Fuse.FireHeads[1][1] = static_cast<int16_t>(y);
    display::Assets.FieldSurfaces[0].Row(y)[x] = display::kBurntMarker;
  }
};

TEST_F(Crawl, AtAJunctionOneBranchIsContinuedAndTheOtherSpawned) {
  // A stem from (10, 12) up to a bar on y = 10 from x = 5 to 15.
  Paint(5, 10, 15, 10);
  Paint(10, 11, 10, 12);
  Head(10, 12);
  fuse::Sweep();
  fuse::Sweep();
  EXPECT_EQ(fuse::Fuse.FireHeadCount, 1);
  fuse::Sweep();  // at the crossing: right overrides left; left spawns and runs at once
  ASSERT_EQ(fuse::Fuse.FireHeadCount, 2);
  EXPECT_EQ(fuse::Fuse.FireHeads[1][0], 11);
  EXPECT_EQ(fuse::Fuse.FireHeads[2][0], 8);
  // The right head needs four sweeps to x = 15 (the left one dies in the
  // fourth at x = 5), the fifth finds nothing left.
  int sweeps = 0;
  while (fuse::Sweep()) ++sweeps;
  EXPECT_EQ(sweeps, 4);
  for (int x = 5; x <= 15; ++x) EXPECT_EQ(display::Assets.FieldSurfaces[0].Row(10)[x], display::kBurntMarker) << x;
}

TEST_F(Crawl, TheHeadTableStopsAtFiveHundredAndTheCrawlStillEnds) {
  Paint(0, 0, 259, 419);
  Head(130, 210);
  int most = 0, sweeps = 0;
  while (fuse::Sweep() && sweeps < 100000) {
    most = std::max<int>(most, fuse::Fuse.FireHeadCount);
    ++sweeps;
  }
  EXPECT_EQ(most, fuse::kHeadLimit);
  EXPECT_EQ(fuse::Fuse.FireHeadCount, 0);
  EXPECT_LT(sweeps, 100000);
}

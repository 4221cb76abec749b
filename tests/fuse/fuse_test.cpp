// Wickory played through the headless game: fields built with `field` and
// `stamp`, the detonator queued with `next` and dropped with Down held (one
// soft-drop step a pass, Level + 1 points each, paid before the fire starts).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;

namespace {

std::string RunDump(const std::string& name, const std::string& setup, int level = 0) {
  const std::string dir = testsupport::ScratchDir(name);
  const std::string script = "0 game wickory a " + std::to_string(level) +
                             " 0 0\n0 next 13\n0 next 1\n0 next 1\n@play mark\n" + setup +
                             "+0 key down Down\n+400 dump " + dir + "/d.json\n+0 quit\n";
  testsupport::GameRun run = testsupport::RunGame(dir, script);
  EXPECT_EQ(run.status, 0) << run.stderrText;
  return testsupport::ReadFile(dir + "/d.json");
}

bool Played(const std::string& dump, int index) {
  for (const SoundCall& s : Sounds(dump))
    if (s.index == index) return true;
  return false;
}

}  // namespace

TEST(Detonation, ADetonatorTouchingNothingFailsAndLeavesNoTrace) {
  // It lands on the empty floor at column 6; its four heads die over three
  // sweeps (each death moves the last head into the slot, which waits).
  const std::string d = RunDump("nothing", "");
  EXPECT_TRUE(Played(d, 22)) << "the zap";
  EXPECT_EQ(Number(d, "FireHeadCount"), 0);
  EXPECT_EQ(Number(d, "FrameDivider"), 3) << "three sweeps, no frame shown";
  EXPECT_EQ(Number(d, "LitCount"), 0);
  EXPECT_EQ(Number(d, "Score"), Number(d, "ScoreBefore"));
  EXPECT_EQ(Number(d, "Lines"), 0);
  EXPECT_EQ(Field(d)[20], ".............") << "the detonator is never stamped";
}

TEST(Detonation, AFuseWithNoChargeIsFullyUndone) {
  // A bar on the floor, columns 2..5, its fuse touching the detonator's left side.
  const std::string d = RunDump("undone", "+0p stamp 0 0 0 2 19\n");
  EXPECT_TRUE(Played(d, 21));
  EXPECT_TRUE(Played(d, 22));
  EXPECT_EQ(Number(d, "BurntCells"), 4) << "the fire crossed the bar's four centres";
  EXPECT_EQ(Number(d, "Score"), Number(d, "ScoreBefore"));
  EXPECT_EQ(Number(d, "Lines"), 0);
  EXPECT_EQ(Number(d, "LinesShown"), 0) << "put back, never counted down";
  EXPECT_EQ(Field(d)[20], "..####.......");
}

TEST(Detonation, ASuccessClearsTheChargesBoxAndScoresOnePointACellAtLevelZero) {
  // Floor: rock, charge, bar (2..5), detonator lands at 6; a rock at 9 and a
  // second charge at 11 are out of the charge's 5 x 5 box.
  const std::string d = RunDump("success",
                                "+0p field 20 r........r...\n"
                                "+0p stamp 12 0 0 -1 19\n+0p stamp 0 0 0 2 19\n+0p stamp 12 0 0 9 19\n");
  EXPECT_TRUE(Played(d, 0)) << "the explosion";
  EXPECT_EQ(Number(d, "LitCount"), 1);
  const double burnt = Number(d, "BurntCells");
  EXPECT_GE(burnt, 4);
  EXPECT_EQ(Number(d, "Score") - Number(d, "ScoreBefore"), burnt) << "CellValue stays 1 at level 0";
  EXPECT_EQ(Number(d, "Lines"), burnt);
  auto charges = Records(d, "ChargePos");
  EXPECT_EQ(Number(d, "ChargeCount"), 1) << "the far charge, found again by the rebuild";
  ASSERT_GE(charges.size(), 1u);
  EXPECT_EQ(charges[0][0], "220");
  EXPECT_EQ(charges[0][1], "400");
  const std::string row = Field(d)[20];
  EXPECT_EQ(row.substr(0, 2), "..") << "the rock in the box is gone: " << row;
  EXPECT_EQ(row[9], '#') << row;
  EXPECT_EQ(row[11], '#') << row;
}

TEST(Detonation, LevelTwentyGrowsTheCellValueByHalfACell) {
  const std::string d = RunDump("level20", "+0p stamp 0 0 0 2 19\n", 20);
  // Four centres: 21, then x 1.5 each: 21 + 31 + 47 + 70 (whole parts).
  EXPECT_EQ(Number(d, "BurntCells"), 4);
  EXPECT_DOUBLE_EQ(Number(d, "CellValue"), 21 * 1.5 * 1.5 * 1.5 * 1.5);
}

TEST(PieceSupply, NoDetonatorIsDealtWhileNoChargeLies) {
  const std::string dir = testsupport::ScratchDir("supply");
  testsupport::GameRun run = testsupport::RunGame(
      dir, "0 game wickory a 20 0 0\n@play mark\n+3000 dump " + dir + "/d.json\n+0 quit\n");
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string d = testsupport::ReadFile(dir + "/d.json");
  int withoutCharge = 0;
  for (const auto& draw : Records(d, "draws")) {
    const int kind = std::stoi(draw[1]), fuse = std::stoi(draw[2]), charges = std::stoi(draw[3]);
    if (kind > 11) {
      EXPECT_EQ(fuse, 0);
    }
    if (charges == 0) {
      ++withoutCharge;
      EXPECT_NE(kind, 13);
    }
  }
  EXPECT_GT(withoutCharge, 0);
}

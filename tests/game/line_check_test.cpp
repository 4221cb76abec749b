// Scoring, lines and levels of the line check, played through the headless
// game: every piece is a bar (kind 0, lying in columns 5..8 of row 0 when it
// spawns) dropped straight onto a stack built with `field`, so it lands in row
// 2 after two gravity steps and the rows painted full are the ones cleared.
#include <gtest/gtest.h>

#include <string>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;
using testsupport::RunGame;

namespace {

constexpr const char* kHoled = "######.######";  // never full: the bar rests on it
constexpr const char* kFull = "#############";

// A game of the given line with bars queued, rows 3..20 a stack whose top
// `fullRows` rows are full; then the script's own lines.
std::string Script(const std::string& game, int fullRows, const std::string& rest) {
  std::string s = "0 game " + game + "\n";
  for (int i = 0; i < 8; ++i) s += "0 next 0\n";
  for (int row = 3; row <= 20; ++row) s += "0 field " + std::to_string(row) + " " + (row < 3 + fullRows ? kFull : kHoled) + "\n";
  return s + rest;
}

class LineCheck : public ::testing::Test {
 protected:
  void SetUp() override {
    if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  }
};

}  // namespace

TEST_F(LineCheck, PointsByRowCountAndLevel) {
  struct Case {
    const char* game;
    int rows;
    int points;
    int firstVoice, lastVoice;
  };
  const Case cases[] = {
      {"classic a 0 0 0", 1, 125, 107, 111},         // single
      {"classic a 9 0 0", 4, 9750, 122, 126},        // 975 x 10
      {"classic a 0 0 0", 5, 2 * 1775, 127, 129},    // MegaVorrel: 1775 x (1 + 1)
      {"classic a 9 0 0", 5, 11 * 1775, 127, 129},   // 1775 x (10 + 1)
      {"classic a 0 0 0", 6, 3 * 1775, 127, 129},    // 1775 x (1 + 2)
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.game) + ", " + std::to_string(c.rows) + " rows");
    auto dir = testsupport::ScratchDir(std::to_string(c.rows) + "-" + c.game[10]);
    auto run = RunGame(dir, Script(c.game, c.rows, "@sound 4 mark\n+55 quit\n"));
    ASSERT_EQ(run.status, 0) << run.stderrText;
    const std::string& d = run.dumpText;
    EXPECT_EQ(Number(d, "FullRowCount"), c.rows);
    EXPECT_EQ(Number(d, "ScoreBefore"), c.points);
    EXPECT_EQ(Number(d, "Score"), c.points) << "no soft drop: the clear is all the score";
    EXPECT_EQ(Number(d, "Lines"), c.rows);
    EXPECT_EQ(CountSounds(d, c.firstVoice, c.lastVoice), 1) << "one voice of the right kind";
    EXPECT_EQ(CountSounds(d, 107, 129), 1);
    // The cleared rows are gone, the stack and the bar slid down onto it.
    const auto field = Field(d);
    ASSERT_EQ(field.size(), 21u);
    EXPECT_EQ(field[2 + c.rows], ".....####....");
    for (int row = 3 + c.rows; row <= 20; ++row) EXPECT_EQ(field[row], kHoled) << "row " << row;
  }
}

// Started at level 5, a Type A game climbs only once the lines reach 60: the
// level is the tens of the line count, never lowered below the start.
TEST_F(LineCheck, TypeALevelFollowsTheTensOfLines) {
  auto dir = testsupport::ScratchDir("a");
  const std::string rest =
      "0 set Lines 48\n"
      "@sound 4 mark\n"
      "+0p dump " + dir + "/at49.json\n"
      // The bar of the first clear now lies in row 3: fill it up again.
      "+0 field 3 " + kFull + "\n"
      "+0 set Lines 59\n"
      "@sound 4 mark\n"
      "+90 quit\n";
  auto run = RunGame(dir, Script("classic a 5 0 0", 1, rest));
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string at49 = testsupport::ReadFile(dir + "/at49.json");
  EXPECT_EQ(Number(at49, "Lines"), 49);
  EXPECT_EQ(Number(at49, "Level"), 5);
  EXPECT_EQ(CountSounds(at49, 138, 140) + CountSounds(at49, 14, 14), 0) << "no level-up at 49 lines";
  EXPECT_EQ(Number(at49, "Score"), 125 * 6);

  const std::string& d = run.dumpText;
  EXPECT_EQ(Number(d, "Lines"), 60);
  EXPECT_EQ(Number(d, "Level"), 6);
  EXPECT_EQ(Number(d, "LevelUpPending"), 0);
  EXPECT_EQ(Number(d, "Score"), 125 * 6 * 2) << "scored at the level before the clear";
  // The level-up comes right after the 50 frames of the blast: its voice and
  // sound are called 50 frames after the blast's.
  long blast = -1, voice = -1, sound = -1;
  for (const SoundCall& s : Sounds(d)) {
    if (s.index == 4) blast = s.frame;
    if (s.index >= 138 && s.index <= 140) voice = s.frame;
    if (s.index == 14) sound = s.frame;
  }
  ASSERT_GE(blast, 0);
  EXPECT_EQ(voice, blast + 50);
  EXPECT_EQ(sound, blast + 50);
}

// Type B counts down and never below 0; a clear that reaches 0 wins the game
// once the shown counter has walked down to it. The level never moves.
TEST_F(LineCheck, TypeBCountsDownToAWin) {
  auto dir = testsupport::ScratchDir("b");
  const std::string rest =
      "0 set Lines 1\n"
      "@sound 4 mark\n"
      "+200 quit\n";
  auto run = RunGame(dir, Script("classic b 7 0 0", 2, rest));
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string& d = run.dumpText;
  EXPECT_EQ(Number(d, "Lines"), 0) << "two rows from 1 stop at 0";
  EXPECT_EQ(Number(d, "LinesShown"), 0);
  EXPECT_EQ(Number(d, "Level"), 7);
  EXPECT_EQ(Number(d, "ScoreBefore"), 375 * 8);
  EXPECT_EQ(CountSounds(d, 138, 140), 0);
  // The game is over: no piece lands after the winning one.
  EXPECT_EQ(Number(d, "GameAlive"), 0);
  EXPECT_EQ(CountSounds(d, 1, 1), 1);
}

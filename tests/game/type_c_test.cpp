// Type C through the headless game: rising garbage by difficulty, the bomb's
// rows marked clear by clear and its detonation, with what each bomb scores
// and the garbage it leaves. Bars (kind 0, columns 5..8 of row 0) are dropped
// straight onto a stack built with `field`; the bomb stands in columns 6 and
// 7 of rows 19 and 20, so rows painted "######..#####" are full with it.
#include <gtest/gtest.h>

#include <string>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;
using testsupport::ReadFile;
using testsupport::RunGame;

namespace {

constexpr const char* kHoled = "######.######";
constexpr const char* kFull = "#############";
constexpr const char* kAroundBomb = "######..#####";  // full with the bomb
constexpr const char* kShort = "######..####.";       // not full even with it

// Field lines for the whole field: rows 0..2 empty, the given row 3, a holed
// stack down to row 18, and the two bomb rows.
std::string FieldLines(const std::string& row3, const std::string& row19, const std::string& row20) {
  std::string s;
  for (int row = 0; row <= 20; ++row) {
    std::string cells = row < 3 ? "............." : row == 3 ? row3 : row == 19 ? row19 : row == 20 ? row20 : kHoled;
    s += "+0 field " + std::to_string(row) + " " + cells + "\n";
  }
  return s;
}

std::string Game(const std::string& game) {
  std::string s = "0 game " + game + "\n";
  for (int i = 0; i < 12; ++i) s += "0 next 0\n";
  // The preparation's own sound 0 comes before this.
  return s + "@play mark\n";
}

bool HasFullRow(const std::vector<std::string>& field) {
  for (const auto& row : field)
    if (row == kFull) return true;
  return false;
}

class TypeC : public ::testing::Test {
 protected:
  void SetUp() override {
    if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  }
};

}  // namespace

// The counter starts at 1: easy raises a row at every third clear (the first
// at the second), medium at every second, hard at every clear. A rising row
// lifts the whole field and the bomb by one row.
TEST_F(TypeC, GarbageRisesByDifficulty) {
  const int bombAfterFirst[3] = {380, 360, 360}, bombAfterSecond[3] = {360, 360, 340};
  for (int difficulty = 0; difficulty <= 2; ++difficulty) {
    SCOPED_TRACE("difficulty " + std::to_string(difficulty));
    auto dir = testsupport::ScratchDir("rise" + std::to_string(difficulty));
    const std::string script = Game("classic c 0 0 " + std::to_string(difficulty)) +
                               FieldLines(kFull, kShort, kShort) +
                               "@sound 4 mark\n"
                               "+0p dump " + dir + "/first.json\n"
                               "+0 field 5 " + kFull + "\n"
                               "@sound 4 mark\n"
                               "+0p dump " + dir + "/second.json\n"
                               "+0 quit\n";
    auto run = RunGame(dir, script);
    ASSERT_EQ(run.status, 0) << run.stderrText;
    const std::string first = ReadFile(dir + "/first.json"), second = ReadFile(dir + "/second.json");
    EXPECT_EQ(Number(first, "BombY"), bombAfterFirst[difficulty]);
    EXPECT_EQ(Number(second, "BombY"), bombAfterSecond[difficulty]);
    EXPECT_EQ(Number(first, "GarbageCounter"), difficulty == 0 ? 2 : 0);
    EXPECT_EQ(Number(first, "Lines"), 1);
    const auto field = Field(first);
    ASSERT_EQ(field.size(), 21u);
    if (difficulty == 0) {
      EXPECT_EQ(field[3], ".....####....");
      EXPECT_EQ(field[19], kShort);
      EXPECT_EQ(field[20], kShort);
    } else {
      // Everything one row up, a new garbage row with its holes beneath.
      EXPECT_EQ(field[2], ".....####....");
      EXPECT_EQ(field[17], kHoled);
      EXPECT_EQ(field[18], kShort);
      EXPECT_EQ(field[19], kShort);
      EXPECT_GT(CountCells(field[20]), 0);
    }
  }
}

// The bomb goes off only at the clear that completes its second row, here a
// landing after the one that cleared its lower row. It scores 2000 x level x
// height once the bomb is back, then drops as many garbage rows as the height.
TEST_F(TypeC, BombDetonatesWhenBothRowsAreCleared) {
  auto dir = testsupport::ScratchDir("bomb");
  // After the first clear the row above the bomb slides into its upper row.
  const std::string script = Game("classic c 2 0 0") + FieldLines(kHoled, kShort, kAroundBomb) +
                             "@sound 4 mark\n"
                             "+0p dump " + dir + "/half.json\n"
                             "@sound 0 dump " + dir + "/boom1.json\n"
                             "@sound 14 dump " + dir + "/scored1.json\n"
                             "+0p dump " + dir + "/left1.json\n"
                             // The tenth bomb: height 9 before it, the same two landings.
                             "+0 set StartHeight 9\n"
                             "+0 set GarbageCounter 0\n" +
                             FieldLines(kHoled, kShort, kAroundBomb) +
                             "@sound 0 dump " + dir + "/boom10.json\n"
                             "@sound 14 dump " + dir + "/scored10.json\n"
                             "+0p dump " + dir + "/left10.json\n"
                             "+0 quit\n";
  auto run = RunGame(dir, script);
  ASSERT_EQ(run.status, 0) << run.stderrText;

  const std::string half = ReadFile(dir + "/half.json");
  EXPECT_EQ(ArrayText(half, "BombRowsCleared"), "[0,1]") << "the lower row is marked";
  long blast = -1;
  for (const SoundCall& s : Sounds(half)) {
    if (s.index == 4 && blast < 0) blast = s.frame;
    EXPECT_FALSE(s.index == 0 && blast >= 0) << "no detonation yet";
  }
  EXPECT_EQ(Number(half, "StartHeight"), 0);
  EXPECT_EQ(Field(half)[19], kAroundBomb) << "the upper bomb row is now one clear from full";

  const std::string boom1 = ReadFile(dir + "/boom1.json"), scored1 = ReadFile(dir + "/scored1.json");
  EXPECT_EQ(Number(boom1, "StartHeight"), 1);
  EXPECT_EQ(Number(boom1, "Level"), 2);
  EXPECT_EQ(Number(boom1, "Lines"), 2);
  EXPECT_EQ(Number(scored1, "Score") - Number(boom1, "Score"), 2000 * 2 * 1);
  EXPECT_EQ(ArrayText(scored1, "BombRowsCleared"), "[0,0]");
  EXPECT_EQ(Number(scored1, "BombX"), 120);
  EXPECT_EQ(Number(scored1, "BombY"), 380);

  // One row of 13 blocks fell in; the rest of the field is empty.
  const std::string left1 = ReadFile(dir + "/left1.json");
  auto blocks = Records(left1, "RowDebris");
  ASSERT_GE(blocks.size(), 14u);
  EXPECT_EQ(blocks[12][4], "400");
  EXPECT_EQ(blocks[13][4], "0") << "no second row";
  auto field = Field(left1);
  for (int row = 0; row <= 19; ++row) EXPECT_EQ(field[row], ".............") << "row " << row;
  EXPECT_EQ(field[20].substr(6, 2), "..") << "the bomb's cells stay empty";
  EXPECT_EQ(Number(left1, "HideBomb"), 0);

  const std::string boom10 = ReadFile(dir + "/boom10.json"), scored10 = ReadFile(dir + "/scored10.json");
  EXPECT_EQ(Number(boom10, "StartHeight"), 10);
  EXPECT_EQ(Number(scored10, "Score") - Number(boom10, "Score"), 2000 * 2 * 10);
  const std::string left10 = ReadFile(dir + "/left10.json");
  blocks = Records(left10, "RowDebris");
  ASSERT_GE(blocks.size(), 131u);
  EXPECT_EQ(blocks[129][4], "220") << "ten rows, the last at row 11";
  EXPECT_EQ(blocks[130][4], "0");
  field = Field(left10);
  for (int row = 0; row <= 10; ++row) EXPECT_EQ(field[row], ".............") << "row " << row;
  EXPECT_FALSE(HasFullRow(field)) << "complete garbage rows were cleared at once";
  EXPECT_EQ(Number(left10, "Level"), 2) << "below height 20 the level stays";
}

// The 16th bomb takes the height to 16, which the new background turns into
// 20 before the bomb scores; the 17th keeps the height at 20 and raises the
// level instead. Each leaves 20 garbage rows (260 blocks) with holes.
TEST_F(TypeC, SixteenthAndSeventeenthBombs) {
  auto dir = testsupport::ScratchDir("bomb16");
  const std::string script = Game("classic c 3 0 0") + "+0 set StartHeight 15\n" +
                             FieldLines(kHoled, kAroundBomb, kAroundBomb) +
                             "@sound 0 dump " + dir + "/boom16.json\n"
                             "@sound 14 dump " + dir + "/scored16.json\n"
                             "+0p dump " + dir + "/left16.json\n" +
                             FieldLines(kHoled, kAroundBomb, kAroundBomb) +
                             "@sound 0 dump " + dir + "/boom17.json\n"
                             "@sound 14 dump " + dir + "/scored17.json\n"
                             "+0p dump " + dir + "/left17.json\n"
                             "+0 quit\n";
  auto run = RunGame(dir, script);
  ASSERT_EQ(run.status, 0) << run.stderrText;

  const std::string boom16 = ReadFile(dir + "/boom16.json"), scored16 = ReadFile(dir + "/scored16.json");
  EXPECT_EQ(Number(boom16, "StartHeight"), 16);
  EXPECT_EQ(Number(boom16, "Level"), 3);
  EXPECT_EQ(Number(scored16, "StartHeight"), 20);
  EXPECT_EQ(Number(scored16, "Score") - Number(boom16, "Score"), 2000 * 3 * 20);

  const std::string boom17 = ReadFile(dir + "/boom17.json"), scored17 = ReadFile(dir + "/scored17.json");
  EXPECT_EQ(Number(boom17, "StartHeight"), 20);
  EXPECT_EQ(Number(boom17, "Level"), 4);
  EXPECT_EQ(Number(scored17, "Score") - Number(boom17, "Score"), 2000 * 4 * 20);

  for (const char* name : {"left16.json", "left17.json"}) {
    SCOPED_TRACE(name);
    const std::string left = ReadFile(dir + "/" + name);
    EXPECT_EQ(Number(left, "StartHeight"), 20);
    auto blocks = Records(left, "RowDebris");
    ASSERT_EQ(blocks.size(), 273u);
    EXPECT_EQ(blocks[259][4], "20") << "the 20th row tops out at row 1";
    EXPECT_EQ(blocks[260][4], "0");
    const auto field = Field(left);
    EXPECT_EQ(field[0], ".............") << "row 0 stays free for the next piece";
    EXPECT_FALSE(HasFullRow(field));
    EXPECT_EQ(field[19].substr(6, 2), "..");
    EXPECT_EQ(field[20].substr(6, 2), "..");
    int cells = 0;
    for (const auto& row : field) cells += CountCells(row);
    EXPECT_GT(cells, 100) << "most of the garbage survives the 96 holes";
    EXPECT_LT(cells, 260);
  }
  EXPECT_EQ(Number(ReadFile(dir + "/left17.json"), "Level"), 4);
}

// An O piece pushed against the right wall completes both bomb rows of an
// otherwise empty field: the blast takes 50 frames, and with no block left
// to fly the detonation takes its 115 explosion frames and one more.
TEST_F(TypeC, BlastAndDetonationFrameCounts) {
  auto dir = testsupport::ScratchDir("frames");
  std::string script = "0 game classic c 9 0 0\n";
  for (int i = 0; i < 4; ++i) script += "0 next 2\n";
  script += "@play mark\n";
  for (int row = 0; row <= 20; ++row)
    script += "+0 field " + std::to_string(row) + " " + (row >= 19 ? "######..###.." : ".............") + "\n";
  script += "+0 key down Right\n@sound 14 quit\n";
  auto run = RunGame(dir, script);
  ASSERT_EQ(run.status, 0) << run.stderrText;
  long blast = -1, boom = -1, back = -1;
  for (const SoundCall& s : Sounds(run.dumpText)) {
    if (s.index == 4) blast = s.frame;
    if (s.index == 0 && blast >= 0 && boom < 0) boom = s.frame;
    if (s.index == 14) back = s.frame;
  }
  ASSERT_GE(blast, 0);
  EXPECT_EQ(boom, blast + 50);
  EXPECT_EQ(back, boom + 115 + 1);
  // 375 x 10 for the double, 2000 x 9 x 1 for the bomb.
  EXPECT_EQ(Number(run.dumpText, "Score"), 3750 + 18000);
}

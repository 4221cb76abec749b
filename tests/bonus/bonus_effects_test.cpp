// The four bonus pieces played through the headless game: a field built with
// `field`, the piece queued with `next` and put in place with `set`, then
// landed (gravity made due at once, so no soft-drop points) or flipped. The
// dump at the next pass shows the field after the effect and its line check.
// Frame counts come from the sounds log (a sound's frame is the count of
// frames presented before it) and the draws log (FreshNex starts the next
// piece as soon as the line check returns).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;

namespace {

struct Drop {
  std::string game = "bonus a 0 0 0";
  int kind = 12;
  int x = 80, y = 0;  // PieceX, PieceY when it lands or flips
  bool flip = false;
  std::vector<std::pair<int, std::string>> rows;
  std::string extra;  // more lines at the first pass
};

struct Result {
  std::string dump;
  std::vector<std::string> field;
};

Result Play(const std::string& name, const Drop& d) {
  const std::string dir = testsupport::ScratchDir(name);
  std::string s = "0 game " + d.game + "\n0 next " + std::to_string(d.kind) + "\n0 next 1\n@play mark\n";
  for (const auto& [row, cells] : d.rows) s += "+0 field " + std::to_string(row) + " " + cells + "\n";
  s += d.extra;
  s += "+0 set PieceX " + std::to_string(d.x) + "\n+0 set PieceY " + std::to_string(d.y) + "\n";
  s += d.flip ? "+0 key tap Up\n" : "+0 set NextDropTime 0\n";
  s += "+1p dump " + dir + "/after.json\n+0 quit\n";
  testsupport::GameRun run = testsupport::RunGame(dir, s);
  EXPECT_EQ(run.status, 0) << run.stderrText;
  Result r;
  r.dump = testsupport::ReadFile(dir + "/after.json");
  r.field = Field(r.dump);
  EXPECT_EQ(r.field.size(), 21u) << name;
  if (r.field.size() != 21u) r.field.assign(21, "?");
  return r;
}

// The field as 21 rows from a few given ones, the rest empty.
std::vector<std::string> Rows(const std::vector<std::pair<int, std::string>>& rows) {
  std::vector<std::string> f(21, ".............");
  for (const auto& [row, cells] : rows) f[row] = cells;
  return f;
}

std::vector<std::pair<int, std::string>> Stack(std::vector<std::pair<int, std::string>> rows, int from, int to,
                                               const std::string& cells) {
  for (int r = from; r <= to; ++r) rows.push_back({r, cells});
  return rows;
}

std::vector<long> FramesOf(const std::string& dump, int sound) {
  std::vector<long> out;
  for (const SoundCall& s : Sounds(dump))
    if (s.index == sound) out.push_back(s.frame);
  return out;
}

// The frame count at the last FreshNex: the next piece starting.
long LastDraw(const std::string& dump) {
  auto draws = Records(dump, "draws");
  return draws.empty() ? -1 : std::atol(draws.back()[0].c_str());
}

class BonusPieces : public ::testing::Test {
 protected:
  void SetUp() override {
    if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  }
};

}  // namespace

// The bomb clears its 3 x 3 square (cut at the edges) and drops the columns
// above it by the square's height, 60 steps of at least 20 ms: two frames each.
TEST_F(BonusPieces, BombLand) {
  {
    SCOPED_TRACE("column 0: columns 0 and 1 collapse");
    Drop d;
    d.x = -40, d.y = 260;  // the bomb's cell is column 0, row 14
    d.rows = Stack({{10, "##..........."}, {11, "#............"}, {12, ".#..........."}}, 15, 20, "############.");
    Result r = Play("bomb-left", d);
    EXPECT_EQ(r.field, Rows(Stack({{13, "##..........."}, {14, "#............"}, {15, ".###########."}}, 16, 20,
                                  "############.")));
    EXPECT_EQ(Number(r.dump, "Score"), 100);
    auto bang = FramesOf(r.dump, 0);
    ASSERT_FALSE(bang.empty());
    EXPECT_GT(LastDraw(r.dump) - bang.back(), 60 * 2) << "the explosion's steps, then the fly-out";
  }
  {
    SCOPED_TRACE("column 12: columns 11 and 12 collapse");
    Drop d;
    d.x = 200, d.y = 260;
    d.rows = Stack({{10, "...........##"}, {11, "............#"}, {12, "...........#."}}, 15, 20, ".############");
    Result r = Play("bomb-right", d);
    EXPECT_EQ(r.field, Rows(Stack({{13, "...........##"}, {14, "............#"}, {15, ".###########."}}, 16, 20,
                                  ".############")));
  }
  {
    SCOPED_TRACE("bottom row: two rows erased, a 40-pixel collapse");
    Drop d;
    d.x = 80, d.y = 380;
    d.rows = {{17, ".....#.#....."}, {18, "......#......"}, {19, "#####.#######"}, {20, "######.######"}};
    Result r = Play("bomb-bottom", d);
    EXPECT_EQ(r.field, Rows({{19, "######.######"}, {20, "#####.#.#####"}}));
  }
  {
    SCOPED_TRACE("mid-air after a flip: the columns above still drop 60 pixels, a gap stays");
    Drop d;
    d.x = 80, d.y = 100, d.flip = true;
    d.rows = Stack({{2, ".....###....."}, {3, "......#......"}}, 15, 20, "############.");
    Result r = Play("bomb-flip", d);
    EXPECT_EQ(r.field, Rows(Stack({{5, ".....###....."}, {6, "......#......"}}, 15, 20, "############.")));
  }
}

TEST_F(BonusPieces, ColumnClear) {
  {
    SCOPED_TRACE("from the bottom row: nothing below, the column above still drops a cell");
    Drop d;
    d.kind = 13, d.x = 80, d.y = 380;
    d.rows = Stack({{20, "######.######"}}, 15, 17, "......#......");
    Result r = Play("column-bottom", d);
    EXPECT_EQ(r.field, Rows(Stack({{20, "######.######"}}, 16, 18, "......#......")));
    // Fronts 420..440 in 2-pixel steps, then 21 frames of fall-out.
    auto land = FramesOf(r.dump, 1), end = FramesOf(r.dump, 20);
    ASSERT_EQ(end.size(), 1u);
    ASSERT_FALSE(land.empty());
    EXPECT_EQ(end[0] - land.back(), 11);
    EXPECT_EQ(LastDraw(r.dump) - end[0], 21);
    EXPECT_EQ(Number(r.dump, "Score"), 100);
  }
  {
    SCOPED_TRACE("through the Type C bomb's column: what slides into the bomb vanishes");
    Drop d;
    d.game = "bonus c 0 0 0";
    d.kind = 13, d.x = 80, d.y = 200;  // column 6 = BombX, row 11
    d.rows = Stack(Stack({}, 8, 10, "......#......"), 12, 18, "......#.....#");
    Result r = Play("column-bomb", d);
    // Rows 8..10 slide ten rows; the two that reach the bomb's cells are gone.
    EXPECT_EQ(r.field, Rows(Stack({{18, "......#.....#"}}, 12, 17, "............#")));
    EXPECT_EQ(Number(r.dump, "BombY"), 380);
    EXPECT_EQ(CountSounds(r.dump, 19, 19), 7) << "only the seven occupied cells pop with a sound";
  }
}

TEST_F(BonusPieces, ColumnFill) {
  {
    SCOPED_TRACE("resting on a block: sound 10, nothing changes");
    Drop d;
    d.kind = 13, d.x = 80, d.y = 260, d.flip = true;
    d.rows = Stack({}, 15, 20, "############.");
    Result r = Play("fill-resting", d);
    EXPECT_EQ(r.field, Rows(Stack({}, 15, 20, "############.")));
    EXPECT_EQ(CountSounds(r.dump, 10, 10), 1);
    EXPECT_EQ(CountSounds(r.dump, 18, 19), 0);
    EXPECT_EQ(Number(r.dump, "Score"), 100);
  }
  {
    SCOPED_TRACE("down an empty column to the bottom");
    Drop d;
    d.kind = 13, d.x = 80, d.y = 100, d.flip = true;  // starting cell row 6
    d.rows = Stack({}, 15, 20, "#####..######");
    Result r = Play("fill-empty", d);
    EXPECT_EQ(r.field, Rows(Stack(Stack({}, 7, 14, "......#......"), 15, 20, "#####.#######")));
    // Fronts 125..400 in 5-pixel steps of at least 25 ms (two frames each);
    // a block at each of 140..400; then 9 finishing steps.
    auto made = FramesOf(r.dump, 18), done = FramesOf(r.dump, 19);
    ASSERT_EQ(made.size(), 14u);
    ASSERT_EQ(done.size(), 1u);
    EXPECT_EQ(done[0] - made[0], (56 - 3) * 2);
    EXPECT_EQ(LastDraw(r.dump) - done[0], 9 * 2);
  }
  {
    SCOPED_TRACE("one empty cell above the Type C bomb: stops on it");
    Drop d;
    d.game = "bonus c 0 0 0";
    d.kind = 13, d.x = 80, d.y = 320, d.flip = true;  // row 17; row 18 empty, the bomb in rows 19-20
    Result r = Play("fill-bomb", d);
    EXPECT_EQ(r.field, Rows({{18, "......#......"}}));
    EXPECT_EQ(CountSounds(r.dump, 18, 18), 1);
  }
  {
    // As the steps run: the bomb is only seen from a cell-grid front one cell
    // above it, and the first front lies below the starting cell. The blocks
    // made in its cells are blacked with it by the line check's row scan.
    SCOPED_TRACE("starting right on the bomb: runs through it");
    Drop d;
    d.game = "bonus c 0 0 0";
    d.kind = 13, d.x = 80, d.y = 340, d.flip = true;
    Result r = Play("fill-on-bomb", d);
    EXPECT_EQ(CountSounds(r.dump, 18, 18), 2);
    EXPECT_EQ(r.field, Rows({}));
  }
}

TEST_F(BonusPieces, SingleClear) {
  {
    SCOPED_TRACE("the bottom row: everything above drops a row");
    Drop d;
    d.kind = 14, d.x = 80, d.y = 380;
    d.rows = {{18, "#.#.#.#.#.#.#"}, {19, ".#.#.#.#.#.#."}, {20, "######.######"}};
    Result r = Play("single-bottom", d);
    EXPECT_EQ(r.field, Rows({{19, "#.#.#.#.#.#.#"}, {20, ".#.#.#.#.#.#."}}));
    EXPECT_EQ(Number(r.dump, "Score"), 100);
    EXPECT_EQ(Number(r.dump, "Lines"), 0) << "swept, not scored";
    auto start = FramesOf(r.dump, 11), sweep = FramesOf(r.dump, 17);
    ASSERT_EQ(start.size(), 1u);
    ASSERT_EQ(sweep.size(), 1u);
    EXPECT_EQ(sweep[0] - start[0], (110 + 20) / 5 + 1) << "the slide to the left wall";
    EXPECT_GT(LastDraw(r.dump) - sweep[0], 260 / 4 + 1);
  }
  {
    // The bomb is blacked at every column and moves down once the sweep has
    // passed its right column: the block dropped into its left column is
    // erased, the one above its right column rests on it.
    SCOPED_TRACE("a row below the Type C bomb: the bomb moves down");
    Drop d;
    d.game = "bonus c 0 0 0";
    d.kind = 14, d.x = -40, d.y = 340;  // row 18, below a bomb in rows 15-16
    d.extra = "+0 set BombY 300\n";
    d.rows = {{14, "......##....."}, {17, "#............"}, {18, ".############"}, {19, "#............"}};
    Result r = Play("single-bomb", d);
    EXPECT_EQ(Number(r.dump, "BombY"), 320);
    EXPECT_EQ(r.field, Rows({{15, ".......#....."}, {18, "#............"}, {19, "#............"}}));
  }
}

TEST_F(BonusPieces, SingleFall) {
  {
    SCOPED_TRACE("an empty field: thirteen blocks in the bottom row, cleared as a single");
    Drop d;
    d.kind = 14, d.x = 80, d.y = -20, d.flip = true;
    Result r = Play("fall-empty", d);
    auto records = Records(r.dump, "RowDebris");
    ASSERT_GT(records.size(), 12u);
    for (int j = 0; j <= 12; ++j) EXPECT_EQ(records[j][4], "400") << "target of column " << j;
    EXPECT_EQ(r.field, Rows({}));
    EXPECT_EQ(Number(r.dump, "Lines"), 1);
    EXPECT_GT(Number(r.dump, "Score"), 100);
    // Already at the top centre: one frame of flight; then 66 unfolding frames.
    // Column 12 starts after frame 24 and lands on its 57th step, in frame 81.
    auto unfold = FramesOf(r.dump, 11), landed = FramesOf(r.dump, 1);
    ASSERT_EQ(unfold.size(), 1u);
    ASSERT_EQ(landed.size(), 1u + 13u + 0u) << "the piece's own landing and thirteen blocks";
    EXPECT_EQ(unfold[0] - landed[0], 1);
    EXPECT_EQ(landed.back() - unfold[0], 66 + 80);
  }
  {
    SCOPED_TRACE("a full column loses its block above the field");
    Drop d;
    d.kind = 14, d.x = 80, d.y = -20, d.flip = true;
    d.rows = Stack({}, 0, 20, "...#.........");
    d.rows.push_back({19, "...#......#.."});
    Result r = Play("fall-full-column", d);
    auto expected = Rows(Stack({{18, "...#......#.."}, {19, "...#......#.."}}, 0, 17, "...#........."));
    expected[20] = "##########.##";
    EXPECT_EQ(r.field, expected);
    EXPECT_EQ(Records(r.dump, "RowDebris")[3][4], "-20");
  }
  {
    // Column 0 blocked in row 1: block 0 lands in the first frame, and the
    // next frame, with nothing moving, ends the rain; the waiting blocks stay
    // in row 0, which the line check then clears.
    SCOPED_TRACE("the early stop");
    Drop d;
    d.kind = 14, d.x = 80, d.y = -20, d.flip = true;
    d.rows = {{1, "#............"}};
    Result r = Play("fall-early", d);
    EXPECT_EQ(r.field, Rows({{1, "#............"}}));
    EXPECT_EQ(Number(r.dump, "Lines"), 1);
    EXPECT_EQ(FramesOf(r.dump, 1).size(), 2u) << "the piece's landing and block 0";
  }
}

TEST_F(BonusPieces, Earthquake) {
  {
    SCOPED_TRACE("no gaps: unchanged, 100 quake frames and 81 of the shrink");
    Drop d;
    d.kind = 15, d.x = 100, d.y = -20, d.flip = true;
    d.rows = Stack({}, 16, 20, "############.");
    Result r = Play("quake-solid", d);
    EXPECT_EQ(r.field, Rows(Stack({}, 16, 20, "############.")));
    auto shake = FramesOf(r.dump, 12);
    ASSERT_EQ(shake.size(), 1u);
    EXPECT_EQ(LastDraw(r.dump) - shake[0], 20 * 5 + 81);
    EXPECT_EQ(Number(r.dump, "FieldBlitOff"), 0);
  }
  {
    SCOPED_TRACE("a block floating two cells high ends one cell lower");
    Drop d;
    d.kind = 15, d.x = 100, d.y = -20, d.flip = true;
    d.rows = Stack({{18, "..#.........."}}, 19, 20, "##.########..");
    Result r = Play("quake-float", d);
    EXPECT_EQ(r.field, Rows({{19, "###########.."}, {20, "##.########.."}}));
  }
  {
    // The bomb's square is black through the pass: the block above it drops
    // into its cell; the bomb drops a row after rows 20 and 19, which lie
    // below it with both cells under it empty.
    SCOPED_TRACE("Type C: blocks fall into the bomb's cells, the bomb drops");
    Drop d;
    d.game = "bonus c 0 0 0";
    d.kind = 15, d.x = 100, d.y = -20, d.flip = true;
    d.extra = "+0 set BombY 300\n";
    d.rows = {{14, "......#......"}};
    Result r = Play("quake-bomb", d);
    EXPECT_EQ(Number(r.dump, "BombY"), 340);
    EXPECT_EQ(r.field, Rows({{15, "......#......"}}));
  }
}

// A ColumnFill completing both rows of the Type C bomb: the line check clears
// them and detonates the bomb once, raising the height to 1.
TEST_F(BonusPieces, EffectCompletingTheBombRowsDetonatesOnce) {
  Drop d;
  d.game = "bonus c 0 0 0";
  d.kind = 13, d.x = -40, d.y = 320, d.flip = true;
  d.rows = {{19, ".#####..#####"}, {20, ".#####..#####"}};
  Result r = Play("fill-detonate", d);
  EXPECT_EQ(Number(r.dump, "StartHeight"), 1);
  EXPECT_GE(Number(r.dump, "Lines"), 2);
  EXPECT_EQ(ArrayText(r.dump, "BombRowsCleared"), "[0,0]");
}

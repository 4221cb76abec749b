// The falling-piece loop played through the headless game: pieces queued with
// `next`, fields built with `field`, input from the script. Frame counts are
// worked out from the automation clock (a presented frame is 1000/60 ms; no
// pass of these runs presents nothing) and the loop's own steps: a move is
// three slide frames plus the pass's frame, any other pass one frame.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;

namespace {

struct PlayRun {
  testsupport::GameRun run;
  std::string dir;
  std::string Dump(const std::string& name) const { return testsupport::ReadFile(dir + "/" + name); }
};

// `script` may say DIR for the scratch folder.
PlayRun Play(const std::string& name, std::string script, const std::vector<std::string>& args = {}) {
  PlayRun r;
  r.dir = testsupport::ScratchDir(name);
  for (size_t at; (at = script.find("DIR")) != std::string::npos;) script.replace(at, 3, r.dir);
  r.run = testsupport::RunGame(r.dir, script, args);
  EXPECT_EQ(r.run.status, 0) << name << ": " << r.run.stderrText;
  return r;
}

std::vector<long> SoundFrames(const std::string& dump, int index) {
  std::vector<long> out;
  for (const SoundCall& s : Sounds(dump))
    if (s.index == index) out.push_back(s.frame);
  return out;
}

long TickAt(long frames) { return frames * 1000 / 60; }

// Frames from one move to the next while the key is held: the latch is let go
// at the end of the first pass whose tick is past the move's tick + repeat.
long RepeatFrames(long moveFrame, long repeatMs) {
  const long t0 = TickAt(moveFrame);
  long k = 4;  // the move's own three slide frames and its pass's frame
  while (TickAt(moveFrame + k) <= t0 + repeatMs) ++k;
  return k;
}

std::string Rows(int from, int to, const std::string& cells) {
  std::string s;
  for (int r = from; r <= to; ++r) s += "+0 field " + std::to_string(r) + " " + cells + "\n";
  return s;
}

// The x of the piece's cells in the dump, for rotation rot.
std::vector<int> CellXs(const std::string& dump, int rot) {
  auto cells = Records(dump, "PieceCells");
  std::vector<int> xs;
  const int pieceX = static_cast<int>(Number(dump, "PieceX"));
  for (int i = 0; i < 5; ++i) xs.push_back(pieceX + std::stoi(cells[rot * 5 + i][0]));
  return xs;
}

}  // namespace

TEST(FallingLoop, HeldLeftRepeatsByLevelAndStopsAtTheWall) {
  // Level 0..13 repeat after 100 ms; from level 14 on after 170 - 5 x level ms.
  for (auto [level, repeat] : {std::pair{0, 100}, std::pair{14, 100}, std::pair{15, 95}, std::pair{20, 70}}) {
    SCOPED_TRACE(level);
    // The square (box columns 1..2 from x = 100) has six columns to the wall.
    PlayRun r = Play("repeat" + std::to_string(level),
                 "0 game classic a " + std::to_string(level) +
                     " 0 0\n0 next 2\n0 next 1\n@play mark\n"
                     "+0p set NextDropTime 999999999\n+0 key down Left\n"
                     "+60 key down Right\n+10 dump DIR/held.json\n+0 quit\n");
    const std::string dump = r.Dump("held.json");
    ASSERT_EQ(Number(dump, "tick"), TickAt(static_cast<long>(Number(dump, "frame")))) << "only presented frames ran";
    std::vector<long> moves = SoundFrames(dump, 2);
    ASSERT_EQ(moves.size(), 6u) << "six moves, then the wall; Left and Right together move nothing";
    for (size_t i = 0; i + 1 < moves.size(); ++i)
      EXPECT_EQ(moves[i + 1] - moves[i], RepeatFrames(moves[i], repeat)) << "move " << i;
    EXPECT_EQ(Number(dump, "PieceX"), -20);
    EXPECT_EQ(Number(dump, "PieceY"), -20) << "gravity held off";
  }
}

TEST(FallingLoop, SoftDropPointsArePaidOnlyOnLanding) {
  const std::string head = "0 game classic a 3 0 0\n0 next 1\n0 next 2\n0 next 3\n@play mark\n+0p key down Down\n";
  // Held to the floor: every pass is a gravity step worth Level + 1 = 4; the
  // piece (box rows 0..1) falls 19 rows and lands on the 20th step.
  PlayRun held = Play("softheld", head +
                                  "+10p dump DIR/mid.json\n@sound 1 mark\n+0 dump DIR/landed.json\n"
                                  "+30p dump DIR/next.json\n+0 quit\n");
  const std::string mid = held.Dump("mid.json");
  EXPECT_EQ(Number(mid, "Score"), 0);
  EXPECT_EQ(Number(mid, "SoftDropPoints"), 40);
  const std::string landed = held.Dump("landed.json");
  EXPECT_EQ(Number(landed, "Score"), 80);
  EXPECT_EQ(CountCells(Field(landed)[19]) + CountCells(Field(landed)[20]), 4);
  const std::string next = held.Dump("next.json");
  EXPECT_EQ(Number(next, "SoftDropPoints"), 0) << "Down still held: no soft drop for the next piece";
  EXPECT_EQ(Number(next, "Score"), 80);
  EXPECT_LE(Number(next, "PieceY"), 20) << "the next piece falls at its own pace";

  // Released before the landing: the points are forfeit.
  PlayRun released = Play("softreleased", head + "+10p key up Down\n@sound 1 mark\n+0 dump DIR/landed.json\n+0 quit\n");
  EXPECT_EQ(Number(released.Dump("landed.json"), "Score"), 0);
}

TEST(FallingLoop, FlipsAreRefusedAtWallsAndOnBlocks) {
  const std::string head = "0 game classic a 0 0 0\n0 next 0\n0 next 1\n@play mark\n";
  PlayRun free = Play("flipfree", head + "+0p key tap Up\n+2p dump DIR/d.json\n+0 quit\n");
  EXPECT_EQ(Number(free.Dump("d.json"), "PieceRot"), 1);
  EXPECT_EQ(SoundFrames(free.Dump("d.json"), 3).size(), 1u);

  // Upright, the bar crosses rows 1 and 2 whichever box column it turns in.
  PlayRun blocked = Play("flipblocked", head + "+0p mark\n" + Rows(1, 3, "#############") +
                                         "+1p key tap Up\n+2p dump DIR/d.json\n+0 quit\n");
  EXPECT_EQ(Number(blocked.Dump("d.json"), "PieceRot"), 0);
  EXPECT_TRUE(SoundFrames(blocked.Dump("d.json"), 3).empty());

  // Upright against either wall, lying down again would leave the field.
  std::string walls = head + "+0p key tap Up\n";
  for (int i = 0; i < 7; ++i) walls += "+2p key tap Left\n";
  walls += "+2p key tap Up\n+2p dump DIR/left.json\n";
  for (int i = 0; i < 14; ++i) walls += "+2p key tap Right\n";
  walls += "+2p key tap Up\n+2p dump DIR/right.json\n+0 quit\n";
  PlayRun wall = Play("flipwalls", walls);
  const std::string left = wall.Dump("left.json"), right = wall.Dump("right.json");
  EXPECT_EQ(Number(left, "PieceRot"), 1);
  std::vector<int> xs = CellXs(left, 1);
  EXPECT_EQ(*std::min_element(xs.begin(), xs.end()), 10) << "at the left wall";
  EXPECT_EQ(Number(right, "PieceRot"), 1);
  xs = CellXs(right, 1);
  EXPECT_EQ(*std::max_element(xs.begin(), xs.end()), 250) << "at the right wall";
  EXPECT_EQ(SoundFrames(right, 3).size(), 1u) << "only the first flip turned the bar";
}

TEST(FallingLoop, LandingInRowZeroAndTheSpawnTest) {
  // The bar comes in on row 0 over a stack reaching row 1: it lands there,
  // and the next piece overlapping it ends the game: the game-over show.
  PlayRun full = Play("rowzero", "0 game classic a 0 0 0\n0 next 0\n0 next 1\n@play mark\n+0p mark\n" +
                                 Rows(1, 20, "############.") + "+0 set NextDropTime 0\n@gameover quit\n",
                  {"--max-frames", "3000"});
  const std::string& end = full.run.dumpText;
  EXPECT_EQ(testsupport::DumpValue(end, "screen"), "gameover") << "the game ended by itself";
  EXPECT_EQ(Field(end)[0], ".....####....");
  EXPECT_EQ(Number(end, "GameAlive"), 0);
  EXPECT_NE(ArrayText(end, "music").find("\"SetMusicTempo\",125"), std::string::npos) << "danger zone";

  // A stack that leaves the spawn rows free lets the game go on.
  PlayRun room = Play("room", "0 game classic a 20 0 0\n0 next 0\n0 next 1\n0 next 2\n@play mark\n+0p mark\n" +
                              Rows(1, 2, "####.....####") + Rows(3, 20, "############.") +
                              "@sound 1 mark\n+0p dump DIR/d.json\n+0 quit\n");
  const std::string d = room.Dump("d.json");
  EXPECT_EQ(Field(d)[2], "####.########");
  EXPECT_EQ(Number(d, "GameAlive"), 1);
  EXPECT_EQ(Number(d, "PieceKind"), 1);
}

TEST(FallingLoop, PauseLeavesTheFieldAsItWas) {
  PlayRun r = Play("pause",
               "0 game bonus a 0 0 0\n0 next 3\n0 next 1\n@play mark\n+0p field 20 0123401234.##\n"
               "+0 field 19 ..1.2.3.4....\n+0 field 12 4.....3......\n"
               "+1p shot DIR/before.png FieldSurfaces[0]\n+0 dump DIR/before.json\n+0 key tap Escape\n"
               "@pause mark\n+60 key tap Escape\n@play mark\n+0 shot DIR/after.png FieldSurfaces[0]\n"
               "+0 dump DIR/after.json\n+0 quit\n");
  const std::string before = testsupport::ReadFile(r.dir + "/before.png");
  ASSERT_FALSE(before.empty());
  EXPECT_EQ(before, testsupport::ReadFile(r.dir + "/after.png")) << "pixel for pixel";
  const std::string after = r.Dump("after.json");
  EXPECT_EQ(SoundFrames(after, 15).size(), 1u);
  EXPECT_EQ(SoundFrames(after, 16).size(), 1u);
  EXPECT_EQ(Number(after, "PieceX"), Number(r.Dump("before.json"), "PieceX"));
  EXPECT_EQ(Number(after, "PauseRequest"), 0);
}

TEST(FallingLoop, APieceRestsOnTheTypeCBombAsOnAGap) {
  // A square falls onto the bomb a dozen times (erased after each landing):
  // the bomb stops it, yet the landing probes see a gap below it (remark 2,
  // a voice one time in four) and the bomb is never left in the field.
  std::string script = "0 game classic c 20 0 0\n";
  for (int i = 0; i < 13; ++i) script += "0 next 2\n";
  script += "@play mark\n";
  for (int i = 0; i < 11; ++i) script += "@sound 1 mark\n+0p field 17 .............\n+0 field 18 .............\n";
  script += "@sound 1 mark\n+0 dump DIR/d.json\n+0 quit\n";
  PlayRun r = Play("bombrest", script);
  const std::string d = r.Dump("d.json");
  std::vector<std::string> f = Field(d);
  EXPECT_EQ(f[17], "......##.....");
  EXPECT_EQ(f[18], "......##.....");
  EXPECT_EQ(f[19], ".............");
  EXPECT_EQ(f[20], ".............");
  EXPECT_EQ(CountSounds(d, 151, 154), 0) << "nothing above it";
  EXPECT_GE(CountSounds(d, 155, 159), 1) << "a gap below it";
  EXPECT_EQ(SoundFrames(d, 1).size(), 12u);
}

TEST(GameSetUp, StartHeightGivesItsGarbageRows) {
  for (auto [height, rows] : {std::pair{0, 0}, std::pair{1, 2}, std::pair{8, 15}, std::pair{9, 16}}) {
    SCOPED_TRACE(height);
    PlayRun r = Play("height" + std::to_string(height), "0 game classic a 0 " + std::to_string(height) +
                                                        " 0\n@play mark\n+0p dump DIR/d.json\n+0 quit\n");
    const std::string d = r.Dump("d.json");
    int blocks = 0, lowest = 420;
    for (const auto& rec : Records(d, "RowDebris")) {
      const int target = static_cast<int>(std::stod(rec[4]));
      if (target > 0) ++blocks, lowest = std::min(lowest, target);
    }
    EXPECT_EQ(blocks, 13 * rows);
    if (rows) {
      EXPECT_EQ(lowest, 420 - 20 * rows) << "filled from the bottom";
    } else {
      EXPECT_EQ(Number(d, "Score"), 0) << "no garbage, no line check";
      EXPECT_EQ(SoundFrames(d, 0).size(), 1u) << "only the preparation's sound, no blast";
    }
  }
}

TEST(GameStart, GameLineAndOptionStartAGame) {
  PlayRun option = Play("option", "@play mark\n+0p dump DIR/d.json\n+0 quit\n", {"--game", "classic", "b", "4", "0", "0"});
  const std::string d = option.Dump("d.json");
  EXPECT_EQ(Number(d, "GameVariant"), 0);
  EXPECT_EQ(Number(d, "PlayType"), 1);
  EXPECT_EQ(Number(d, "Level"), 4);
  EXPECT_EQ(Number(d, "Lines"), 30) << "Type B starts with 30 to go";
  EXPECT_EQ(Number(d, "KindCount"), 7);

  PlayRun wickory = Play("wickory", "@play mark\n+0p dump DIR/d.json\n+0 quit\n", {"--game", "wickory", "b", "0", "0", "0"});
  const std::string w = wickory.Dump("d.json");
  EXPECT_EQ(Number(w, "GameVariant"), 2);
  EXPECT_EQ(Number(w, "KindCount"), 16);
  EXPECT_EQ(Number(w, "Lines"), 0) << "Wickory has no line target, whatever the type";
}

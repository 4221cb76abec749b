// Games kept with the high scores: a result filed in a table keeps its game,
// the game replays to the state it ended in, a recording of another build or
// data is refused, and the folder keeps one recording per table place.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "automation/replays.h"
#include "frontend/vsys_files.h"
#include "tests/support/run_game.h"

namespace {

namespace fs = std::filesystem;
using namespace testsupport;

// From the menu to Classic A, a game lost at once with 5000 points (fourth
// place of the shipped table), the name ROAD typed, and the final screen.
constexpr const char* kRoad = R"(@menu mark
+61 mark
+2 pointer 600 150
+0 mouse click 1
+2 pointer 535 255
+0 mouse click 1
+2 pointer 700 490
+0 mouse click 1
@play mark
+0p set Score 5000
+0 set ScoreShown 5000
+0 field 3 ############.
+0 field 4 ############.
+0 field 5 ############.
+0 field 6 ############.
+0 field 7 ############.
+0 field 8 ############.
+0 field 9 ############.
+0 field 10 ############.
+0 field 11 ############.
+0 field 12 ############.
+0 field 13 ############.
+0 field 14 ############.
+0 field 15 ############.
+0 field 16 ############.
+0 field 17 ############.
+0 field 18 ############.
+0 field 19 ############.
+0 field 20 ############.
+0 field 1 ############.
+0 field 2 ############.
+0 set NextDropTime 0
@highscore mark
+300 key tap R
+2 key tap O
+2 key tap A
+2 key tap D
+2 key tap Return
@final dump DUMP
+0 quit
)";

std::string RoadScript(const std::string& dumpPath) {
  std::string s = kRoad;
  s.replace(s.find("DUMP"), 4, dumpPath);
  return s;
}

std::vector<std::string> ReplayFiles(const std::string& folder) {
  std::vector<std::string> out;
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec)) out.push_back(entry.path().filename().string());
  std::sort(out.begin(), out.end());
  return out;
}

// The game's state in a dump, without the run's counters and logs.
std::string GameState(const std::string& dump) {
  size_t from = dump.find("\"tick\""), to = dump.find("\"sounds\"");
  return from == std::string::npos || to == std::string::npos ? "" : dump.substr(from, to - from);
}

TEST(KeptReplays, AHighScoreKeepsItsGameAndTheGameReplaysToTheSameEnd) {
  if (TestData().empty()) GTEST_SKIP() << "no test data";
  const std::string dir = ScratchDir("road");
  const std::string home = dir + "/home";
  GameRun run = RunGame(dir, RoadScript(dir + "/end.json"));
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::vector<std::string> kept = ReplayFiles(home + "/replays");
  ASSERT_EQ(kept.size(), 1u);
  EXPECT_EQ(kept[0].rfind("classic-a-", 0), 0u) << kept[0];
  const std::string replay = home + "/replays/" + kept[0];

  GameRun list = RunVorrel(dir, {"--data", TestData(), "--home", home, "--replays"});
  EXPECT_EQ(list.status, 0);
  EXPECT_NE(list.dumpText.find("Classic A     4  ROAD          5000  " + replay), std::string::npos) << list.dumpText;

  // Watched headless, without a home: the player's files stay as they are.
  const std::string tables = ReadFile(home + "/VSys/hs.inf");
  GameRun watch = RunVorrel(dir, {"--headless", "--data", TestData(), "--replay", replay, "--dump", dir + "/watch.json"});
  ASSERT_EQ(watch.status, 0) << watch.stderrText;
  const std::string end = ReadFile(dir + "/end.json"), watched = ReadFile(dir + "/watch.json");
  ASSERT_FALSE(GameState(end).empty());
  EXPECT_EQ(GameState(watched), GameState(end));
  EXPECT_NE(DumpValue(watched, "EntryName"), "");
  EXPECT_EQ(DumpValue(watched, "screen"), "final");
  EXPECT_EQ(ReadFile(home + "/VSys/hs.inf"), tables);
  EXPECT_EQ(ReplayFiles(home + "/replays").size(), 1u);

  // Refused with exit 2 and a message: no recording, another version, other data.
  const std::string text = ReadFile(replay);
  struct Case {
    std::string text, expected;
  };
  std::string otherVersion = text, otherData = text;
  otherVersion.replace(otherVersion.find("# version "), 13, "# version 0.1");
  const size_t hashAt = otherData.find("# data ") + 7;
  otherData.replace(hashAt, 16, "0123456789abcdef");
  const Case cases[] = {
      {"@play mark\n+10 quit\n", "not a recording"},
      {otherVersion, "made by version 0.1 and this is version"},
      {otherData, "made on the data 0123456789abcdef and this game's data"},
  };
  for (const Case& c : cases) {
    WriteFile(dir + "/other.replay", c.text);
    GameRun refused = RunVorrel(dir, {"--headless", "--data", TestData(), "--replay", dir + "/other.replay"});
    EXPECT_EQ(refused.status, 2) << c.expected;
    EXPECT_NE(refused.stderrText.find(c.expected), std::string::npos) << refused.stderrText;
  }
}

automation::Replay KeptFor(int variant, int type, const frontend::HighScoreEntry& e, uint64_t order) {
  automation::Replay r;
  r.version = "1";
  r.dataHash = "0000000000000000";
  r.variant = variant;
  r.type = type;
  r.name = e.Name;
  r.score = e.Score;
  r.lines = e.Lines;
  r.level = e.Level;
  r.order = order;
  r.body = {"@begin mark", "+1 quit"};
  return r;
}

TEST(KeptReplays, TheFolderKeepsOneRecordingPerTablePlace) {
  if (TestData().empty()) GTEST_SKIP() << "no test data";
  const std::string dir = ScratchDir("places");
  const std::string folder = dir + "/home/replays";
  fs::create_directories(folder);
  frontend::HighScoreTable shipped;
  ASSERT_EQ(frontend::ParseHighScores(ReadFile(TestData() + "/VSys/hs.inf"), shipped), 35);

  // The five places of Classic A and the first of Bonus B kept, beside a
  // recording whose place is gone, a file that is no recording and a
  // write that never finished.
  for (int i = 0; i <= 4; ++i)
    WriteFile(folder + "/a" + std::to_string(i) + ".replay", automation::ReplayText(KeptFor(0, 0, shipped[0][0][i], 10)));
  WriteFile(folder + "/bonus.replay", automation::ReplayText(KeptFor(1, 1, shipped[1][1][0], 10)));
  WriteFile(folder + "/ghost.replay", automation::ReplayText(KeptFor(0, 0, {"GHOST", 99999, 1, 1}, 10)));
  WriteFile(folder + "/junk.replay", "not a recording\n");
  WriteFile(folder + "/late.replay.tmp", "half");

  GameRun run = RunGame(dir, RoadScript(dir + "/end.json"));
  ASSERT_EQ(run.status, 0) << run.stderrText;
  std::vector<std::string> files = ReplayFiles(folder);
  ASSERT_EQ(files.size(), 6u);
  EXPECT_EQ(files[0], "a0.replay");
  EXPECT_EQ(files[3], "a3.replay");  // the fourth place moved to fifth
  EXPECT_EQ(files[4], "bonus.replay");
  EXPECT_EQ(files[5].rfind("classic-a-", 0), 0u);  // the new fourth place
  GameRun list = RunVorrel(dir, {"--data", TestData(), "--home", dir + "/home", "--replays"});
  EXPECT_NE(list.dumpText.find("Classic A     5  " + shipped[0][0][3].Name), std::string::npos) << list.dumpText;

  // Equal results: the later one stands above, and the oldest goes first.
  frontend::HighScoreEntry same{"ROAD", 5000, 0, 0};
  std::vector<automation::Replay> ties;
  for (uint64_t order : {1, 3, 2}) {
    ties.push_back(KeptFor(0, 0, same, order));
    ties.back().path = "t" + std::to_string(order);
  }
  automation::TablePlaces places{{"ACE", 9000, 1, 1}, {"ROAD", 5000, 0, 0}, {"ROAD", 5000, 0, 0}, {"X", 1, 0, 0},
                                 {"Y", 0, 0, 0}};
  automation::TableReplays m = automation::MatchReplays(0, 0, places, ties);
  EXPECT_EQ(m.byPlace, (std::vector<std::string>{"", "t3", "t2", "", ""}));
  EXPECT_EQ(m.stale, (std::vector<std::string>{"t1"}));
}

}  // namespace

// The program frame through the real binary: the loading screens, the
// catalogue's counts, failures that end in the catch-all, bad usage.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/run_game.h"

namespace fs = std::filesystem;
using namespace testsupport;

namespace {
#define NEED_DATA()                                              \
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder"
}

TEST(ProgramFrame, LoadingScreensAndCatalogue) {
  NEED_DATA();
  std::string dir = ScratchDir("load");
  GameRun run = RunGame(dir,
                        "120 dump " + dir + "/f120.json\n"
                        "121 dump " + dir + "/f121.json\n"
                        "121 shot " + dir + "/f121.png\n"
                        "@intro quit\n");
  ASSERT_EQ(run.status, 0) << run.stderrText;
  std::string f120 = ReadFile(dir + "/f120.json"), f121 = ReadFile(dir + "/f121.json");
  EXPECT_EQ(DumpValue(f120, "screen"), "loading");
  EXPECT_EQ(DumpValue(f120, "LoadStep"), "0") << "120 plain loading frames come first";
  EXPECT_EQ(DumpValue(f121, "LoadStep"), "20") << "the first progress frame is drawn at the 18th creation step";
  EXPECT_EQ(DumpValue(f120, "tick"), "2000");
  // Every surface and sound counted, 43 progress frames.
  EXPECT_EQ(DumpValue(run.dumpText, "LoadStep"), "877");
  EXPECT_EQ(DumpValue(run.dumpText, "frame"), "164") << "163 loading frames, then the introduction's first";
  EXPECT_TRUE(fs::file_size(dir + "/f121.png") > 1000);
}

// Every data file is checked behind the loading screen, also those read only
// later (the music, the default tables): a broken one never ends a game.
TEST(ProgramFrame, AMissingOrDamagedDataFileEndsInTheCatchAllBeforeAnyPlay) {
  NEED_DATA();
  std::string dir = ScratchDir("missing");
  std::string data = dir + "/data";
  // A copy made of links, so one file can go missing cheaply.
  ASSERT_EQ(std::system(("cp -as '" + TestData() + "' '" + data + "'").c_str()), 0);
  auto cut = [](size_t keep) { return [keep](std::string bytes) { return bytes.substr(0, keep); }; };
  struct Row {
    const char* file;
    std::function<std::string(std::string)> damage;  // none: the file is missing
  };
  const Row rows[] = {
      {"graphics/bombs.bmp", nullptr},
      {"graphics/bombs.bmp", [](std::string b) { return b.replace(14, 4, "\xF5\xFF\xFF\xFF"); }},
      {"sounds/flip.wav", nullptr},
      {"sounds/flip.wav", cut(30)},
      {"music/Over.mid", nullptr},  // played only when a game is lost
      {"music/Intro.mid", [](std::string b) { return b.substr(0, b.size() / 2); }},
      {"VSys/hs.inf", nullptr},  // copied only into a fresh home
      {"VSys/maindata.inf", cut(7)},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.file) + (row.damage ? " damaged" : " missing"));
    const std::string path = data + "/" + row.file;
    const std::string whole = ReadFile(TestData() + "/" + row.file);
    fs::remove(path);
    if (row.damage) WriteFile(path, row.damage(whole));
    GameRun run = RunGame(dir, "", {"--game", "classic", "a", "0", "0", "0"}, data);
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.stderrText.find("message box: Unexpected Error!!!"), std::string::npos) << run.stderrText;
    EXPECT_NE(run.stderrText.find(row.file), std::string::npos) << "the failing file is named: " << run.stderrText;
    EXPECT_NE(run.dumpText.find("Unexpected Error!!!"), std::string::npos) << "the dump logs the message";
    EXPECT_NE(run.dumpText.find("\"screens\":[[0,\"loading\"]],"), std::string::npos) << "no screen after loading";
    WriteFile(path, whole);
  }
}

TEST(ProgramFrame, BadUsage) {
  std::string dir = ScratchDir("usage");
  GameRun run = RunGame(dir, "", {}, dir + "/nowhere");
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.stderrText.find(dir + "/nowhere"), std::string::npos) << "names the path it looked in";
  if (TestData().empty()) return;
  run = RunGame(dir, "", {"--frobnicate"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.stderrText.find("--frobnicate"), std::string::npos);
  run = RunGame(dir, "# fine\n10 key down Nowhere\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.stderrText.find(":2"), std::string::npos) << "the bad line's number: " << run.stderrText;

  // A script that is a folder, and outputs into a folder that does not
  // exist: bad usage naming the path, and no folder made for them.
  fs::create_directories(dir + "/scripts");
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"--script", dir + "/scripts"},
           {"--record", dir + "/none/deeper/r.vs"},
           {"--dump", dir + "/none/deeper/d.json"},
           {"--record", dir + "/scripts"},
       }) {
    run = RunGame(dir, "", args);
    EXPECT_EQ(run.status, 2) << args[0];
    EXPECT_NE(run.stderrText.find(args[1]), std::string::npos) << run.stderrText;
    EXPECT_EQ(run.stderrText.find("message box"), std::string::npos) << "before any frame: " << run.stderrText;
  }
  EXPECT_FALSE(fs::exists(dir + "/none"));
}

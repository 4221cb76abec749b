// The automation through the real binary: bad usage, determinism of two
// identical runs, and a recorded session replayed to the same end state.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/run_game.h"

namespace {

namespace fs = std::filesystem;
using testsupport::ReadFile;
using testsupport::WriteFile;

struct Result {
  int status = -1;
  std::string err;
};

std::string Quote(const std::string& s) {
  std::string q = "'";
  for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

// The binary with exactly these arguments; a stuck run is cut off.
Result Vorrel(const std::vector<std::string>& args, const std::string& dir) {
  std::string cmd = "timeout 300 " + Quote(VORREL_BINARY);
  for (const std::string& a : args) cmd += " " + Quote(a);
  cmd += " 2>" + Quote(dir + "/stderr.txt") + " >/dev/null";
  int rc = std::system(cmd.c_str());
  return {WIFEXITED(rc) ? WEXITSTATUS(rc) : -1, ReadFile(dir + "/stderr.txt")};
}

// Input through every device: the menu's start, play with keys, mouse and pad.
std::string SessionScript(const std::string& dir) {
  return "0 joy plug\n"
         "0 game bonus a 3 2 0\n"
         "0 next 2\n"
         "+0 next 12\n"
         "100 shot " + dir + "/loading.png\n"
         "@play key down Left\n"
         "+12 key up Left\n"
         "+3 key tap Up\n"
         "+0p mouse move -9 0\n"
         "+20 mouse click 1\n"
         "+10 joy axis x 1000\n"
         "+6 joy axis x 0\n"
         "+4 joy down 1\n"
         "+1 joy up 1\n"
         "+2p key tap Down\n"
         "+40 shot " + dir + "/play.png\n"
         "+0 shot " + dir + "/field.png FieldSurfaces[0]\n"
         "+0 dump " + dir + "/mid.json\n"
         "+30 key tap Escape\n"
         "+30 key tap Escape\n";
}

TEST(AutomationBinary, BadUsageEndsWithStatusTwoAndSaysWhere) {
  std::string dir = testsupport::ScratchDir("usage");
  Result r = Vorrel({"--headless", "--frobnicate"}, dir);
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("unknown option --frobnicate"), std::string::npos) << r.err;
  r = Vorrel({"--headless", "--seed", "-4"}, dir);
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("--seed: \"-4\" is not a whole number"), std::string::npos) << r.err;
  r = Vorrel({"--headless", "--max-frames"}, dir);
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("--max-frames needs a value"), std::string::npos) << r.err;

  if (testsupport::TestData().empty()) GTEST_SKIP() << "the data folder " VORREL_TEST_DATA " was not built";
  WriteFile(dir + "/bad.vs", "0 mark\n# fine so far\n12 key down Hyper\n");
  r = Vorrel({"--headless", "--data", testsupport::TestData(), "--home", dir + "/home", "--script", dir + "/bad.vs"},
             dir);
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find(dir + "/bad.vs:3: no key is called \"Hyper\""), std::string::npos) << r.err;
}

TEST(AutomationBinary, TwoIdenticalRunsGiveIdenticalDumpsAndPictures) {
  if (testsupport::TestData().empty()) GTEST_SKIP() << "the data folder " VORREL_TEST_DATA " was not built";
  std::string runs[2];
  for (int i = 0; i < 2; ++i) {
    runs[i] = testsupport::ScratchDir("run" + std::to_string(i));
    WriteFile(runs[i] + "/s.vs", SessionScript(runs[i]));
    Result r = Vorrel({"--headless", "--seed", "11", "--data", testsupport::TestData(), "--home", runs[i] + "/home",
                       "--script", runs[i] + "/s.vs", "--dump", runs[i] + "/end.json", "--max-frames", "1400"},
                      runs[i]);
    ASSERT_EQ(r.status, 0) << r.err;
  }
  std::string end = ReadFile(runs[0] + "/end.json");
  ASSERT_FALSE(end.empty());
  // The run goes as far as the program does today (the loading screens at
  // least) and ends in order either way.
  EXPECT_NE(end.find("\n  \"frame\":"), std::string::npos) << end.substr(0, 200);
  EXPECT_EQ(end, ReadFile(runs[1] + "/end.json"));
  for (const char* file : {"loading.png", "play.png", "field.png", "mid.json"}) {
    bool there = fs::exists(runs[0] + "/" + file);
    EXPECT_EQ(there, fs::exists(runs[1] + "/" + file)) << file;
    if (there) {
      EXPECT_EQ(ReadFile(runs[0] + "/" + file), ReadFile(runs[1] + "/" + file)) << file;
    }
  }
  EXPECT_TRUE(fs::exists(runs[0] + "/loading.png"));
}

TEST(AutomationBinary, ARecordedSessionReplaysToTheSameState) {
  if (testsupport::TestData().empty()) GTEST_SKIP() << "the data folder " VORREL_TEST_DATA " was not built";
  std::string dir = testsupport::ScratchDir("record");
  WriteFile(dir + "/s.vs", SessionScript(dir));
  Result r = Vorrel({"--headless", "--seed", "23", "--data", testsupport::TestData(), "--home", dir + "/home",
                     "--script", dir + "/s.vs", "--dump", dir + "/original.json", "--record", dir + "/rec.vs",
                     "--max-frames", "1400"},
                    dir);
  ASSERT_EQ(r.status, 0) << r.err;
  std::string recording = ReadFile(dir + "/rec.vs");
  ASSERT_EQ(recording.rfind("# seed 23\n", 0), 0u) << recording.substr(0, 200);
  EXPECT_TRUE(fs::exists(dir + "/rec.vs.home/VSys/hs.inf"));
  EXPECT_TRUE(fs::exists(dir + "/rec.vs.home/VSys/maindata.inf"));

  r = Vorrel({"--headless", "--seed", "23", "--data", testsupport::TestData(), "--home", dir + "/rec.vs.home",
              "--script", dir + "/rec.vs", "--dump", dir + "/replay.json"},
             dir);
  ASSERT_EQ(r.status, 0) << r.err;
  std::string original = ReadFile(dir + "/original.json");
  ASSERT_FALSE(original.empty());
  EXPECT_EQ(original, ReadFile(dir + "/replay.json")) << "recording:\n" << recording;
}

}  // namespace

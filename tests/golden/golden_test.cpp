// Golden runs: a seed and a script of a few thousand frames each
// (tests/golden/NAME.vs), whose final dump is kept beside the script
// (NAME.json). Every top-level entry of the kept dump must come out the same
// (entries added to dumps later are not compared). When a move is meant,
// rerun with VORREL_UPDATE_GOLDEN=1 to rewrite the kept dumps and say in the
// commit why they moved.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>

#include "tests/support/run_game.h"

namespace {

// "  \"key\":value," lines of a dump, by key.
std::map<std::string, std::string> Entries(const std::string& dump) {
  std::map<std::string, std::string> out;
  std::istringstream in(dump);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("  \"", 0) != 0) continue;
    size_t colon = line.find("\":", 3);
    if (colon == std::string::npos) continue;
    std::string value = line.substr(colon + 2);
    if (!value.empty() && value.back() == ',') value.pop_back();
    out[line.substr(3, colon - 3)] = value;
  }
  return out;
}

void Golden(const std::string& name) {
  if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  const std::string source = std::string(VORREL_SOURCE_DIR) + "/tests/golden/" + name;
  const std::string dir = testsupport::ScratchDir("golden-" + name);
  testsupport::GameRun run = testsupport::RunGame(dir, testsupport::ReadFile(source + ".vs"), {"--max-frames", "6000"});
  ASSERT_EQ(run.status, 0) << run.stderrText;
  ASSERT_FALSE(run.dumpText.empty());
  ASSERT_LT(std::stol(testsupport::DumpValue(run.dumpText, "frame")), 6000) << "the script ends the run";
  if (std::getenv("VORREL_UPDATE_GOLDEN")) testsupport::WriteFile(source + ".json", run.dumpText);
  ASSERT_TRUE(std::filesystem::exists(source + ".json")) << "no kept dump for " << name;
  const auto kept = Entries(testsupport::ReadFile(source + ".json"));
  const auto now = Entries(run.dumpText);
  ASSERT_GT(kept.size(), 50u);
  for (const auto& [key, value] : kept) {
    auto it = now.find(key);
    ASSERT_NE(it, now.end()) << key << " is gone from the dump";
    EXPECT_EQ(it->second, value) << name << ": " << key;
  }
}

}  // namespace

TEST(GoldenPlay, ClassicA) { Golden("classic_a"); }
TEST(GoldenPlay, ClassicBWonByTheLastLines) { Golden("classic_b"); }
TEST(GoldenPlay, ClassicCWithADetonation) { Golden("classic_c"); }
TEST(GoldenPlay, BonusAWithoutBonusPieces) { Golden("bonus_a"); }
TEST(GoldenPlay, BonusAWithEveryBonusEffect) { Golden("bonus_effects"); }
TEST(GoldenPlay, WickoryAWithAFaultASuccessAndARock) { Golden("wickory_a"); }
TEST(GoldenPlay, TheRoadFromStartUpThroughALostGameBackToTheMenu) { Golden("road"); }

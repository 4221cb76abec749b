// Golden runs: a scripted game whose end state is kept in a file beside the
// script. A change that moves it fails here with the new state printed; when
// the move is meant, rerun with VORREL_UPDATE_GOLDEN=1 to rewrite the file
// and explain the move in the commit.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

namespace {

// The parts of a dump a player sees, one per line.
std::string Summary(const std::string& dump) {
  std::string s;
  for (const char* key : {"frame", "Score", "Lines", "Level", "PieceKind", "PieceX", "PieceY", "NextKind",
                          "SparkNext", "SparkCount", "GameAlive"})
    s += std::string(key) + " " + testsupport::DumpValue(dump, key) + "\n";
  s += "sounds " + std::to_string(linecheck::Sounds(dump).size()) + "\n";
  for (const std::string& row : linecheck::Field(dump)) s += row + "\n";
  return s;
}

void Golden(const std::string& name) {
  if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  const std::string source = std::string(VORREL_SOURCE_DIR) + "/tests/bonus/golden/" + name;
  const std::string dir = testsupport::ScratchDir("golden-" + name);
  std::string script = testsupport::ReadFile(source + ".vs");
  const std::string dumpPath = dir + "/end.json";
  for (size_t at; (at = script.find("DUMP")) != std::string::npos;) script.replace(at, 4, dumpPath);
  auto run = testsupport::RunGame(dir, script);
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string actual = Summary(testsupport::ReadFile(dumpPath));
  if (std::getenv("VORREL_UPDATE_GOLDEN")) testsupport::WriteFile(source + ".expected", actual);
  ASSERT_TRUE(std::filesystem::exists(source + ".expected")) << "no expected state; the run gave:\n" << actual;
  EXPECT_EQ(testsupport::ReadFile(source + ".expected"), actual);
}

}  // namespace

TEST(GoldenRun, BonusAWithEveryBonusEffect) { Golden("bonus_a"); }

// The soak's short form: the whole program run again and again by the
// steering player, from the menu, on one home folder. No run may end in a
// fault or a sanitizer report, and the player must have got somewhere.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

#include "soak/soak.h"
#include "tests/support/run_game.h"

namespace {

using testsupport::ReadFile;
using testsupport::ScratchDir;
using testsupport::TestData;

soak::Options Short(const std::string& name, uint64_t frames) {
  soak::Options o;
  o.frames = frames;
  o.seed = 26;
  o.data = TestData();
  o.home = ScratchDir(name) + "/home";
  o.errorLog = ScratchDir(name + "-err") + "/stderr.txt";
  return o;
}

int GamesStarted(const soak::Counts& c) {
  int n = 0;
  for (const auto& v : c.games)
    for (int g : v) n += g;
  return n;
}

TEST(Soak, ShortSoakPlaysFromTheMenuAndStartsTheProgramAgainWithoutAFault) {
  if (TestData().empty()) GTEST_SKIP() << "no generated data";
  const soak::Options o = Short("soak", 12000);
  const soak::Counts c = soak::Run(o);
  const std::string errors = ReadFile(o.errorLog);
  SCOPED_TRACE(soak::Describe(c) + "stderr of the runs:\n" + errors);

  // Every run ended in order, and nothing was reported on the way.
  EXPECT_GE(c.runs, 2) << "the program was started again";
  EXPECT_EQ(c.cleanRuns, c.runs);
  EXPECT_GE(c.frames, o.frames);
  for (const char* report : {"AddressSanitizer", "LeakSanitizer", "runtime error", "Unexpected Error"})
    EXPECT_EQ(errors.find(report), std::string::npos) << report;

  // The player reached games of more than one kind and their endings.
  EXPECT_GE(GamesStarted(c), 2);
  EXPECT_GE(c.gameOvers, 1);
  int variants = 0;
  for (const auto& v : c.games) variants += (v[0] + v[1] + v[2]) > 0 ? 1 : 0;
  EXPECT_GE(variants, 2);

  // Every game kept with a high score plays again to its result.
  EXPECT_GE(c.replaysWatched, 1);
  EXPECT_EQ(c.replaysMatched, c.replaysWatched);

  // The tables the runs shared are whole: 35 places of four lines.
  std::istringstream table(ReadFile(o.home + "/VSys/hs.inf"));
  int lines = 0;
  for (std::string line; std::getline(table, line);) ++lines;
  EXPECT_EQ(lines, 140);
}

TEST(Soak, TheSameSeedReachesTheSameCounts) {
  if (TestData().empty()) GTEST_SKIP() << "no generated data";
  const soak::Counts a = soak::Run(Short("first", 4000));
  const soak::Counts b = soak::Run(Short("second", 4000));
  EXPECT_EQ(soak::Describe(a), soak::Describe(b));
}

}  // namespace

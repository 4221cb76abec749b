#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/command_line.h"

namespace {

bool Parse(std::vector<std::string> args, automation::Options& out, bool& help) {
  args.insert(args.begin(), "vorrel");
  std::vector<char*> argv;
  for (std::string& a : args) argv.push_back(a.data());
  return frame::ParseCommandLine(static_cast<int>(argv.size()), argv.data(), out, help);
}

TEST(CommandLine, EveryOptionAndItsValue) {
  automation::Options o;
  bool help = true;
  ASSERT_TRUE(Parse({"--headless", "--windowed", "--seed", "4294967295", "--data", "d i r", "--home=h",
                     "--script", "s.vs", "--max-frames", "18446744073709551615", "--max-ticks=100", "--dump", "x.json",
                     "--record", "r.vs"},
                    o, help));
  EXPECT_FALSE(help);
  EXPECT_TRUE(o.headless);
  EXPECT_TRUE(o.windowed);
  EXPECT_EQ(o.seed, 4294967295u);
  EXPECT_EQ(o.dataDir, "d i r");
  EXPECT_EQ(o.homeDir, "h");
  EXPECT_EQ(o.scriptPath, "s.vs");
  EXPECT_EQ(o.maxFrames, 18446744073709551615ull);
  EXPECT_EQ(o.maxTicks, 100u);
  EXPECT_EQ(o.dumpPath, "x.json");
  EXPECT_EQ(o.recordPath, "r.vs");

  automation::Options none;
  ASSERT_TRUE(Parse({}, none, help));
  EXPECT_FALSE(none.headless);
  EXPECT_FALSE(none.seed.has_value());
  EXPECT_FALSE(none.maxFrames.has_value());
}

TEST(CommandLine, BadUsageNamesTheOption) {
  automation::Options o;
  bool help = false;
  for (const std::vector<std::string>& bad : std::vector<std::vector<std::string>>{
           {"--sede", "3"},
           {"--seed", "4294967296"},
           {"--seed", "12abc"},
           {"--seed"},
           {"--max-frames", "-1"},
           {"--max-ticks=1.5"},
           {"--data", ""},
           {"--headless=yes"},
           {"level1.vs"},
       }) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Parse(bad, o, help)) << bad[0];
    std::string err = testing::internal::GetCapturedStderr();
    std::string option = bad[0].substr(0, bad[0].find('='));
    EXPECT_NE(err.find(option), std::string::npos) << err;
  }
  testing::internal::CaptureStdout();
  EXPECT_TRUE(Parse({"--help"}, o, help));
  EXPECT_TRUE(help);
  EXPECT_NE(testing::internal::GetCapturedStdout().find("--max-ticks MS"), std::string::npos);
}

TEST(CommandLine, GameTakesTheFiveWordsOfAGameLine) {
  automation::Options o;
  bool help = false;
  ASSERT_TRUE(Parse({"--game", "bonus", "c", "20", "9", "2", "--seed", "5"}, o, help));
  ASSERT_TRUE(o.game.has_value());
  EXPECT_EQ(o.game->variant, 1);
  EXPECT_EQ(o.game->type, 2);
  EXPECT_EQ(o.game->level, 20);
  EXPECT_EQ(o.game->height, 9);
  EXPECT_EQ(o.game->difficulty, 2);
  EXPECT_EQ(o.seed, 5u) << "the words after the game are options again";
  ASSERT_TRUE(Parse({"--game", "wickory", "a", "0", "0", "0"}, o, help));
  EXPECT_EQ(o.game->variant, 2);

  for (const auto& [bad, says] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"--game", "arcade", "a", "0", "0", "0"}, "arcade"},
           {{"--game", "classic", "d", "0", "0", "0"}, "\"d\""},
           {{"--game", "classic", "a", "21", "0", "0"}, "LEVEL"},
           {{"--game", "classic", "a", "0", "2.5", "0"}, "HEIGHT"},
           {{"--game", "classic", "a", "0", "10", "0"}, "HEIGHT"},
           {{"--game", "classic", "a", "0", "0", "3"}, "DIFFICULTY"},
           {{"--game", "classic", "a", "0", "0"}, "five words"},
       }) {
    automation::Options out;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Parse(bad, out, help)) << says;
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find(says), std::string::npos) << err;
  }
}

}  // namespace

// The script engine driven by hand: frames and polls as the game's loops
// would make them, and what the scripted devices and the game hooks see.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "core/hooks.h"
#include "automation/automation.h"
#include "automation/internal.h"
#include "core/errors.h"
#include "automation/options.h"
#include "core/table.h"
#include "core/variables.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/scripted_input.h"

namespace {

namespace fs = std::filesystem;
namespace in = platform::scripted;

class EngineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("vorrel-engine-" + std::to_string(getpid()));
    fs::create_directories(dir_);
    platform::SetCurrent(platform::MakeHeadlessBackend());
    platform::ClearQuitRequest();
    platform::ResetClock();
  }
  void TearDown() override {
    platform::ClearQuitRequest();
    automation::Configure(automation::Options{});
    automation::SetFieldPainter(nullptr);
    fs::remove_all(dir_);
  }

  void Start(const std::string& script, automation::Options options = {}) {
    options.scriptPath = (dir_ / "t.vs").string();
    std::ofstream(options.scriptPath) << script;
    automation::Configure(options);
    automation::BeforeStartup();
    automation::AfterStartup();
  }
  void Frames(int n) {
    for (int i = 0; i < n; ++i) {
      platform::AdvanceClock(platform::kUnitsPerFrame);
      automation::FrameMoment();
    }
  }
  std::vector<int> Queued() {
    std::vector<int> kinds;
    int kind = 0, fuse = 0;
    while (automation::TakeQueuedPiece(kind, fuse)) kinds.push_back(kind);
    return kinds;
  }
  std::string RunError(const std::function<void()>& step) {
    try {
      step();
    } catch (const core::UsageError& e) {
      return e.what();
    }
    return "";
  }

  fs::path dir_;
};

constexpr int kA = 30, kB = 48, kLeft = 203;

TEST_F(EngineTest, ActingLinesWaitForAPollAndTapsLastOne) {
  Start(
      "2 key down A\n"
      "+0p key tap B\n"
      "+2p key up A\n"
      "+0 key down Left\n"  // the same moment as the poll above
      "5 mouse move 3 4\n");
  Frames(1);
  automation::PollMoment();  // poll 0
  EXPECT_FALSE(in::KeyIsDown(kA));
  Frames(1);  // frame 2: the line is due, the devices wait for the poll
  EXPECT_FALSE(in::KeyIsDown(kA));
  automation::PollMoment();  // poll 1
  EXPECT_TRUE(in::KeyIsDown(kA));
  EXPECT_TRUE(in::KeyIsDown(kB));
  automation::PollMoment();  // poll 2 (no frame between: a loop that presents nothing)
  EXPECT_TRUE(in::KeyIsDown(kA));
  EXPECT_FALSE(in::KeyIsDown(kB)) << "a tap is down for exactly one poll";
  EXPECT_FALSE(in::KeyIsDown(kLeft));
  automation::PollMoment();  // poll 3
  EXPECT_FALSE(in::KeyIsDown(kA));
  EXPECT_TRUE(in::KeyIsDown(kLeft));
  Frames(5);
  int32_t dx = 0, dy = 0;
  in::TakeMotion(dx, dy);
  EXPECT_EQ(dx, 0) << "nothing polled since frame 5";
  automation::PollMoment();
  in::TakeMotion(dx, dy);
  EXPECT_EQ(dx, 3);
  EXPECT_EQ(dy, 4);
}

TEST_F(EngineTest, ScreenVisitsSoundsAndTheControllerLostScreen) {
  Start(
      "@play next 1\n"
      "@play next 2\n"  // the next visit: after the pause
      "@sound 7 next 3\n"
      "@music menutheme next 4\n"
      "@nojoystick next 5\n"
      "+0p key tap Escape\n");
  core::EnterScreen("menu");
  Frames(3);
  core::EnterScreen("play");
  Frames(1);
  EXPECT_EQ(Queued(), std::vector<int>{1});
  Frames(10);
  core::EnterScreen("pause");
  Frames(2);
  EXPECT_TRUE(Queued().empty());
  core::EnterScreen("play");
  Frames(1);
  EXPECT_EQ(Queued(), std::vector<int>{2});
  automation::NoteSound(6, true);
  automation::NoteSound(7, false);  // silenced still counts: it was called
  EXPECT_TRUE(Queued().empty()) << "@sound is the first frame after the call";
  Frames(1);
  EXPECT_EQ(Queued(), std::vector<int>{3});
  automation::NoteMusicPlay("menutheme", true);
  Frames(1);
  EXPECT_EQ(Queued(), std::vector<int>{4});
  automation::PollMoment();
  core::EnterScreen("nojoystick");
  EXPECT_TRUE(Queued().empty());
  automation::PollMoment();  // the controller-lost screen's first poll
  EXPECT_EQ(Queued(), std::vector<int>{5});
  EXPECT_TRUE(in::KeyIsDown(1));
  EXPECT_STREQ(core::CurrentScreen(), "nojoystick");
}

TEST_F(EngineTest, StartUpLinesLimitsAndQuit) {
  automation::Options options;
  options.maxFrames = 4;
  Start(
      "0 joy plug\n"
      "0 game bonus b 7 3 1\n"
      "0 next 12 1\n"
      "+0 key down A\n",
      options);
  EXPECT_TRUE(in::PadPlugged()) << "plugged before the start-up handler looks";
  automation::GameRequest request;
  ASSERT_TRUE(automation::TakeGameRequest(request));
  EXPECT_EQ(request.variant, 1);
  EXPECT_EQ(request.type, 1);
  EXPECT_EQ(request.level, 7);
  EXPECT_EQ(request.height, 3);
  EXPECT_EQ(request.difficulty, 1);
  EXPECT_FALSE(automation::TakeGameRequest(request));
  int kind = 0, fuse = 0;
  ASSERT_TRUE(automation::TakeQueuedPiece(kind, fuse));
  EXPECT_EQ(kind, 12);
  EXPECT_EQ(fuse, 1);
  EXPECT_FALSE(in::KeyIsDown(kA)) << "acting lines at 0 wait for the first poll";
  Frames(3);
  EXPECT_FALSE(platform::QuitRequested());
  Frames(1);
  EXPECT_TRUE(platform::QuitRequested());

  platform::ClearQuitRequest();
  automation::Options ticks;
  ticks.maxTicks = 100;
  Start("+9p quit\n", ticks);
  platform::ResetClock();
  Frames(5);  // 83 ms
  automation::PollMoment();
  EXPECT_FALSE(platform::QuitRequested());
  platform::AdvanceClock(17 * 60);  // 100 ms, reached in a loop that presents nothing
  automation::PollMoment();
  EXPECT_TRUE(platform::QuitRequested());
}

TEST_F(EngineTest, LinesThatAreBadWhereTheyRun) {
  static int16_t level = 0;
  static core::Table<int16_t, 1, 3> counts;
  vars::Expose("TestLevel", level);
  vars::Expose("TestCounts", counts);
  Start(
      "0 set TestLevel 12\n"
      "+0 set TestCounts[3] -1\n"
      "+1 set TestCounts[0] 5\n");
  automation::PollMoment();
  EXPECT_EQ(level, 12);
  EXPECT_EQ(counts[3], -1);
  Frames(1);
  EXPECT_EQ(RunError([] { automation::PollMoment(); }),
            (dir_ / "t.vs").string() + ":3: index 0 is outside TestCounts, which runs 1..3");

  Start("0 field 20 #############\n");
  EXPECT_NE(RunError([] { automation::PollMoment(); }).find(":1: field needs a game in play"), std::string::npos);
  std::vector<std::pair<int, std::string>> painted;
  Start("0 field 20 ##..0123.4###\n+1 set NoSuchVariable 1\n");
  automation::SetFieldPainter([&](int row, const std::string& cells) { painted.emplace_back(row, cells); });
  core::EnterScreen("play");
  automation::PollMoment();
  ASSERT_EQ(painted.size(), 1u);
  EXPECT_EQ(painted[0], std::make_pair(20, std::string("##..0123.4###")));
  Frames(1);
  EXPECT_NE(RunError([] { automation::PollMoment(); }).find(":2: no variable is called NoSuchVariable"),
            std::string::npos);

  Start("+1 game classic a 0 0 0\n+1 game bonus c 2 1 0\n");
  core::EnterScreen("menu");
  Frames(1);
  automation::PollMoment();
  automation::GameRequest request;
  ASSERT_TRUE(automation::TakeGameRequest(request));
  EXPECT_EQ(request.variant, 0);
  core::EnterScreen("play");
  Frames(1);
  EXPECT_NE(RunError([] { automation::PollMoment(); }).find(":2: game starts a game only at 0 or in the menu"),
            std::string::npos);
  vars::Withdraw("TestLevel");
  vars::Withdraw("TestCounts");
}

TEST_F(EngineTest, DumpsHoldCountersVariablesKeysAndLogs) {
  std::optional<vars::Ref> oldKeys = vars::Find("KeyTable");
  static core::Table<bool, 0, 211> keys;
  static double startHeight = 2.5;
  keys[1] = keys[30] = keys[208] = true;
  vars::Expose("KeyTable", keys);
  vars::Expose("TestStartHeight", startHeight);
  automation::Options options;
  options.dumpPath = (dir_ / "end.json").string();
  Start("2 dump " + (dir_ / "two.json").string() + "\n", options);
  automation::NoteSound(3, true);
  automation::NoteSoundStop(3);
  core::EnterScreen("loading");
  Frames(2);
  automation::NoteMusicPlay("menutheme", true);
  automation::NoteMusicTempo(125);
  automation::NoteMusicStop();
  automation::NoteDraw(4, 0, 2, true);
  automation::NoteFile(false, "VSys/hs.inf");
  automation::NoteMessage("Title", "Text \"quoted\"");
  automation::NoteBeep();
  automation::Finish(0);

  std::ifstream two(dir_ / "two.json");
  std::string early((std::istreambuf_iterator<char>(two)), {});
  EXPECT_NE(early.find("\n  \"frame\":2,\n  \"tick\":33,\n  \"screen\":\"loading\",\n"), std::string::npos) << early;
  EXPECT_NE(early.find("\n  \"music\":[],"), std::string::npos);
  std::ifstream end(dir_ / "end.json");
  std::string text((std::istreambuf_iterator<char>(end)), {});
  EXPECT_EQ(text.front(), '{');
  EXPECT_NE(text.find("\n  \"KeyTable\":[\"Escape\",\"A\",\"Down\"],"), std::string::npos) << text;
  EXPECT_NE(text.find("\n  \"TestStartHeight\":2.5,"), std::string::npos);
  EXPECT_NE(text.find("\n  \"sounds\":[[0,3,true],[0,3,\"stop\"]],"), std::string::npos);
  EXPECT_NE(text.find("\n  \"music\":[[2,\"PlayMidi\",\"menutheme\",true],[2,\"SetMusicTempo\",125],[2,\"StopMidi\"]],"),
            std::string::npos);
  EXPECT_NE(text.find("\n  \"draws\":[[2,4,0,2,true]],"), std::string::npos);
  EXPECT_NE(text.find("\n  \"screens\":[[0,\"loading\"]],"), std::string::npos);
  EXPECT_NE(text.find("\n  \"files\":[[2,\"read\",\"VSys/hs.inf\"]],"), std::string::npos);
  EXPECT_NE(text.find("\n  \"messages\":[[2,\"Title\",\"Text \\\"quoted\\\"\"]],"), std::string::npos);
  EXPECT_NE(text.find("\n  \"beeps\":[[2,33]]\n}\n"), std::string::npos);

  if (oldKeys) vars::ExposeRef("KeyTable", *oldKeys); else vars::Withdraw("KeyTable");
  vars::Withdraw("TestStartHeight");
}

// A session that can write no dump keeps none of the logs, so a long one does
// not grow by every sound; a driver inside the process hears every moment and
// outlives Configure.
TEST_F(EngineTest, NoDumpNoLogsAndTheDriverHearsEveryMoment) {
  std::vector<std::string> heard;
  automation::Driver driver;
  driver.Poll = [&] { heard.push_back("poll"); };
  driver.Frame = [&] { heard.push_back("frame"); };
  driver.Screen = [&](const char* name) { heard.push_back(name); };
  driver.Sound = [&](int index) { heard.push_back("sound " + std::to_string(index)); };
  driver.Draw = [&] { heard.push_back("draw"); };
  automation::SetDriver(driver);

  Start("");
  automation::EnterScreen("menu");
  Frames(1);
  automation::PollMoment();
  automation::NoteDraw(1, 0, 0, false);
  for (int i = 0; i < 1000; ++i) automation::NoteSound(7, true);
  const automation::Logs& logs = automation::State().logs;
  EXPECT_TRUE(logs.sounds.empty());
  EXPECT_TRUE(logs.screens.empty());
  EXPECT_TRUE(logs.draws.empty());
  ASSERT_EQ(heard.size(), 1004u);
  EXPECT_EQ(std::vector<std::string>(heard.begin(), heard.begin() + 5),
            (std::vector<std::string>{"menu", "frame", "poll", "draw", "sound 7"}));

  heard.clear();
  Start("5 dump \"" + (dir_ / "late.json").string() + "\"\n");
  automation::NoteSound(7, true);
  EXPECT_EQ(automation::State().logs.sounds.size(), 1u);
  EXPECT_EQ(heard, std::vector<std::string>{"sound 7"});
  automation::SetDriver({});
}

}  // namespace

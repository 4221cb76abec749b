// Recording and replay in process: a small stand-in for the game's loops reads
// the devices the way the control mappings do; the session is recorded, the
// recording replayed, and every reading must come out the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "core/hooks.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "platform/paths.h"
#include "core/variables.h"
#include "platform/backend.h"
#include "platform/devices.h"

namespace {

namespace fs = std::filesystem;

struct StandIn {
  int16_t pointerX = 390, pointerY = 290;
  int32_t level = 0;
  bool padOpen = false;
  std::vector<std::string> trace;

  void Note(const std::string& s) { trace.push_back(s); }

  void InitJoystick() {
    platform::CloseJoystick();
    bool attached = platform::JoystickAttached();
    padOpen = attached && platform::OpenJoystick();
    Note("init " + std::to_string(padOpen));
  }

  void Poll(bool keyboard, bool pointer) {
    automation::PollMoment();
    platform::MouseReading m;
    platform::ReadMouse(m, pointer);
    if (pointer) {
      pointerX = static_cast<int16_t>(std::clamp(pointerX + m.dx, 0, 780));
      pointerY = static_cast<int16_t>(std::clamp(pointerY + m.dy, 0, 580));
    }
    std::ostringstream s;
    s << "mouse " << m.dx << " " << m.dy << " " << int(m.buttons[0]) << int(m.buttons[1]) << int(m.buttons[2]);
    if (padOpen) {
      platform::JoystickReading j;
      padOpen = platform::ReadJoystick(j);
      s << " pad " << padOpen << " " << j.x << " " << j.y << " " << int(j.buttons[2]);
    }
    if (keyboard) {
      uint8_t keys[256];
      platform::ReadKeyboard(keys);
      s << " keys";
      for (int k = 0; k < 256; ++k) {
        if (keys[k]) s << " " << k;
      }
    }
    s << " level " << level;
    int kind = 0, fuse = 0;
    while (automation::TakeQueuedPiece(kind, fuse)) s << " next " << kind << "/" << fuse;
    Note(s.str());
  }

  // Start-up, then frames with a poll each; now and then a second poll that
  // reads only the pointer, a stretch of polls without frames, a re-probe.
  void Run() {
    automation::BeforeStartup();
    InitJoystick();
    automation::AfterStartup();
    for (int step = 0; step < 400 && !platform::QuitRequested(); ++step) {
      if (step >= 60 && step < 64) {
        for (int i = 0; i < 3; ++i) Poll(true, true);
        continue;
      }
      Poll(true, step % 3 == 0);
      if (step % 7 == 0) Poll(false, true);
      if (step == 125) InitJoystick();
      automation::FrameMoment();
    }
    automation::Finish(0);
    Note("ended at " + std::string(core::CurrentScreen()));
  }
};

class RecordReplayTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("vorrel-record-" + std::to_string(getpid()));
    fs::create_directories(dir_ / "data/VSys");
    std::ofstream(dir_ / "data/VSys/hs.inf") << "scores\r\n";
    std::ofstream(dir_ / "data/VSys/maindata.inf") << "1\r\n";
    std::ofstream(dir_ / "source.inf") << "put\r\n";
    platform::SetDataFolder((dir_ / "data").string());
    platform::SetHomeFolder((dir_ / "home").string());
    platform::SetCurrent(platform::MakeHeadlessBackend());
    oldX_ = vars::Find("PointerX");
    oldY_ = vars::Find("PointerY");
  }
  void TearDown() override {
    platform::ClearQuitRequest();
    automation::Configure(automation::Options{});
    if (oldX_) vars::ExposeRef("PointerX", *oldX_); else vars::Withdraw("PointerX");
    if (oldY_) vars::ExposeRef("PointerY", *oldY_); else vars::Withdraw("PointerY");
    vars::Withdraw("TestLevel");
    fs::remove_all(dir_);
  }

  std::vector<std::string> Session(const automation::Options& options) {
    StandIn game;
    vars::Expose("PointerX", game.pointerX);
    vars::Expose("PointerY", game.pointerY);
    vars::Expose("TestLevel", game.level);
    platform::ClearQuitRequest();
    automation::Configure(options);
    game.Run();
    return game.trace;
  }

  fs::path dir_;
  std::optional<vars::Ref> oldX_, oldY_;
};

TEST_F(RecordReplayTest, EveryReadingComesBackTheSame) {
  std::ofstream(dir_ / "in.vs") << "0 joy plug\n"
                                   "0 next 3 1\n"
                                   "2 key down A\n"
                                   "+3 key tap B\n"
                                   "+0p mouse move 5 -3\n"
                                   "+1p pointer 100 100\n"
                                   "+2 mouse down 1\n"
                                   "+4 mouse up 1\n"
                                   "+1 joy axis x 700\n"
                                   "+0 joy raw y -20000\n"
                                   "+2 joy down 3\n"
                                   "+3 joy up 3\n"
                                   "+5 mouse click 2\n"
                                   "+1 set TestLevel 7\n"
                                   "+0 next 9\n"
                                   "50 file put VSys/hs.inf " + (dir_ / "source.inf").string() + "\n"
                                   "60 key down Left\n"
                                   "+2p key up Left\n"
                                   "+5p key tap Space\n"
                                   "+0p pointer 0 580\n"
                                   "100 joy unplug\n"
                                   "+20 joy plug\n"
                                   "+8 joy axis y 1000\n"
                                   "+3 key tap F10\n"
                                   "+30 quit\n";
  automation::Options record;
  record.scriptPath = (dir_ / "in.vs").string();
  record.recordPath = (dir_ / "rec.vs").string();
  record.seed = 99;
  std::vector<std::string> original = Session(record);
  ASSERT_GT(original.size(), 150u);

  std::ifstream recorded(dir_ / "rec.vs");
  std::string text((std::istreambuf_iterator<char>(recorded)), {});
  EXPECT_EQ(text.rfind("# seed 99\n", 0), 0u);
  EXPECT_NE(text.find("\n0 joy plug\n"), std::string::npos) << text;
  EXPECT_NE(text.find("p key up Left\n"), std::string::npos) << "polls without frames are counted in polls";
  EXPECT_NE(text.find(" mouse move -290 -190\n"), std::string::npos) << "the pointer as the motion it gave";
  EXPECT_NE(text.find(" set TestLevel 7\n"), std::string::npos);
  EXPECT_TRUE(fs::exists(dir_ / "rec.vs.home/VSys/hs.inf"));
  std::ifstream kept(dir_ / "rec.vs.home/VSys/hs.inf");
  std::string keptText((std::istreambuf_iterator<char>(kept)), {});
  EXPECT_EQ(keptText, "scores\r\n") << "the home as the session found it";

  automation::Options replay;
  replay.scriptPath = (dir_ / "rec.vs").string();
  platform::SetHomeFolder((dir_ / "rec.vs.home").string());
  std::vector<std::string> again = Session(replay);
  ASSERT_EQ(original.size(), again.size()) << text;
  for (size_t i = 0; i < original.size(); ++i) ASSERT_EQ(original[i], again[i]) << "reading " << i << "\n" << text;
  std::ifstream put(dir_ / "rec.vs.home/VSys/hs.inf");
  std::string putText((std::istreambuf_iterator<char>(put)), {});
  EXPECT_EQ(putText, "put\r\n") << "the replay put the file as the session did";
}

}  // namespace

// Devices that are missing or go away: no audio device, no soundfont, no
// pad, a pad unplugged in the menu and in play. The game plays on without
// their part, each saying so once.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/held_run.h"
#include "tests/support/run_game.h"

using namespace testsupport;

namespace {

#define NEED_DATA() \
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder"

const std::vector<std::string> kGame = {"--game", "classic", "a", "0", "0", "0"};

// The game's own stderr lines, without the window's notice about its renderer.
std::vector<std::string> Notices(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    if (line.rfind("display: ", 0) != 0) lines.push_back(line);
  return lines;
}

}  // namespace

// In a window (with SDL's dummy video driver, so no display is needed), run
// against the same script headless: the same game to the last variable.
TEST(DeviceFaults, NoAudioDeviceOrNoSoundfontSaysSoOnceAndTheGamePlaysOn) {
  NEED_DATA();
  const std::string script = "@play mark\n+0p key down Left\n+20 key up Left\n+40 quit\n";
  std::string dir = ScratchDir("headless");
  const GameRun headless = RunGame(dir, script, kGame);
  ASSERT_EQ(headless.status, 0) << headless.stderrText;
  struct Row {
    const char* what;
    std::vector<std::string> env;
    const char* notice;
  };
  const Row rows[] = {
      // ALSA's own complaints about the device must not reach the terminal.
      {"no audio device", {"SDL_AUDIODRIVER=alsa", "AUDIODEV=vorrel-no-such-device"}, "vorrel: no audio device ("},
      {"no soundfont",
       {"SDL_AUDIODRIVER=dummy", "SDL_SOUNDFONTS=/nonexistent/none.sf2"},
       "vorrel: no General MIDI soundfont (looked for /nonexistent/none.sf2); the game runs without music"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    std::vector<std::string> args = {"--windowed"};
    args.insert(args.end(), kGame.begin(), kGame.end());
    std::vector<std::string> env = row.env;
    env.push_back("SDL_VIDEODRIVER=dummy");
    dir = ScratchDir(row.what);
    HeldRun run = RunHeld(dir, script, args, env);
    EXPECT_EQ(run.status, 0) << run.stderrText;
    const std::vector<std::string> notices = Notices(run.stderrText);
    ASSERT_EQ(notices.size(), 1u) << run.stderrText;
    EXPECT_EQ(notices[0].rfind(row.notice, 0), 0u) << notices[0];
    EXPECT_EQ(run.dumpText, headless.dumpText) << "the game played on as it does headless";
  }
}

TEST(DeviceFaults, NoPadOrAPadUnpluggedInTheMenuAndInPlay) {
  NEED_DATA();
  // No pad: its button 2 pauses nothing and nothing misses it.
  std::string dir = ScratchDir("none");
  GameRun run = RunGame(dir, "@play mark\n+0p joy down 2\n+30 quit\n", kGame);
  ASSERT_EQ(run.status, 0) << run.stderrText;
  EXPECT_EQ(DumpValue(run.dumpText, "screen"), "play");
  EXPECT_EQ(DumpValue(run.dumpText, "JoystickOff"), "-1");
  EXPECT_EQ(run.dumpText.find("nojoystick"), std::string::npos);

  // Unplugged in the menu: the controller-lost screen over the menu (it
  // presents no frames, so the menu's visit goes on), Escape back to a menu
  // that goes on without the pad, even once it is plugged again.
  dir = ScratchDir("menu");
  run = RunGame(dir,
                "0 joy plug\n@menu mark\n+61 joy axis x 1000\n+10 joy axis x 0\n+1 dump " + dir + "/moved.json\n"
                "+0 joy unplug\n@nojoystick dump " + dir + "/lost.json\n+1p key tap Escape\n"
                "+2 joy plug\n+0 joy axis x 1000\n+10 dump " + dir + "/back.json\n"
                "+0 joy axis x 0\n+0 pointer 470 200\n+2 mouse click 1\n+2 quit\n");
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string moved = ReadFile(dir + "/moved.json"), lost = ReadFile(dir + "/lost.json"),
                    back = ReadFile(dir + "/back.json");
  EXPECT_GT(std::stoi(DumpValue(moved, "PointerX")), 390) << "the pad moved the pointer";
  EXPECT_EQ(DumpValue(lost, "screen"), "nojoystick");
  EXPECT_EQ(DumpValue(back, "screen"), "menu");
  EXPECT_EQ(DumpValue(back, "JoystickOff"), "-1");
  EXPECT_EQ(DumpValue(back, "PointerX"), DumpValue(lost, "PointerX")) << "the pad stays off until F1";
  EXPECT_EQ(DumpValue(run.dumpText, "GameVariant"), "1") << "the mouse still works the menu";

  // Unplugged in play: F1 with the pad back reconnects, and play goes on
  // with it: its button 2 pauses.
  dir = ScratchDir("play");
  run = RunGame(dir,
                "0 joy plug\n@play mark\n+0p joy unplug\n@nojoystick mark\n+1p joy plug\n+0p key tap F1\n"
                "+1p key tap Escape\n+2 joy down 2\n@pause dump " + dir + "/paused.json\n+0 quit\n",
                kGame);
  ASSERT_EQ(run.status, 0) << run.stderrText;
  const std::string paused = ReadFile(dir + "/paused.json");
  EXPECT_EQ(DumpValue(paused, "screen"), "pause") << run.stderrText;
  EXPECT_EQ(DumpValue(paused, "JoystickOff"), "0");
}

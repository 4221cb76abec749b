// The orderly quit on every screen, blocking animations and waits for a key
// included: SIGTERM, SIGINT, the automation's close and the window's close
// button all leave at once with exit 0, the player's files whole, the dump and
// the recording written.
#include <signal.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "frontend/vsys_files.h"
#include "tests/support/held_run.h"
#include "tests/support/run_game.h"
#include "tests/support/virtual_display.h"

#ifdef VORREL_TEST_X11
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#endif

namespace fs = std::filesystem;
using namespace testsupport;

namespace {

const std::string kHold = "HOLD";  // the moment of the quit in a row's script

// A game lost at its first landing with a score for the table.
std::string LostGame() {
  std::string s = "@play mark\n+0p set Score 20000\n";
  for (int row = 1; row <= 20; ++row) s += "+0 field " + std::to_string(row) + " ############.\n";
  return s + "+0 set NextDropTime 0\n";
}

struct Place {
  const char* what;
  const char* screen;  // as the final dump names it
  bool game;           // started by --game
  std::string script;
  bool window = false;  // tried in a real window too
};

std::vector<Place> Places() {
  const std::string lost = LostGame();
  return {
      {"the loading screen", "loading", false, "100 HOLD\n"},
      {"the introduction", "intro", false, "@intro mark\n+30 HOLD\n"},
      {"the menu's reveal", "menu", false, "@menu mark\n+10 HOLD\n"},
      {"the menu waiting", "menu", false, "@menu mark\n+100 HOLD\n"},
      {"the start sequence", "menu", true, "@menu mark\n+30 HOLD\n", true},
      {"the game's set-up", "play", true, "@play mark\n+10 HOLD\n"},
      {"a falling piece", "play", true, "@play mark\n+0p mark\n+20 HOLD\n"},
      {"the pause", "pause", true, "@play mark\n+0p key tap Escape\n@pause mark\n+60 HOLD\n"},
      {"the controller-lost screen", "nojoystick", true, "0 joy plug\n@play mark\n+0p joy unplug\n@nojoystick HOLD\n", true},
      {"the game-over unroll", "gameover", true, lost + "@gameover mark\n+130 HOLD\n", true},
      {"the name entry", "highscore", true, lost + "@highscore mark\n+300 HOLD\n"},
      {"the final screen", "final", true, lost + "@highscore mark\n+300 key tap H\n+2 key tap Return\n@final mark\n+50 HOLD\n"},
  };
}

std::string With(std::string script, const std::string& what) {
  return script.replace(script.find(kHold), kHold.size(), what);
}

std::vector<std::string> Args(const Place& s, std::vector<std::string> args) {
  if (s.game) args.insert(args.end(), {"--game", "classic", "a", "0", "0", "0"});
  return args;
}

// Whole files, or none before the game first reads them, and no write left
// half way; a save made before the quit counts.
void ExpectFilesWhole(const std::string& home) {
  if (!fs::exists(home + "/VSys")) return;
  core::MenuSettings settings;
  frontend::HighScoreTable table;
  EXPECT_EQ(frontend::ParseSettings(ReadFile(home + "/VSys/maindata.inf"), settings), 0);
  EXPECT_EQ(frontend::ParseHighScores(ReadFile(home + "/VSys/hs.inf"), table), 35);
  for (const auto& entry : fs::directory_iterator(home + "/VSys"))
    EXPECT_EQ(entry.path().extension(), ".inf") << entry.path();
}

#ifdef VORREL_TEST_X11
// What a window manager sends when the close button is clicked, to every
// window of the process.
bool ClickCloseButton(const std::string& display, pid_t pid) {
  Display* x = XOpenDisplay(display.c_str());
  if (!x) return false;
  const Atom pidAtom = XInternAtom(x, "_NET_WM_PID", False), protocols = XInternAtom(x, "WM_PROTOCOLS", False),
             close = XInternAtom(x, "WM_DELETE_WINDOW", False);
  Window root = DefaultRootWindow(x), parent = 0, *children = nullptr;
  unsigned count = 0;
  int sent = 0;
  XQueryTree(x, root, &root, &parent, &children, &count);
  for (unsigned i = 0; i < count; ++i) {
    Atom type;
    int format;
    unsigned long items, after;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(x, children[i], pidAtom, 0, 1, False, XA_CARDINAL, &type, &format, &items, &after,
                           &data) == Success && data && items == 1 && *reinterpret_cast<long*>(data) == pid) {
      XEvent e{};
      e.xclient.type = ClientMessage;
      e.xclient.window = children[i];
      e.xclient.message_type = protocols;
      e.xclient.format = 32;
      e.xclient.data.l[0] = static_cast<long>(close);
      e.xclient.data.l[1] = CurrentTime;
      sent += XSendEvent(x, children[i], False, NoEventMask, &e) != 0;
    }
    if (data) XFree(data);
  }
  if (children) XFree(children);
  XSync(x, False);  // in the game's queue before it goes on
  XCloseDisplay(x);
  return sent > 0;
}
#endif

}  // namespace

TEST(QuitAnywhere, SignalsAndTheAutomationsCloseEndEveryScreenInOrder) {
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder";
  int n = 0;
  for (const Place& s : Places()) {
    SCOPED_TRACE(s.what);
    // SIGTERM and SIGINT (Ctrl+C in a terminal) by turns, at the held moment.
    const int sig = n++ % 2 ? SIGINT : SIGTERM;
    std::string dir = ScratchDir("signal" + std::to_string(n));
    HeldRun run = RunHeld(dir, With(s.script, "dump " + HeldPath(dir)),
                          Args(s, {"--headless", "--max-frames", "4000000000", "--record", dir + "/game.vs"}), {},
                          [sig](pid_t pid) { kill(pid, sig); });
    ASSERT_TRUE(run.held) << run.stderrText;
    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, 0) << run.stderrText;
    EXPECT_EQ(DumpValue(run.dumpText, "screen"), s.screen);
    EXPECT_EQ(DumpValue(run.dumpText, "frame"), DumpValue(run.heldDump, "frame")) << "left at the next pass";
    std::string recording = ReadFile(dir + "/game.vs");
    EXPECT_TRUE(recording.ends_with(" quit\n")) << "the recording ends with the quit:\n" << recording;
    ExpectFilesWhole(dir + "/home");

    // `close` at the same moment ends the run there as well.
    std::string closeDir = ScratchDir("close" + std::to_string(n));
    GameRun closed = RunGame(closeDir, With(s.script, "close"), Args(s, {}));
    EXPECT_EQ(closed.status, 0) << closed.stderrText;
    EXPECT_EQ(DumpValue(closed.dumpText, "screen"), s.screen);
    EXPECT_EQ(DumpValue(closed.dumpText, "frame"), DumpValue(run.dumpText, "frame"));
    ExpectFilesWhole(closeDir + "/home");
  }
}

// The close button of a real window on a blocking animation, the
// controller-lost screen's idle loop and a wait for a key.
TEST(QuitAnywhere, TheWindowsCloseButtonEndsItInOrder) {
#ifndef VORREL_TEST_X11
  GTEST_SKIP() << "built without X11";
#else
  const std::string xvfb = FindInPath("Xvfb");
  if (xvfb.empty()) GTEST_SKIP() << "Xvfb is not installed";
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder";
  const std::string dir = ScratchDir("x");
  VirtualDisplay display;
  std::string error;
  ASSERT_TRUE(display.Start(xvfb, dir, error)) << error;
  int n = 0;
  for (const Place& s : Places()) {
    if (!s.window) continue;
    SCOPED_TRACE(s.what);
    std::string runDir = ScratchDir("window" + std::to_string(++n));
    bool clicked = false;
    HeldRun run = RunHeld(runDir, With(s.script, "dump " + HeldPath(runDir)), Args(s, {"--windowed"}),
                          {"DISPLAY=" + display.Name(), "SDL_AUDIODRIVER=dummy"},
                          [&](pid_t pid) { clicked = ClickCloseButton(display.Name(), pid); });
    ASSERT_TRUE(run.held) << run.stderrText;
    EXPECT_TRUE(clicked) << "no window of the game found";
    EXPECT_EQ(run.status, 0) << run.stderrText;
    EXPECT_EQ(DumpValue(run.dumpText, "screen"), s.screen);
    const int frames = std::stoi(DumpValue(run.dumpText, "frame")) - std::stoi(DumpValue(run.heldDump, "frame"));
    EXPECT_TRUE(frames == 0 || frames == 1) << frames << " frames after the click";
    ExpectFilesWhole(runDir + "/home");
  }
  EXPECT_EQ(n, 3);
#endif
}

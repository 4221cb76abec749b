// The real program in a real window, on a virtual X server: it must start,
// show frames, take both kinds of screenshot and end in order.
#include <SDL2/SDL_image.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/virtual_display.h"

namespace {

using testsupport::FindInPath;
using testsupport::VirtualDisplay;

namespace fs = std::filesystem;

pid_t Spawn(const std::vector<std::string>& args, const std::vector<std::string>& env, int keepFd,
            const std::string& logPath) {
  pid_t pid = fork();
  if (pid != 0) return pid;
  for (const auto& e : env) putenv(const_cast<char*>(e.c_str()));
  int log = open(logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (log >= 0) {
    dup2(log, 1);
    dup2(log, 2);
  }
  int null = open("/dev/null", O_RDONLY);
  if (null >= 0) dup2(null, 0);
  for (int fd = 3; fd < 1024; ++fd)
    if (fd != keepFd) close(fd);
  std::vector<char*> argv;
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  execv(argv[0], argv.data());
  _exit(127);
}

// Waits for the child; kills it if it is still running after limitSeconds.
// Returns the exit status, or -1 when it had to be killed or crashed.
int Wait(pid_t pid, int limitSeconds) {
  for (int i = 0; i < limitSeconds * 10; ++i) {
    int status = 0;
    pid_t r = waitpid(pid, &status, WNOHANG);
    if (r == pid) return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (r < 0) return -1;
    usleep(100000);
  }
  kill(pid, SIGKILL);
  waitpid(pid, nullptr, 0);
  return -1;
}

std::string ReadAll(const std::string& path) {
  std::ifstream in(path);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

struct Picture {
  int width = 0, height = 0;
  std::vector<uint8_t> rgb;
};

bool LoadPng(const fs::path& path, Picture& out) {
  SDL_Surface* loaded = IMG_Load(path.c_str());
  if (!loaded) return false;
  SDL_Surface* rgb = SDL_ConvertSurfaceFormat(loaded, SDL_PIXELFORMAT_RGB24, 0);
  SDL_FreeSurface(loaded);
  if (!rgb) return false;
  out.width = rgb->w;
  out.height = rgb->h;
  for (int y = 0; y < rgb->h; ++y) {
    const uint8_t* row = static_cast<const uint8_t*>(rgb->pixels) + y * rgb->pitch;
    out.rgb.insert(out.rgb.end(), row, row + rgb->w * 3);
  }
  SDL_FreeSurface(rgb);
  return true;
}

TEST(XvfbSmoke, WindowedRunTakesBothShotsAndEndsInOrder) {
  std::string xvfb = FindInPath("Xvfb");
  if (xvfb.empty()) GTEST_SKIP() << "Xvfb is not installed; the windowed run is not tried";
  std::string data = VORREL_TEST_DATA;
  if (data.empty() || !fs::is_directory(data))
    GTEST_SKIP() << "no data folder in this build (\"" << data << "\"); the windowed run is not tried";

  fs::path dir = fs::temp_directory_path() / ("vorrel-smoke-" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir / "home");
  fs::path windowShot = dir / "window.png", screenShot = dir / "screen.png";
  {
    std::ofstream script(dir / "shots.txt");
    script << "# both shots of the same presented frame\n"
           << "100 shot " << windowShot.string() << " window\n"
           << "+0 shot " << screenShot.string() << "\n";
  }

  VirtualDisplay display;
  std::string error;
  ASSERT_TRUE(display.Start(xvfb, dir.string(), error)) << error;

  pid_t game = Spawn({VORREL_BINARY, "--windowed", "--data", data, "--home", (dir / "home").string(),
                      "--script", (dir / "shots.txt").string(), "--max-frames", "150", "--seed", "1"},
                     {"DISPLAY=" + display.Name(), "SDL_AUDIODRIVER=dummy"}, -1, (dir / "game.log").string());
  int status = Wait(game, 240);
  std::string log = ReadAll((dir / "game.log").string());
  ASSERT_EQ(status, 0) << "the program's output:\n" << log;

  Picture window, screen;
  ASSERT_TRUE(LoadPng(windowShot, window)) << "no readable window shot; output:\n" << log;
  ASSERT_TRUE(LoadPng(screenShot, screen)) << "no readable screen shot; output:\n" << log;
  EXPECT_EQ(screen.width, 800);
  EXPECT_EQ(screen.height, 600);
  // The window opens at the picture's size, so the window shot has no bars
  // and shows the same frame.
  EXPECT_EQ(window.width, 800);
  EXPECT_EQ(window.height, 600);

  // A real picture, not a blank window.
  int bright = 0;
  for (size_t i = 0; i < window.rgb.size(); i += 3)
    if (window.rgb[i] + window.rgb[i + 1] + window.rgb[i + 2] > 96) ++bright;
  EXPECT_GT(bright, 100) << "the window shot is (nearly) all dark";
  EXPECT_LT(bright, window.width * window.height) << "the window shot is one colour";

  if (window.rgb.size() == screen.rgb.size()) {
    // Same frame: the window's pixels are the picture's, give or take the
    // widening of 5-6-5 colours by the renderer.
    long long diff = 0;
    for (size_t i = 0; i < window.rgb.size(); ++i) diff += std::abs(int(window.rgb[i]) - int(screen.rgb[i]));
    EXPECT_LT(diff / double(window.rgb.size()), 4.0) << "the window does not show the picture";
  }
  fs::remove_all(dir);
}

TEST(XvfbSmoke, ALiveRecordingReplaysHeadlessToTheSameDump) {
  std::string xvfb = FindInPath("Xvfb");
  if (xvfb.empty()) GTEST_SKIP() << "Xvfb is not installed";
  std::string data = VORREL_TEST_DATA;
  if (data.empty() || !fs::is_directory(data)) GTEST_SKIP() << "no data folder in this build";

  fs::path dir = fs::temp_directory_path() / ("vorrel-record-" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir / "home");
  VirtualDisplay display;
  std::string error;
  ASSERT_TRUE(display.Start(xvfb, dir.string(), error)) << error;
  // Live: no seed given, paced to real time; the recording carries the seed.
  pid_t game = Spawn({VORREL_BINARY, "--windowed", "--data", data, "--home", (dir / "home").string(), "--record",
                      (dir / "live.vs").string(), "--dump", (dir / "live.json").string(), "--max-frames", "140"},
                     {"DISPLAY=" + display.Name(), "SDL_AUDIODRIVER=dummy"}, -1, (dir / "live.log").string());
  ASSERT_EQ(Wait(game, 240), 0) << ReadAll((dir / "live.log").string());
  std::string recording = ReadAll((dir / "live.vs").string());
  ASSERT_EQ(recording.rfind("# seed ", 0), 0u) << recording.substr(0, 100);
  std::string seed = recording.substr(7, recording.find('\n') - 7);

  pid_t replay = Spawn({VORREL_BINARY, "--headless", "--seed", seed, "--data", data, "--home",
                        (dir / "live.vs.home").string(), "--script", (dir / "live.vs").string(), "--dump",
                        (dir / "replay.json").string()},
                       {}, -1, (dir / "replay.log").string());
  ASSERT_EQ(Wait(replay, 120), 0) << ReadAll((dir / "replay.log").string());
  std::string live = ReadAll((dir / "live.json").string());
  EXPECT_FALSE(live.empty());
  EXPECT_EQ(live, ReadAll((dir / "replay.json").string()));
  fs::remove_all(dir);
}

}  // namespace

// The program's spine: the start-up handler, GameMain and ExitProgram, with
// the catch-all that turns any failure into the error box and an orderly exit.
#include "frame/program.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <exception>
#include <cstdlib>
#include <filesystem>

#include "audio/audio_devices.h"
#include "audio/music.h"
#include "audio/sound_effects.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "automation/automation.h"
#include "automation/kept_games.h"
#include "frame/catalogue.h"
#include "frame/credits.h"
#include "core/errors.h"
#include "frame/frame_state.h"
#include "core/run_state.h"
#include "frame/command_line.h"
#include "display/passes.h"
#include "platform/paths.h"
#include "core/random.h"
#include "frame/state_exposure.h"
#include "core/settings.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "frontend/front_state.h"
#include "frontend/game_over.h"
#include "frontend/intro.h"
#include "frontend/menu.h"
#include "frontend/vsys_files.h"
#include "game/end_hooks.h"
#include "game/game_over_hook.h"
#include "frontend/high_scores.h"
#include "core/hooks.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/backend.h"
#include "platform/devices.h"

namespace frame {

FrameState Frame;

namespace {

constexpr const char* kVendorAddress = "https://www.libsdl.org/";

std::string DirectXText(const std::string& object, const std::string& ending) {
  return "Error Creating a DirectX " + object +
         ", The problem may be that you have an outdated version of DirectX, Bonus Vorrel plus Wickory requires "
         "DirectX 8 or later to run. If you have an earlier version of DirectX, download the latest version from " +
         kVendorAddress + "... " + ending;
}

constexpr const char* kTerminate = "This program will now terminate!";

// Where the data folder is when none is given: beside the executable (a build
// tree), then the installed location.
std::string DefaultDataFolder(const char* argv0) {
  namespace fs = std::filesystem;
  std::error_code ec;
  fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (ec) exe = fs::path(argv0);
  for (fs::path candidate : {exe.parent_path() / "data", exe.parent_path() / "../share/vorrel"})
    if (fs::is_directory(candidate / "graphics", ec)) return fs::weakly_canonical(candidate, ec).string();
#ifdef VORREL_DEFAULT_DATA
  return VORREL_DEFAULT_DATA;
#else
  return (exe.parent_path() / "data").string();
#endif
}

// A home folder of its own for a replay, gone when the program ends.
struct ScratchHome {
  std::string path;
  bool Make() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vorrel-replay-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) {
      std::fprintf(stderr, "vorrel: cannot make a scratch folder for the replay in %s\n",
                   std::filesystem::temp_directory_path().c_str());
      return false;
    }
    path = pattern;
    return true;
  }
  ~ScratchHome() {
    std::error_code ec;
    if (!path.empty()) std::filesystem::remove_all(path, ec);
  }
};

struct StartupFailure {
  int status;
};

// The start-up handler, in its order; a failure of the display or the
// devices is fatal with its own message.
void StartupHandler(const automation::Options& options) {
  display::Text.GlyphOrder = display::MakeGlyphOrder();
  core::Run.AppRunning = true;
  uint32_t seed = 0;
  if (options.seed) {
    seed = *options.seed;
  } else {
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    seed = static_cast<uint32_t>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
  }
  core::Randomize(seed);
  automation::NoteSeed(seed);

  std::string failed;
  if (!display::InitDisplay(failed)) {
    ShowMessage("DirectX Error: Error Initializing DirectDraw", DirectXText("DirectDraw Surface", kTerminate), failed);
    display::ShutdownDirectX();
    throw StartupFailure{1};
  }
  // No sound device or no synthesiser only silences the game.
  audio::OpenAudioDevices(!platform::Current().HasSoundOutput());
  audio::InitAudio();
  if (!input::InitInput(failed)) {
    ShowMessage("DirectX Error: Error Initializing DirectInput",
                DirectXText("DirectInput Object",
                            "Or, you may not have a mouse or keyboard hooked up properly. Also, you may have an "
                            "error in a connected joystick. This program will now terminate!"),
                failed);
    input::ReleaseInput();
    audio::ShutdownAudio();
    throw StartupFailure{1};
  }
  input::InitJoystick();
  game::Game.DangerZone = 0;
  game::Game.DangerZoneBefore = 0;
  audio::FillTrackTable();
  frontend::Front.CreditsText = CreditsLines();
  display::YieldToSystem();
}

void ShowLoadingScreen() {
  automation::EnterScreen("loading");
  display::Surface& back = display::Display.BackBuffer;
  for (int frameNo = 0; frameNo < 120; ++frameNo) {
    display::FillSurface(back, display::Display.WholeRect, 0);
    DrawLoadingTexts();
    display::YieldToSystem();
    display::PresentFrame(0);
  }
}

// A game asked for by `--game` or a `game` line, started as the menu's start
// button does, without saving the settings.
void GameMain() {
  game::FillDropDelay();
  platform::Current().SetMouseCaptured(true);
  core::Settings = core::MenuSettings{};
  input::Controls.PointerX = 390;
  input::Controls.PointerY = 290;
  core::Run.AppRunning = true;
  display::Display.ScreenRect = {0, 0, platform::kScreenWidth, platform::kScreenHeight};
  display::CreateBlankSurface(display::Display.Backdrop, platform::kScreenWidth, platform::kScreenHeight, 0);
  ShowLoadingScreen();
  CreateGraphics();
  CreateSound();
  // Read only later, by then a game may be under way: a broken one ends the
  // program here instead, before any play.
  audio::CheckMusicFiles();
  frontend::CheckDefaultFiles();
  display::FillSurface(display::Display.Backdrop, display::Display.WholeRect, 0);
  // Introduction, then menu and game until the exit tab or F10. A `game`
  // line at 0 skips the introduction and the first menu.
  game::GameOverHook = frontend::GameOver;
  game::RocketBlastHook = frontend::RocketBlast;
  game::QualifiesForTableHook = frontend::QualifiesForTable;
  game::NewHighScoreHook = frontend::NewHighScore;
  game::FinalScreenHook = frontend::FinalScreen;
  core::GameRequest request;
  if (core::TakeGameRequest(request)) {
    frontend::StartRequestedGame(request);
    if (core::Run.AppRunning) game::BeginGame();
    automation::GameEnded();
  } else {
    frontend::Introduction();
  }
  while (core::Run.AppRunning) {
    frontend::Front.MenuPage = 0;
    frontend::MainMenu();
    if (!core::Run.AppRunning) break;
    game::BeginGame();
    automation::GameEnded();
  }
}

}  // namespace

void ShowMessage(const std::string& title, const std::string& text, const std::string& failed) {
  std::fprintf(stderr, "message box: %s\n  %s\n", title.c_str(), text.c_str());
  if (!failed.empty()) std::fprintf(stderr, "  failed: %s\n", failed.c_str());
  automation::NoteMessage(title, text);
  platform::Current().LeaveFullscreen();
  platform::Current().ShowMessageBox(title, text);
}

// Releases every platform object in order; the caller ends the process.
int ExitProgram(int status) {
  try {
    audio::ShutdownAudio();
    display::ShutdownDirectX();
    input::ReleaseInput();
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vorrel: while shutting down: %s\n", e.what());
  }
  automation::Finish(status);
  return status;
}

int RunProgram(int argc, char** argv) {
  automation::Options options;
  bool help = false;
  if (!ParseCommandLine(argc, argv, options, help)) return 2;
  if (help) return 0;

  std::string data = options.dataDir.empty() ? DefaultDataFolder(argv[0]) : options.dataDir;
  std::error_code ec;
  if (!std::filesystem::is_directory(std::filesystem::path(data) / "graphics", ec)) {
    std::fprintf(stderr, "vorrel: no game data in %s (expected its graphics/ folder there)\n", data.c_str());
    return 2;
  }
  platform::SetDataFolder(data);
  platform::SetHomeFolder(options.homeDir);

  if (options.listReplays) {
    try {
      automation::ListReplays();
      return 0;
    } catch (const std::exception& e) {
      std::fprintf(stderr, "vorrel: %s\n", e.what());
      return 1;
    }
  }
  ScratchHome scratch;
  if (!options.replayPath.empty()) {
    std::string error;
    if (!automation::PrepareReplay(options.replayPath, options, error)) {
      std::fprintf(stderr, "vorrel: %s\n", error.c_str());
      return 2;
    }
    // Watching a game changes none of the player's files.
    if (options.homeDir.empty()) {
      if (!scratch.Make()) return 1;
      platform::SetHomeFolder(scratch.path);
    }
    platform::IgnoreRealDevices(true);
  }

  platform::CatchQuitSignals();
  platform::SetCurrent(options.headless ? platform::MakeHeadlessBackend() : platform::MakeSdlBackend(options.windowed));
  try {
    automation::Configure(options);
  } catch (const core::UsageError& e) {
    std::fprintf(stderr, "vorrel: %s\n", e.what());
    return 2;
  }
  ExposeProgramState();
  if (platform::Current().PacedToRealTime()) automation::HashDataSoon();

  try {
    automation::BeforeStartup();
    StartupHandler(options);
    automation::AfterStartup();
    if (platform::QuitRequested()) return ExitProgram(0);  // a limit of 0, or `quit` at 0
  } catch (const StartupFailure& f) {
    automation::Finish(f.status);
    return f.status;
  } catch (const core::OrderlyQuit&) {
    return ExitProgram(0);
  } catch (const core::UsageError& e) {
    std::fprintf(stderr, "vorrel: %s\n", e.what());
    return ExitProgram(2);
  }

  return RunGuarded(GameMain);
}

int RunGuarded(void (*body)()) {
  // The catch-all: whatever fails while the game runs ends here.
  try {
    body();
  } catch (const core::OrderlyQuit&) {
    return ExitProgram(0);
  } catch (const core::UsageError& e) {
    std::fprintf(stderr, "vorrel: %s\n", e.what());
    return ExitProgram(2);
  } catch (const std::exception& e) {
    ShowMessage("Unexpected Error!!!",
                "Bonus Vorrel has performed an unknown error, We are sorry for the inconveniences. The program will "
                "now terminate!",
                e.what());
    return ExitProgram(1);
  }
  return ExitProgram(0);
}

}  // namespace frame

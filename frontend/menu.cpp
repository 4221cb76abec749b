#include "frontend/menu.h"

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/run_state.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "frontend/front_state.h"
#include "frontend/menu_rects.h"
#include "frontend/vsys_files.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace frontend {

namespace {

display::Surface& Back() { return display::Display.BackBuffer; }

void LoadBadges(int variantWidth, int variantHeight, int typeWidth, int typeHeight) {
  static const char* const variants[] = {"\\graphics\\playclassic.bmp", "\\graphics\\playbonus.bmp",
                                         "\\graphics\\playfuse.bmp"};
  static const char* const types[] = {"\\graphics\\playtypea.bmp", "\\graphics\\playtypeb.bmp",
                                      "\\graphics\\playtypec.bmp"};
  display::AssetSurfaces& a = display::Assets;
  display::FillSurface(a.SurfPlayVariant, display::Display.WholeRect, 0);
  display::FillSurface(a.SurfPlayType, display::Display.WholeRect, 0);
  display::LoadSurface(a.SurfPlayVariant, variants[core::Settings.GameVariant], variantWidth, variantHeight);
  display::LoadSurface(a.SurfPlayType, types[core::Settings.PlayType], typeWidth, typeHeight);
}

// Reads both files and readies the picture and the sparks, as every entry does.
void EnterMenu() {
  ReadHighScoresFile();
  ReadSettingsFile();
  // With Wickory closed a stored Wickory choice plays Classic.
  if (!kWickoryOpen && core::Settings.GameVariant == 2) core::Settings.GameVariant = 0;
  Front.StartRequest = 0;
  display::LoadSurface(display::Display.Backdrop, "\\graphics\\menu.bmp", 800, 600);
  Front.SparkSlot = 0;
  for (int i = 0; i <= 500; ++i) game::Game.Debris[i].Size = 0;
}

void Burst() {
  input::ControlState& c = input::Controls;
  for (int i = Front.SparkSlot; i <= Front.SparkSlot + 99; ++i) {
    game::DebrisRecord& s = game::Game.Debris[i];
    s.X = c.PointerX;
    s.Y = c.PointerY;
    s.DX = (core::RandomInt(3000) + 1) / 1000.0;
    s.DY = (core::RandomInt(3000) + 1) / 1000.0;
    if (static_cast<int>(2 * core::Rnd() + 1) == 1) s.DX = -s.DX;
    if (static_cast<int>(2 * core::Rnd() + 1) == 1) s.DY = -s.DY;
    s.Size = (core::RandomInt(12500) + 1) / 1000.0;
  }
  c.ClickLatch = true;
  Front.SparkSlot = static_cast<int16_t>(Front.SparkSlot + 100);
  if (Front.SparkSlot >= 500) Front.SparkSlot = 0;
}

int SliderStep() { return (input::Controls.PointerX - 487) / 25; }

// Lines grow in from opposite edges every 100 pixels until they span the
// screen, over the live menu, darkening red to bright red.
void ClosingSweep() {
  display::Surface& back = Back();
  display::SetForeColour(back, 100, 0, 0);
  for (int i = 0; i <= 600; i += 10) {
    uint32_t t0 = display::GetTick();
    DrawMenu();
    display::SetForeColour(back, i / 3, 0, 0);
    double reach = display::RoundHalfEven(i * 4.0 / 3.0);
    for (int j = 0; j <= 600; j += 100) {
      display::DrawLine(back, 0, j, reach, j);
      display::DrawLine(back, 0, j - 1, reach, j - 1);
      display::DrawLine(back, 800, j + 50, 800 - reach, j + 50);
      display::DrawLine(back, 800, j + 49, 800 - reach, j + 49);
    }
    for (int j = 0; j <= 800; j += 100) {
      display::DrawLine(back, j, 0, j, i);
      display::DrawLine(back, j - 1, 0, j - 1, i);
      display::DrawLine(back, j + 50, 600, j + 50, 600 - i);
      display::DrawLine(back, j + 49, 600, j + 49, 600 - i);
    }
    display::PresentFrame(0);
    display::YieldToSystem();
    while (display::GetTick() < t0 + 10) display::IdlePass();
  }
}

// Steps 6 to 10 of the start: voice, save (not for a scripted game), sweep,
// the game's preparation.
void StartSequence(bool save) {
  audio::PlaySoundEffect(142);
  if (save) WriteSettingsFile();
  ClosingSweep();
  DrawMenu();
  audio::StopMusic();
  game::PrepareGame();
}

void ApplyRequest(const core::GameRequest& r) {
  core::MenuSettings& s = core::Settings;
  s.GameVariant = static_cast<int16_t>(r.variant);
  s.PlayType = static_cast<int16_t>(r.type);
  s.Level = static_cast<int16_t>(r.level);
  s.StartHeight = r.height;
  s.Difficulty = static_cast<int16_t>(r.difficulty);
}

}  // namespace

bool PointerIn(const HitRect& r) {
  int x = input::Controls.PointerX, y = input::Controls.PointerY;
  if (r.inclusive) return r.a <= x && x <= r.b && r.c <= y && y <= r.d;
  return r.a < x && x < r.b && r.c < y && y < r.d;
}

void CheckMenuButton1() {
  core::MenuSettings& s = core::Settings;
  const int16_t oldPage = Front.MenuPage;
  bool acted = false;

  if (PointerIn(kOptionsTab)) Front.MenuPage = 0;
  if (PointerIn(kHighTab)) Front.MenuPage = 1;
  if (PointerIn(kHelpTab)) Front.MenuPage = 2;
  if (PointerIn(kExitTab)) core::Run.AppRunning = false;
  if (Front.MenuPage != oldPage) {
    acted = true;
    audio::PlaySoundEffect(23);
    if (Front.MenuPage == 1 || Front.MenuPage == 2) LoadBadges(276, 116, 126, 40);
  }
  if (Front.MenuPage != 0) return;

  // Every control whose rectangle and condition hold acts on this click.
  auto choose = [&](const HitRect& r, bool condition, int16_t& setting, int16_t value, int16_t sound, int16_t voice) {
    if (!PointerIn(r) || !condition) return;
    setting = value;
    audio::PlaySoundEffect(sound);
    audio::PlaySoundEffect(voice);
    acted = true;
  };
  choose(kClassicRect, s.GameVariant != 0, s.GameVariant, 0, 19, 101);
  choose(kBonusRect, s.GameVariant != 1, s.GameVariant, 1, 19, 102);
  choose(kWickoryRect, kWickoryOpen && s.GameVariant != 2, s.GameVariant, 2, 19, 103);
  choose(kTypeARect, s.PlayType != 0 && s.GameVariant != 2, s.PlayType, 0, 20, 104);
  choose(kTypeBRect, s.PlayType != 1 && s.GameVariant != 2, s.PlayType, 1, 20, 105);
  choose(kTypeCRect, s.PlayType != 2 && s.GameVariant != 2, s.PlayType, 2, 20, 106);

  auto slide = [&](const HitRect& r, bool condition, auto& setting, int value) {
    if (!PointerIn(r) || !condition) return;
    if (setting != value) {
      audio::PlaySoundEffect(7);
      acted = true;
    }
    setting = static_cast<std::remove_reference_t<decltype(setting)>>(value);
  };
  slide(kLevelSlider, true, s.Level, SliderStep());
  slide(kHeightSlider, s.PlayType != 2 || s.GameVariant == 2, s.StartHeight, SliderStep());
  const bool difficultyShown = s.PlayType == 2 && s.GameVariant < 2;
  slide(kEasyRect, difficultyShown, s.Difficulty, 0);
  slide(kMediumRect, difficultyShown, s.Difficulty, 1);
  slide(kHardRect, difficultyShown, s.Difficulty, 2);
  slide(kTransparencySlider, true, s.Transparency, SliderStep());

  auto toggle = [&](const HitRect& r, int16_t& setting) {
    if (!PointerIn(r)) return false;
    setting = setting == 1 ? 0 : 1;
    audio::PlaySoundEffect(8);
    acted = true;
    return true;
  };
  if (toggle(kMusicBox, s.MusicOn)) {
    if (s.MusicOn == 0) {
      audio::StopMusic();
    } else {
      int16_t track = 40;
      audio::PlayMusic(track, true);
    }
  }
  toggle(kSoundBox, s.SoundOn);
  toggle(kVoiceBox, s.VoiceOn);
  if (PointerIn(kTrackDown) && s.MusicOn == 1 && s.MusicTrack != 0) {
    --s.MusicTrack;
    audio::PlaySoundEffect(8);
    acted = true;
  }
  if (PointerIn(kTrackUp) && s.MusicOn == 1 && s.MusicTrack != 30) {
    ++s.MusicTrack;
    audio::PlaySoundEffect(8);
    acted = true;
  }
  if (PointerIn(kStartRect)) Front.StartRequest = 1;

  if (acted) Burst();
}

void MainMenu() {
  core::EnterScreen("menu");
  EnterMenu();
  int16_t track = 40;
  audio::PlayMusic(track, true);

  // The picture opens from the middle row to full height.
  display::DisplayState& d = display::Display;
  for (int y = 300; y >= 0; y -= 5) {
    display::FillSurface(Back(), d.WholeRect, 0);
    display::BltOpaque(Back(), 0, y, 800, 2 * (300 - y), d.Backdrop, 0, 0, 800, 600);
    display::PresentFrame(0);
  }

  bool save = true;
  for (;;) {
    input::ControlCheckMenu();
    // A scripted `game` in the menu starts as the start button does, unsaved.
    core::GameRequest request;
    if (core::TakeGameRequest(request)) {
      ApplyRequest(request);
      Front.StartRequest = 1;
      save = false;
    }
    if (input::Controls.PointerButton && !input::Controls.ClickLatch) CheckMenuButton1();
    DrawMenu();
    display::PresentFrame(0);
    display::YieldToSystem();
    if (!core::Run.AppRunning) return;
    if (Front.StartRequest == 1) break;
  }
  StartSequence(save);
}

void StartRequestedGame(const core::GameRequest& request) {
  core::EnterScreen("menu");
  Front.MenuPage = 0;
  EnterMenu();
  ApplyRequest(request);
  // The sweep runs over the menu as its first frame on page 0 would leave it.
  display::BltOpaque(Back(), 0, 0, 800, 600, display::Display.Backdrop, 0, 0, 800, 600);
  StartSequence(false);
}

}  // namespace frontend

// The menu's frames: the controls of the page, the tabs, the sparks and the
// pointer over the menu picture that every present restores.
#include <cmath>
#include <string>
#include <utility>

#include "audio/music.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "frontend/front_state.h"
#include "frontend/menu.h"
#include "frontend/menu_rects.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace frontend {

namespace {

display::Surface& Back() { return display::Display.BackBuffer; }

// Dark olive ink that stays readable where the panel's dark strips run under
// it: a one-pixel halo in the panel's own light tone first.
void DrawInk(double x, double y, const std::string& text) {
  display::Surface& back = Back();
  display::SetForeColour(back, 200, 210, 235);
  for (auto [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}}) display::DrawText(back, x + dx, y + dy, text);
  display::SetForeColour(back, 100, 100, 45);
  display::DrawText(back, x, y, text);
}

void Draw(const display::Surface& s, double x, double y, double w, double h) {
  display::BltKeyed(Back(), x, y, w, h, s, 0, 0, s.Width, s.Height);
}
void DrawOwnSize(const display::Surface& s, double x, double y) { Draw(s, x, y, s.Width, s.Height); }

// A hovered button breathes: squeezed sideways and stretched upwards around
// its centre, bouncing between -limit and +limit; left alone it settles at 0.
void DrawPulse(Pulse& p, const display::Surface& picture, double x, double y, double w, double h, bool hovered,
               double limit, double startStep, bool wholePixels) {
  double& f = p[0];
  double& step = p[1];
  if (hovered && step == 0) step = startStep;
  double dx = x + f, dy = y - f, dw = w - 2 * f, dh = h + 2 * f;
  if (wholePixels) {
    dx = std::floor(dx);
    dy = std::floor(dy);
    dw = std::floor(dw);
    dh = std::floor(dh);
  }
  Draw(picture, dx, dy, dw, dh);
  if (!hovered && f == 0) return;
  double before = f;
  f += step;
  if (f >= limit || f <= -limit) step = -step;
  if (!hovered && (before > 0 ? f <= 0 : f >= 0)) {
    f = 0;
    step = 0;
  }
}

// A dimmed copy of the Wickory button while the fuse game is not here.
const display::Surface& DimmedWickory() {
  static display::Surface dimmed;
  const display::Surface& plain = display::Assets.WickoryButton[0];
  if (!dimmed.Exists() || dimmed.Width != plain.Width) {
    dimmed = plain;
    dimmed.Name.clear();
    display::FilterRect(dimmed, 0, 0, dimmed.Width, dimmed.Height, 0.35);
  }
  return dimmed;
}

void DrawSlider(double value, int y, const display::Surface& filled, const HitRect& rect) {
  const display::AssetSurfaces& a = display::Assets;
  int v = static_cast<int>(value);
  display::BltKeyed(Back(), 487, y, 25 * (v + 1), 20, filled, 0, 0, 25 * (v + 1), 20);
  DrawOwnSize(a.BarImage, 487, y);
  if (PointerIn(rect)) {
    int s = (input::Controls.PointerX - 487) / 25;
    if (s != v) DrawOwnSize(a.HighlightImage, 487 + 25 * s, y);
  }
}

void DrawOptions() {
  const display::AssetSurfaces& a = display::Assets;
  const core::MenuSettings& s = core::Settings;
  FrontState& f = Front;
  DrawPulse(f.ClassicPulse, a.ClassicButton[s.GameVariant == 0], 547, 130, 130, 45, PointerIn(kClassicRect), 10, 1,
            false);
  DrawPulse(f.BonusPulse, a.BonusButton[s.GameVariant == 1], 470, 175, 130, 45, PointerIn(kBonusRect), 10, 1, false);
  if (kWickoryOpen)
    DrawPulse(f.WickoryPulse, a.WickoryButton[s.GameVariant == 2], 624, 175, 130, 45, PointerIn(kWickoryRect), 10, 1,
              false);
  else
    DrawOwnSize(DimmedWickory(), 624, 175);

  if (s.GameVariant != 2) {
    DrawPulse(f.TypeAPulse, a.TypeAButton[s.PlayType == 0], 510, 230, 50, 50, PointerIn(kTypeARect), 5, 0.5, true);
    DrawPulse(f.TypeBPulse, a.TypeBButton[s.PlayType == 1], 587, 230, 50, 50, PointerIn(kTypeBRect), 5, 0.5, true);
    DrawPulse(f.TypeCPulse, a.TypeCButton[s.PlayType == 2], 664, 230, 50, 50, PointerIn(kTypeCRect), 5, 0.5, true);
  }

  DrawSlider(s.Level, 302, a.ColorBarImage, kLevelSlider);
  DrawOwnSize(a.LevelLabel, 587, 283);
  if (s.GameVariant == 2 || s.PlayType != 2) {
    DrawSlider(s.StartHeight, 340, a.ColorBarImage, kHeightSlider);
    DrawOwnSize(a.HeightLabel, 582, 322);
  }
  if (s.PlayType == 2 && s.GameVariant < 2) {
    const display::Row0<display::Surface, 2>* buttons[] = {&a.EasyButton, &a.MediumButton, &a.HardButton};
    const int lefts[] = {487, 572, 657};
    const input::ControlState& c = input::Controls;
    for (int i = 0; i < 3; ++i) {
      const display::Surface& pic = (*buttons[i])[s.Difficulty == i];
      bool hovered = c.PointerX >= lefts[i] && c.PointerX <= lefts[i] + 81 && c.PointerY >= 330 && c.PointerY <= 358;
      if (hovered)
        Draw(pic, lefts[i] - 2, 328, 85, 32);
      else
        Draw(pic, lefts[i], 330, 81, 28);
    }
  }
  DrawSlider(s.Transparency, 378, a.TransBarImage, kTransparencySlider);
  DrawOwnSize(a.TransparencyLabel, 552, 361);

  const display::Surface* labels[] = {&a.MusicLabel, &a.SoundFxLabel, &a.VoiceLabel};
  const HitRect* boxes[] = {&kMusicBox, &kSoundBox, &kVoiceBox};
  const int16_t values[] = {s.MusicOn, s.SoundOn, s.VoiceOn};
  for (int i = 0; i < 3; ++i) {
    DrawOwnSize(*labels[i], 487, 405 + 20 * i);
    if (PointerIn(*boxes[i])) DrawOwnSize(a.BoxHighlightImage, 487, 405 + 20 * i);
    if (values[i] == 1) DrawOwnSize(a.CheckImage, 490, 405 + 20 * i);
  }

  if (s.MusicOn == 1) {
    display::SetForeColour(Back(), 250, 200, 0);
    Draw(a.LeftArrow[PointerIn(kTrackDown) && s.MusicTrack != 0], 570, 405, 15, 15);
    Draw(a.RightArrow[PointerIn(kTrackUp) && s.MusicTrack != 30], 722, 405, 15, 15);
    display::DrawText(Back(), 590, 405, audio::TrackTitles[s.MusicTrack]);
  }

  bool overStart = PointerIn(kStartRect);
  DrawPulse(f.StartPulse, a.StartButton[overStart ? 1 : 0], 632, 475, 120, 37, overStart, 10, 1, false);
}

void DrawHighScorePage() {
  const display::AssetSurfaces& a = display::Assets;
  const core::MenuSettings& s = core::Settings;
  display::BltOpaque(Back(), 455, 80, 225, 75, a.MenuHighImage, 0, 0, 225, 75);
  const int badgeY[] = {140, 145, 130};
  Draw(a.SurfPlayVariant, 512, badgeY[s.GameVariant], 200, 81);
  if (s.GameVariant != 2) DrawOwnSize(a.SurfPlayType, 549, 228);
  display::Surface& back = Back();
  display::SetForeColour(back, 100, 150, 255);
  display::DrawText(back, 477, 295, "Champion");
  display::DrawText(back, 592, 295, "Score");
  display::DrawText(back, 682, 295, "Lines");
  display::DrawText(back, 732, 295, "Lv");
  display::DrawLine(back, 475, 310, 750, 310);
  display::SetForeColour(back, 100, 100, 45);
  int t = s.GameVariant == 2 ? 0 : s.PlayType;
  for (int r = 0; r <= 4; ++r) {
    const HighScoreEntry& e = Front.HighScores[s.GameVariant][t][r];
    int y = 315 + 20 * r;
    DrawInk(475, y, std::to_string(r + 1) + ". " + e.Name);
    DrawInk(590, y, std::to_string(e.Score));
    DrawInk(680, y, std::to_string(e.Lines));
    DrawInk(730, y, std::to_string(e.Level));
  }
}

const char* const kClassicHelp[] = {
    "Seven pieces will fall down onto a 13x21", "playing field. Using the left or right arrow",
    "keys (Or joystick/mouse) you may move each", "piece from side to side. Pressing the Up",
    "arrow key (Or button 1 on a joystick/mouse)", "will flip the current piece. Your objective",
    "is to complete horizontal lines so that they", "will clear from the playing field. If you",
    "reach the top of the screen, your game is", "over."};
const char* const kBonusHelp[] = {
    "This game is played very similair to Classic", "Vorrel, except for the fact we have added 5",
    "new pieces, plus 4 Bonus Pieces. Each", "Bonus Piece (Bomb, Earthquake, LineClear &",
    "ColumnClear) has 2 different functions. One", "Function will be activated by simply landing",
    "the piece while the other function is", "activated by pressing the Up/Flip button.",
    "Bonus Vorrel is the only game where you", "have the opportunity to score the amazing",
    "MegaVorrel to send your score skyrocketing."};
const char* const kWickoryHelp[] = {
    "The pieces from Bonus Vorrel will fall on", "your playfield, but this time, lines don't",
    "matter. Each piece is embedded with a fuse.", "You must connect fuses together and ignite",
    "them with a detonator. However, you must", "have at least one bomb(charge) in your",
    "fuseline for the detonation to succeed.", "For every detonation that succeeds, all of",
    "your playfield will shake, causing pieces,", "and sometimes even rocks to fall down onto",
    "your playfield. Rocks can only be destroyed", "when a charge ignites next to it."};
const char* const kWickoryHelp2[] = {"For every 50 blocks that you destroy, you", "will advance one level. There is only one",
                                     "type of game in Wickory."};
const char* const kTypeAHelp[] = {"In Type A, you play as long as you can", "advancing 1 level for every ten lines",
                                  "you complete."};
const char* const kTypeBHelp[] = {"In Type B, you must try to score 30 lines.", "You do not advance levels in Type B."};
const char* const kTypeCHelp[] = {"In Type C, you must try to detonate the bomb", "at the bottom of the screen by clearing the",
                                  "two lines surrounding it. Each bomb", "detonated advances Height & Level."};

template <size_t N>
void Lines(const char* const (&lines)[N], int y) {
  for (size_t i = 0; i < N; ++i) DrawInk(465, y + 15 * static_cast<int>(i), lines[i]);
}

void DrawHelpPage() {
  const display::AssetSurfaces& a = display::Assets;
  const core::MenuSettings& s = core::Settings;
  display::BltOpaque(Back(), 455, 80, 225, 75, a.MenuHelpImage, 0, 0, 225, 75);
  const int badgeY[] = {130, 135, 120};
  Draw(a.SurfPlayVariant, 512, badgeY[s.GameVariant], 200, 70);
  if (s.GameVariant < 2) Draw(a.SurfPlayType, 581, 380, 62, 20);
  // The help page fixes its own colour instead of keeping whichever page set
  // one last: gold (after the options page) is lost on the light panel; the
  // high-score rows' dark olive, haloed, reads on the panel and its strips.
  if (s.GameVariant == 0) Lines(kClassicHelp, 205);
  if (s.GameVariant == 1) Lines(kBonusHelp, 205);
  if (s.GameVariant == 2) {
    Lines(kWickoryHelp, 205);
    Lines(kWickoryHelp2, 400);
  } else {
    if (s.PlayType == 0) Lines(kTypeAHelp, 405);
    if (s.PlayType == 1) Lines(kTypeBHelp, 405);
    if (s.PlayType == 2) Lines(kTypeCHelp, 405);
  }
}

}  // namespace

void DrawMenu() {
  const display::AssetSurfaces& a = display::Assets;
  if (Front.MenuPage == 0) DrawOptions();
  if (Front.MenuPage == 1) DrawHighScorePage();
  if (Front.MenuPage == 2) DrawHelpPage();

  DrawOwnSize(a.MenuTab[PointerIn(kOptionsTab)], 450, 10);
  DrawOwnSize(a.HighTab[PointerIn(kHighTab)], 500, 10);
  DrawOwnSize(a.HelpTab[PointerIn(kHelpTab)], 550, 10);
  DrawOwnSize(a.ExitTab[PointerIn(kExitTab)], 725, 10);

  for (int i = 0; i <= 500; ++i) {
    game::DebrisRecord& s = game::Game.Debris[i];
    if (s.Size <= 0) continue;
    display::BltKeyed(Back(), s.X, s.Y, s.Size, s.Size, a.StarImage, 0, 0, 10, 10);
    s.X += s.DX;
    s.Y += s.DY;
    s.DY += 0.1;
    s.Size -= 0.1;
    if (s.Size < 0) s.Size = 0;
  }

  const input::ControlState& c = input::Controls;
  Draw(c.PointerButton ? a.Cursor2Image : a.CursorImage, c.PointerX, c.PointerY, 20, 20);
}

}  // namespace frontend

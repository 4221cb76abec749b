// The final screen: the old picture melts away, the score and the table rise
// from the bottom, the credits scroll until a pointer button, then it closes
// onto the centre line.
#include <cctype>
#include <cmath>
#include <string>

#include "audio/sound_effects.h"
#include "core/hooks.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/passes.h"
#include "display/surface.h"
#include "frontend/front_state.h"
#include "frontend/game_over.h"
#include "frontend/high_scores.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace frontend {

namespace {

display::Surface& Back() { return display::Display.BackBuffer; }

// Waits that present nothing: each pass reads the pointer once.
template <class Condition>
void PollWhile(Condition condition) {
  while (condition()) {
    input::ControlCheckHigh();
    display::IdlePass();
  }
}

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

void FinalScreen() {
  display::DisplayState& d = display::Display;
  const display::TextState& text = display::Text;
  input::ControlState& c = input::Controls;
  const core::MenuSettings& s = core::Settings;

  PollWhile([&] { return c.PointerButton && c.PointerButton2; });

  core::EnterScreen("final");
  for (int y = 600; y >= 0; y -= 5) {
    display::BltOpaque(Back(), 0, 0, 800, 600, d.PrimarySurface, 0, 0, 800, 600);
    if (y == 350) audio::PlaySoundEffect(24);
    display::BltOpaque(Back(), 0, y, 800, 600 - y, d.PrimarySurface, 0, y, 800, 5);
    display::PresentFrame(0);
  }

  display::LoadSurface(d.Backdrop, "\\graphics\\gameoverscreen.bmp", 800, 600);
  std::string score = std::to_string(game::Game.ScoreShown);
  double x = 20;
  for (char ch : score) {
    if (ch == '-') continue;
    const display::Surface& g = text.BigGlyphs[ch - '0' + 26];
    display::BltKeyed(d.Backdrop, x, 110, 50, 50, g, 0, 0, g.Width, g.Height);
    x += 50;
  }
  int t = s.GameVariant == 2 ? 0 : s.PlayType;
  for (int r = 0; r <= 4; ++r) {
    const HighScoreEntry& e = Front.HighScores[s.GameVariant][t][r];
    double y = 400 + 35 * r;
    display::DrawGlyphText(d.Backdrop, 20, y, Lower(e.Name), text.SmallGlyphs, 25, 25);
    display::DrawGlyphText(d.Backdrop, 230, y, std::to_string(e.Score), text.SmallGlyphs, 25, 25);
  }
  display::BltOpaque(Back(), 0, 0, 800, 600, d.Backdrop, 0, 0, 800, 600);

  for (int y = 600; y >= 0; y -= 5) {
    display::BltOpaque(Back(), 0, 0, 800, y, d.Backdrop, 0, y, 800, 5);
    display::BltOpaque(Back(), 0, y, 800, 600 - y, d.Backdrop, 0, y, 800, 600 - y);
    display::PresentFrame(0);
  }

  c.KeyFlip = false;
  display::BltOpaque(d.PrimarySurface, 0, 0, 800, 600, d.Backdrop, 0, 0, 800, 600);
  double p = 600;
  display::SetForeColour(Back(), 255, 255, 255);
  const std::vector<std::string>& credits = Front.CreditsText;
  do {
    for (int i = 0; i <= 151 && i < static_cast<int>(credits.size()); ++i) {
      double y = std::floor(p) + 15 * i;
      if (!(y > -20 && y < 615)) continue;
      static constexpr int kShades[4][3] = {{0, 0, 0}, {100, 100, 100}, {175, 175, 175}, {255, 255, 255}};
      for (int k = 0; k < 4; ++k) {
        display::SetForeColour(Back(), kShades[k][0], kShades[k][1], kShades[k][2]);
        display::DrawText(Back(), 430 + k, y + k, credits[static_cast<size_t>(i)]);
      }
    }
    p -= 1;
    if (p < -2360) p = 600;
    input::ControlCheckHigh();
    display::PresentFrame(0);
  } while (!c.PointerButton && !c.PointerButton2);

  PollWhile([&] { return c.PointerButton || c.PointerButton2; });

  display::BltOpaque(d.Backdrop, 0, 0, 800, 600, d.PrimarySurface, 0, 0, 800, 600);
  for (int y = 0; y <= 300; y += 5) {
    display::FillSurface(Back(), d.WholeRect, 0);
    display::BltOpaque(Back(), 0, y, 800, 2 * (300 - y), d.Backdrop, 0, 0, 800, 600);
    display::PresentFrame(0);
  }
}

}  // namespace frontend

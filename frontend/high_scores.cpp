#include "frontend/high_scores.h"

#include <cctype>
#include <cmath>

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/hooks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/passes.h"
#include "display/surface.h"
#include "frontend/vsys_files.h"
#include "game/game_state.h"
#include "input/control_mapping.h"

namespace frontend {

namespace {
display::Surface& Back() { return display::Display.BackBuffer; }
}  // namespace

int TableType() { return core::Settings.GameVariant == 2 ? 0 : core::Settings.PlayType; }

int RankFor(const HighScoreTable& table, int v, int t, int32_t score) {
  for (int i = 3; i >= 0; --i)
    if (table[v][t][i].Score > score) return i + 1;
  return 0;
}

void InsertHighScore(HighScoreTable& table, int v, int t, int rank, const HighScoreEntry& entry) {
  for (int i = 4; i >= rank + 1; --i) table[v][t][i] = table[v][t][i - 1];
  table[v][t][rank] = entry;
}

bool QualifiesForTable() {
  return game::Game.ScoreShown > Front.HighScores[core::Settings.GameVariant][TableType()][4].Score;
}

void DrawHigh() {
  input::ControlState& c = input::Controls;
  const display::TextState& text = display::Text;
  display::Surface& back = Back();
  c.TypedGlyph = -1;
  int x = 100, y = 360;
  for (int i = 0; i <= 47; ++i) {
    const display::Surface& glyph = text.BigGlyphs[i];
    if (c.PointerX > x - 1 && c.PointerX < x + 50 && c.PointerY > y && c.PointerY < y + 51) {
      const display::Surface& frame = text.BigGlyphs[49];
      display::BltKeyed(back, x, y, 50, 50, frame, 0, 0, frame.Width, frame.Height);
      display::BltKeyed(back, x, y, 50, 50, glyph, 0, 0, glyph.Width, glyph.Height);
      c.TypedGlyph = static_cast<int16_t>(i);
    } else {
      display::BltKeyed(back, x + 5, y + 5, 40, 40, glyph, 0, 0, glyph.Width, glyph.Height);
    }
    x += 50;
    if (x > 650) {
      x = 100;
      y += 55;
    }
  }
  double nx = 400 - (static_cast<double>(Front.EntryName.size()) / 2) * 70;
  for (char ch : Front.EntryName) {
    int g = display::GlyphIndex(ch);
    if (g >= 0) {
      const display::Surface& glyph = text.BigGlyphs[g];
      display::BltKeyed(back, nx, 280, 70, 70, glyph, 0, 0, glyph.Width, glyph.Height);
    }
    nx += 70;
  }
  const display::Surface& cursor = display::Assets.CursorImage;
  display::BltKeyed(back, c.PointerX, c.PointerY, 20, 20, cursor, 0, 0, 20, 20);
}

void NewHighScore() {
  display::AssetSurfaces& a = display::Assets;
  display::DisplayState& d = display::Display;
  input::ControlState& c = input::Controls;
  game::GameState& g = game::Game;

  display::CreateBlankSurface(a.BackgroundImage, 800, 600, 0);
  display::FillSurface(a.BackgroundImage, d.WholeRect, 0);
  display::BltOpaque(a.BackgroundImage, 0, 0, 800, 600, d.PrimarySurface, 0, 0, 800, 600);

  display::LoadSurface(d.Backdrop, "\\graphics\\newhighscreen.bmp", 800, 600);
  display::BltOpaque(Back(), 0, 0, 800, 600, d.Backdrop, 0, 0, 800, 600);
  Front.EntryName.clear();

  audio::StopMusic();
  int16_t track = 37;
  audio::PlayMusic(track, true);
  DrawHigh();

  // The new screen in 192 squares, each sent off to a random side.
  int k = 0;
  for (int x = 0; x <= 750; x += 50) {
    for (int y = 0; y <= 550; y += 50) {
      display::BltOpaque(a.TileSurfaces[k], 0, 0, 50, 50, Back(), x, y, 50, 50);
      game::DebrisRecord& r = g.Debris[k];
      r.X = x;
      r.Y = y;
      r.DX = std::floor(400 * core::Rnd());
      if (std::floor(2 * core::Rnd()) == 1) r.DX = -r.DX; else r.DX += 800;
      r.DY = std::floor(400 * core::Rnd());
      if (std::floor(2 * core::Rnd()) == 1) r.DY = -r.DY; else r.DY += 600;
      ++k;
    }
  }

  core::EnterScreen("highscore");
  bool moving = true;
  while (moving) {
    moving = false;
    display::BltOpaque(Back(), 0, 0, 800, 600, a.BackgroundImage, 0, 0, 800, 600);
    for (int i = 0; i < 192; ++i) {
      game::DebrisRecord& r = g.Debris[i];
      auto step = [&](double& pos, double home) {
        if (pos > home) {
          pos = std::max(pos - 5, home);
          moving = true;
        } else if (pos < home) {
          pos = std::min(pos + 5, home);
          moving = true;
        }
      };
      step(r.DX, r.X);
      step(r.DY, r.Y);
      display::BltOpaque(Back(), r.DX, r.DY, 50, 50, a.TileSurfaces[i], 0, 0, 50, 50);
    }
    display::PresentFrame(0);
  }

  // The flip key may still be held from the game: wait for its release.
  c.KeyFlip = false;
  display::PresentFrame(0);
  do {
    input::ControlCheck();
    display::IdlePass();
  } while (c.KeyFlip);

  audio::PlaySoundEffect(static_cast<int16_t>(160 + std::floor(3 * core::Rnd())));

  const std::string& order = display::Text.GlyphOrder;
  for (;;) {
    input::ControlCheckHigh();
    if (c.PointerButton && !c.ClickLatch && c.TypedGlyph != -1) {
      c.ClickLatch = true;
      if (c.TypedGlyph == kEndGlyph) break;
      audio::PlaySoundEffect(19);
      if (Front.EntryName.size() < 8 && c.TypedGlyph != kQuoteGlyph)
        Front.EntryName += order[static_cast<size_t>(c.TypedGlyph)];
    }
    if (!Front.EntryName.empty() && c.PointerButton2 && !c.ClickLatch2) {
      c.ClickLatch2 = true;
      audio::PlaySoundEffect(20);
      Front.EntryName.pop_back();
    }
    DrawHigh();
    display::PresentFrame(0);
  }

  audio::PlaySoundEffect(14);
  if (Front.EntryName.empty()) Front.EntryName = "winner";
  while (c.PointerButton) {
    input::ControlCheckHigh();
    display::IdlePass();
  }
  while (c.PointerButton2) {
    input::ControlCheckHigh();
    display::IdlePass();
  }
  for (char& ch : Front.EntryName) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));

  int v = core::Settings.GameVariant, t = TableType();
  int rank = RankFor(Front.HighScores, v, t, g.ScoreShown);
  InsertHighScore(Front.HighScores, v, t, rank,
                  HighScoreEntry{Front.EntryName, g.ScoreShown, g.LinesShown, core::Settings.Level});
  WriteHighScoresFile();
  core::NoteResultStored(v, t, rank);
}

}  // namespace frontend

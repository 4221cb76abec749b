#include "frontend/intro.h"

#include "audio/music.h"
#include "core/hooks.h"
#include "core/random.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "game/game_state.h"

namespace frontend {

namespace {

constexpr int kStars = 150;

void NewStar(game::DebrisRecord& s) {
  do {
    s.X = 400;
    s.Y = 300;
    s.DX = static_cast<int>(core::Rnd() * 4000 + 1) / 1000.0;
    s.DY = static_cast<int>(core::Rnd() * 4000 + 1) / 1000.0;
  } while (s.DX < 1 && s.DY < 1);
  if (static_cast<int>(core::Rnd() * 2) == 1) s.DX = -s.DX;
  if (static_cast<int>(core::Rnd() * 2) == 1) s.DY = -s.DY;
  s.Size = 0;
  s.Extra = static_cast<int>(core::Rnd() * 100 + 1) / 2000.0;
}

void DrawStar(const game::DebrisRecord& s) {
  display::BltKeyed(display::Display.BackBuffer, s.X, s.Y, s.Size, s.Size, display::Assets.StarImage, 0, 0, 10, 10);
}

void DrawPicture(int k) {
  int w = static_cast<int>(1.33 * k);
  display::BltKeyed(display::Display.BackBuffer, 400 - w, 300 - k, 2 * w, 2 * k, display::Assets.IntroImage, 0, 0, 640,
                    480);
}

void Frame() {
  display::PresentFrame(1);
  display::YieldToSystem();
}

}  // namespace

void DrawStars() {
  for (int i = 1; i <= kStars; ++i) {
    game::DebrisRecord& s = game::Game.Debris[i];
    DrawStar(s);
    bool renew = false;
    s.X += s.DX;
    if (s.X > 800 || s.X < 0) renew = true;
    s.Y += s.DY;
    if (s.Y > 600 || s.Y < 0) renew = true;
    s.Size += s.Extra;
    if (renew) NewStar(s);
  }
}

void DrawStars2() {
  for (int i = 1; i <= kStars; ++i) {
    game::DebrisRecord& s = game::Game.Debris[i];
    DrawStar(s);
    s.X += s.DX;
    s.Y += s.DY;
    s.Size += s.Extra;
  }
}

void Introduction() {
  core::EnterScreen("intro");
  int16_t track = 38;
  audio::PlayMusic(track, false);
  display::PresentFrame(1);
  for (int i = 1; i <= kStars; ++i) NewStar(game::Game.Debris[i]);

  uint32_t start = display::GetTick();
  while (display::GetTick() - start < 2000) {
    DrawStars();
    Frame();
  }
  for (int k = 0; k <= 305; k += 5) {
    DrawStars();
    DrawPicture(k);
    Frame();
  }
  start = display::GetTick();
  while (display::GetTick() - start < 3000) {
    DrawStars();
    DrawPicture(310);
    Frame();
  }
  for (int k = 305; k >= 0; k -= 5) {
    DrawStars2();
    DrawPicture(k);
    Frame();
  }
  for (bool onScreen = true; onScreen;) {
    onScreen = false;
    for (int i = 1; i <= kStars; ++i) {
      game::DebrisRecord& s = game::Game.Debris[i];
      DrawStar(s);
      s.X += s.DX;
      s.Y += s.DY;
      s.Size += s.Extra;
      if (s.X > -10 && s.X < 800 && s.Y > -10 && s.Y < 600) onScreen = true;
    }
    Frame();
  }
  audio::StopMusic();
}

}  // namespace frontend

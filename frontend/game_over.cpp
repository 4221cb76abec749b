#include "frontend/game_over.h"

#include <cmath>

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/hooks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "frontend/front_state.h"
#include "frontend/high_scores.h"
#include "game/field.h"
#include "game/blow_up.h"
#include "game/game_state.h"
#include "game/playfield.h"
#include "input/control_mapping.h"

namespace frontend {

namespace {

display::Surface& Back() { return display::Display.BackBuffer; }
double U() { return core::Rnd(); }

void Play(int16_t track, bool loop) { audio::PlayMusic(track, loop); }

void FrozenFrame() {
  game::GameState& g = game::Game;
  game::DrawPlayfield();
  const display::Surface& sprite = display::Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse];
  if (sprite.Exists())
    display::BltKeyed(Back(), g.PieceX + game::kFieldLeft, g.PieceY + game::kFieldTop, sprite.Width, sprite.Height,
                      sprite, 0, 0, sprite.Width, sprite.Height);
  display::PresentFrame(0);
}

// The screen in 192 squares that float up and away; the next picture waits
// behind them in the backdrop. afterPresent draws on each new back buffer.
template <class AfterPresent>
void ScreenShatter(const char* backdrop, AfterPresent afterPresent) {
  game::GameState& g = game::Game;
  display::AssetSurfaces& a = display::Assets;
  int k = 0;
  for (int x = 0; x <= 750; x += 50) {
    for (int y = 0; y <= 550; y += 50) {
      display::BltOpaque(a.TileSurfaces[k], 0, 0, 50, 50, display::Display.PrimarySurface, x, y, 50, 50);
      game::DebrisRecord& r = g.Debris[k];
      r.X = x;
      r.Y = y;
      r.DX = std::floor(4000 * U() + 1) / 1000;
      if (std::floor(2 * U() + 1) == 1) r.DX = -r.DX;
      r.DY = -std::floor(3000 * U() + 1) / 1000;
      r.Size = 50;
      ++k;
    }
  }
  display::LoadSurface(display::Display.Backdrop, backdrop, 800, 600);
  bool visible = true;
  while (visible) {
    visible = false;
    for (int i = 0; i < 192; ++i) {
      game::DebrisRecord& r = g.Debris[i];
      if (r.Y <= -50) continue;
      display::BltOpaque(Back(), r.X, r.Y, 50, 50, a.TileSurfaces[i], 0, 0, 50, 50);
      r.X += r.DX;
      r.Y += r.DY;
      r.DY -= 0.1;
      if (r.Y > -50) visible = true;
    }
    display::PresentFrame(0);
    afterPresent();
  }
}

void Fireworks() {
  game::GameState& g = game::Game;
  input::ControlState& c = input::Controls;
  const display::AssetSurfaces& a = display::Assets;
  ScreenShatter("\\graphics\\worksback.bmp", [] {});
  display::PresentFrame(0);
  do {
    if (std::floor(30 * U() + 1) == 15) {
      double cx = std::floor(800 * U()), cy = std::floor(125 * U()), q = std::floor(11 * U());
      for (int i = Front.SparkSlot; i <= Front.SparkSlot + 149; ++i) {
        game::DebrisRecord& r = g.Debris[i];
        r.X = cx;
        r.Y = cy;
        r.DX = std::floor(2000 * U() + 1) / 1000;
        if (std::floor(2 * U() + 1) == 1) r.DX = -r.DX;
        r.DY = std::floor(2000 * U() + 1) / 1000;
        if (std::floor(2 * U() + 1) == 1) r.DY = -r.DY;
        r.Size = std::floor(15000 * U() + 1) / 1000;
        r.Extra = q;
      }
      Front.SparkSlot = static_cast<int16_t>(Front.SparkSlot + 150);
      if (Front.SparkSlot >= 900) Front.SparkSlot = 0;
    }
    // Every record glows, the squares of the shatter too: they come back
    // down as large sparks in the first seconds.
    for (int i = 0; i <= 900; ++i) {
      game::DebrisRecord& r = g.Debris[i];
      if (r.Size <= 0) continue;
      int q = static_cast<int>(std::floor(r.Extra));
      if (q == 10) q = static_cast<int>(std::floor(10 * U()));
      if (q < 0 || q > 9) q = ((q % 10) + 10) % 10;  // left over by another user of the table
      const display::Surface& spark = a.SparkImages[q];
      display::BltKeyed(Back(), r.X, r.Y, r.Size, r.Size, spark, 0, 0, 10, 10);
      r.X += r.DX;
      r.Y += r.DY;
      r.DY += 0.1;
      r.Size -= 0.2;
      if (r.Size < 0) r.Size = 0;
    }
    input::ControlCheckHigh();
    display::PresentFrame(0);
  } while (!c.PointerButton && !c.PointerButton2);
}

}  // namespace

int RocketSize(int level, int playType, int variant, double startHeight) {
  int size = 0;
  if (level > 9 && level < 14) size = 0;
  if (level > 13 && level < 17) size = 1;
  if (level > 16) size = 2;
  if (playType == 2 && variant != 2) {
    if (startHeight > 5) size = 0;
    if (startHeight > 8) size = 1;
    if (startHeight > 11) size = 2;
  }
  return size;
}

void RocketBlast() {
  const core::MenuSettings& s = core::Settings;
  FrontState& f = Front;
  struct Rocket {
    const char* file;
    int w, h, x, y;
  };
  static constexpr Rocket kRockets[] = {{"\\graphics\\rocketsmall.bmp", 21, 50, 520, 450},
                                        {"\\graphics\\rocketmed.bmp", 62, 150, 500, 350},
                                        {"\\graphics\\rocket.bmp", 146, 355, 457, 150}};
  const Rocket& r = kRockets[RocketSize(s.Level, s.PlayType, s.GameVariant, s.StartHeight)];
  display::LoadSurface(f.RocketImage, r.file, r.w, r.h);
  display::LoadSurface(f.RocketFire[0], "\\graphics\\rocketfire.bmp", 48, 40);
  display::LoadSurface(f.RocketFire[1], "\\graphics\\rocketfire2.bmp", 48, 40);
  double y = r.y;
  auto drawRocket = [&] { display::BltKeyed(Back(), r.x, y, r.w, r.h, f.RocketImage, 0, 0, r.w, r.h); };

  ScreenShatter("\\graphics\\rocketback.bmp", drawRocket);
  display::PresentFrame(0);
  double speed = 0.1;
  int flame = 1;
  display::WaitMs(3000);
  audio::PlaySoundEffect(12);
  uint32_t ignition = display::GetTick() + 1500;
  while (y > -50 - r.h) {
    if (++flame == 3) flame = 1;
    display::BltKeyed(Back(), 506, y + r.h - 2, 48, 40, f.RocketFire[flame - 1], 0, 0, 48, 40);
    drawRocket();
    if (display::GetTick() > ignition) {
      y -= speed;
      speed += 0.05;
    }
    display::PresentFrame(0);
  }
  display::PresentFrame(0);
  display::WaitMs(3000);
}

void GameOver() {
  game::GameState& g = game::Game;
  const core::MenuSettings& s = core::Settings;
  display::AssetSurfaces& a = display::Assets;
  core::EnterScreen("gameover");

  int h = -300;
  audio::SetMusicTempo(100);
  audio::StopMusic();
  const bool typeBWon = s.PlayType == 1 && g.Lines <= 0;
  uint32_t deadline;
  if (typeBWon) {
    deadline = display::GetTick() + 4000;
    Play(35, false);
  } else {
    deadline = display::GetTick() + 2000;
    audio::PlaySoundEffect(9);
  }
  display::LoadSurface(a.FieldSurfaces[2], "\\graphics\\gameover.bmp", 260, 420);
  while (display::GetTick() < deadline) FrozenFrame();

  // Every block of the field flies up and falls away.
  int count = 0;
  for (int y = 0; y <= 400; y += 20) {
    for (int x = 0; x <= 240; x += 20) {
      if (!game::Occupied(x + 10, y + 10)) continue;
      display::BltOpaque(a.TileSurfaces[count], 0, 0, 20, 20, a.FieldSurfaces[0], x, y, 20, 20);
      game::DebrisRecord& r = g.Debris[count];
      r.X = x;
      r.Y = y;
      r.DX = -std::floor(2000 * U() + 3000) / 1000;
      r.DY = std::floor(1000 * U() + 100) / 5000;
      ++count;
    }
  }
  g.HideBomb = 1;
  audio::PlaySoundEffect(13);
  if (!typeBWon) audio::PlaySoundEffect(static_cast<int16_t>(163 + std::floor(5 * U())));

  // 361 frames: h climbs from -300 by 2 to 420; the picture unrolls from h = 2.
  bool moving = true;
  while (moving) {
    moving = false;
    game::UnrollFieldStep(count, h);
    if (h == 0) Play(typeBWon ? 36 : 39, true);
    if (h < 420) {
      h += 2;
      moving = true;
    }
    game::DrawPlayfield();
    display::PresentFrame(0);
  }

  audio::PlaySoundEffect(10);
  const bool rocketByHeight = s.StartHeight > 5 && s.PlayType == 2;
  const bool rocketByLevel = s.PlayType == 0 && s.Level > 9;
  if (rocketByHeight || rocketByLevel) Play(34, true);
  deadline = display::GetTick() + 3000;
  g.HideBomb = 1;
  while (display::GetTick() < deadline) {
    game::DrawPlayfield();
    display::PresentFrame(0);
  }

  Front.SparkSlot = 0;
  if (s.PlayType == 1 && g.Lines <= 0) Fireworks();
  if (rocketByHeight) RocketBlast();
  if (rocketByLevel) RocketBlast();
  if (g.ScoreShown > Front.HighScores[s.GameVariant][s.PlayType][4].Score) NewHighScore();
  FinalScreen();
}

}  // namespace frontend

// The end of a Wickory game: the freeze, the field blown up under the
// unrolling game-over picture, the rocket above level 9, the Wickory table
// and the final screen.
#include <cmath>

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/hooks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_game.h"
#include "fuse/fuse_state.h"
#include "game/end_hooks.h"
#include "game/field.h"
#include "game/blow_up.h"
#include "game/game_state.h"

namespace fuse {

namespace {

void Play(int16_t track, bool loop) { audio::PlayMusic(track, loop); }

void HoldFor(uint32_t ms, bool withPiece) {
  const game::GameState& g = game::Game;
  const uint32_t deadline = display::GetTick() + ms;
  while (display::GetTick() < deadline) {
    DrawFuseField();
    if (withPiece)
      display::BltKeyed(display::Display.BackBuffer, g.PieceX + game::kFieldLeft, g.PieceY + game::kFieldTop, 80, 80,
                        display::Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse], 0, 0, 80, 80);
    display::PresentFrame(0);
  }
}

}  // namespace

void GameOver2() {
  game::GameState& g = game::Game;
  display::AssetSurfaces& a = display::Assets;
  const core::MenuSettings& s = core::Settings;
  core::EnterScreen("gameover");
  Fuse.BurnFlag = 1;  // the charges glow through the whole ending
  int h = -300;
  audio::SetMusicTempo(100);
  audio::StopMusic();
  audio::PlaySoundEffect(9);
  display::LoadSurface(a.FieldSurfaces[2], "\\graphics\\gameover.bmp", 260, 420);
  HoldFor(2000, true);

  int count = 0;
  for (int y = 0; y <= 400; y += 20) {
    for (int x = 0; x <= 240; x += 20) {
      if (!game::Occupied(x + 10, y + 10)) continue;
      display::BltOpaque(a.TileSurfaces[count], 0, 0, 20, 20, a.FieldSurfaces[0], x, y, 20, 20);
      game::DebrisRecord& r = g.Debris[count];
      r.X = x;
      r.Y = y;
      r.DX = -std::floor(2000 * core::Rnd() + 3000) / 1000;
      r.DY = std::floor(1000 * core::Rnd() + 100) / 5000;
      ++count;
    }
  }
  audio::PlaySoundEffect(13);
  audio::PlaySoundEffect(static_cast<int16_t>(163 + std::floor(5 * core::Rnd())));

  // 361 frames: h climbs from -300 by 2 to 420; the picture unrolls from h = 2.
  bool moving = true;
  while (moving) {
    moving = false;
    game::UnrollFieldStep(count, h);
    if (h == 0) Play(39, true);
    if (h < 420) {
      h += 2;
      moving = true;
    }
    DrawFuseField();
    display::PresentFrame(0);
  }

  audio::PlaySoundEffect(10);
  if (s.Level > 9) Play(34, true);
  HoldFor(4000, false);
  Fuse.BurnFlag = 0;
  if (s.Level > 9 && game::RocketBlastHook) game::RocketBlastHook();
  if (game::QualifiesForTableHook && game::QualifiesForTableHook() && game::NewHighScoreHook) game::NewHighScoreHook();
  if (game::FinalScreenHook) game::FinalScreenHook();
}

}  // namespace fuse

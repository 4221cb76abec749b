#include "fuse/rocks.h"

#include <cmath>

#include "audio/sound_effects.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/passes.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "game/field.h"
#include "game/game_state.h"

namespace fuse {

namespace {

using display::Assets;

// Rule: a field filled up to y = 100 has room for no rock; after this many
// draws the rock is left out instead of drawing for ever.
constexpr int kRockDrawLimit = 1000;

void CopyField(int from, int to) {
  display::BltOpaque(Assets.FieldSurfaces[to], 0, 0, 260, 420, Assets.FieldSurfaces[from], 0, 0, 260, 420);
}

}  // namespace

int RockRestTop(int sizeClass, int x) {
  int line = 420;
  for (int y = 10; y <= 430; y += 20) {
    bool hit = game::Occupied(x + 10, y);
    if (sizeClass >= 1 && game::Occupied(x + 30, y)) hit = true;
    if (sizeClass >= 2 && game::Occupied(x + 50, y)) hit = true;
    if (hit) {
      line = y - 10;
      break;
    }
  }
  return line - 20 * (sizeClass + 1);
}

void DropRock(int sizeClass, int x, int restTop, double speed, double accel) {
  const int size = 20 * (sizeClass + 1);
  double y = -size;
  do {
    CopyField(1, 0);
    y += speed;
    if (y > restTop) y = restTop;
    speed += accel;
    display::BltKeyed(Assets.FieldSurfaces[0], x, y, size, size, Assets.RockImages[sizeClass], 0, 0, size, size);
    DrawFuseField();
    display::PresentFrame(0);
  } while (y != restTop);
}

void DropStartRocks() {
  const core::MenuSettings& s = core::Settings;
  game::GameState& g = game::Game;
  for (int i = 1; i <= 2 * s.StartHeight; ++i) {
    CopyField(0, 1);
    int sizeClass = 0, x = 0, top = 0, draws = 0;
    do {
      sizeClass = core::RandomInt(3);
      x = 20 * core::RandomInt(13 - sizeClass);
      top = RockRestTop(sizeClass, x);
    } while (top < 100 && ++draws < kRockDrawLimit);
    if (top < 100) continue;
    audio::PlaySoundEffect(17);
    DropRock(sizeClass, x, top, 5, 0.5);
    audio::PlaySoundEffect(10);
    const int cells = (sizeClass + 1) * (sizeClass + 1);
    g.Score += static_cast<int32_t>(10 * (s.Level + 1) * s.StartHeight * cells);
    audio::StopSoundEffect(17);
  }
}

}  // namespace fuse

// The earthquake: the field shaken on screen while one bottom-up pass lets
// every block with an empty cell beneath drop a cell, and the earthquake
// sprite swells over the field and shrinks away.
#include "audio/sound_effects.h"
#include "bonus/effect_drawing.h"
#include "bonus/effects.h"
#include "core/random.h"
#include "display/passes.h"
#include "game/playfield.h"

namespace bonus {

namespace {

using detail::Back;
using detail::Field;

struct Shake {
  int x = game::kFieldLeft, y = game::kFieldTop;
};

Shake NewShake() {
  Shake s;
  s.x = game::kFieldLeft + core::RandomInt(10, -5);
  s.y = game::kFieldTop + core::RandomInt(10, -5);
  return s;
}

// The field and, in Type C, the bomb, both shaken; the playfield between
// them (it leaves the field out while FieldBlitOff is set).
void DrawShaken(const Shake& s) {
  const game::GameState& g = game::Game;
  display::BltKeyed(Back(), s.x, s.y, 260, 420, Field(), 0, 0, 260, 420);
  game::DrawPlayfield();
  if (!detail::InTypeC()) return;
  const double bx = s.x + g.BombX, by = s.y + g.BombY;
  game::DrawBombPictures(bx, by);
}

void DrawSwell(int swell) {
  const game::GameState& g = game::Game;
  const int size = 80 + 2 * swell;
  if (size <= 0) return;
  display::BltKeyed(Back(), g.PieceX + game::kFieldLeft - swell, g.PieceY + game::kFieldTop - swell, size, size,
                    display::Assets.PieceSprites[15][0][0], 0, 0, 80, 80);
}

}  // namespace

void Earthquake() {
  game::GameState& g = game::Game;
  g.FieldBlitOff = 1;
  int swell = 0;
  // Blocks may fall into the bomb's cells during the pass.
  if (detail::InTypeC()) detail::PaintBlack(g.BombX, g.BombY, g.BombX + 40, g.BombY + 40);
  audio::PlaySoundEffect(12);

  // Row 0 is moved, never tested.
  for (int y = 400; y >= 20; y -= 20) {
    for (int x = 0; x <= 240; x += 20) {
      bool above = game::Occupied(x + 10, y - 10);
      bool here = game::Occupied(x + 10, y + 10);
      if (!here && above) {
        display::BltOpaque(Field(), x, 20, 20, y, Field(), x, 0, 20, y);
        detail::PaintBlack(x, 0, x + 20, 20);
      }
      DrawShaken(NewShake());
      if (swell <= 80) ++swell;
      DrawSwell(swell);
      // Five frames a row; the steps between draw everything all the same
      // (the shake's random numbers, the bomb's frame) but give back the
      // sprite phase the playfield drawing took.
      if (x % 60 == 0) display::PresentFrame(0);
      else g.BonusAnimA -= 0.2;
    }
    if (detail::InTypeC() && y > g.BombY + 20 && !game::Occupied(g.BombX + 10, g.BombY + 50) &&
        !game::Occupied(g.BombX + 30, g.BombY + 50))
      g.BombY = static_cast<int16_t>(g.BombY + 20);
  }

  for (; swell >= -80; swell -= 2) {
    DrawShaken(NewShake());
    DrawSwell(swell);
    display::PresentFrame(0);
  }
  g.FieldBlitOff = 0;
}

}  // namespace bonus

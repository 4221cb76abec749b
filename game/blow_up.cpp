#include "game/blow_up.h"

#include "display/assets.h"
#include "display/surface.h"
#include "game/game_state.h"

namespace game {

void UnrollFieldStep(int count, int h) {
  display::AssetSurfaces& a = display::Assets;
  display::Surface& field = a.FieldSurfaces[0];
  display::FillSurface(field, display::Display.WholeRect, 0);
  for (int i = 0; i < count; ++i) {
    DebrisRecord& r = Game.Debris[i];
    display::BltOpaque(field, r.X, r.Y, 20, 20, a.TileSurfaces[i], 0, 0, 20, 20);
    r.Y += r.DX;
    r.DX += r.DY;
  }
  display::FillSurface(field, display::Rect{0, 0, 260, 1}, 0);
  if (h > 0) display::BltKeyed(field, 0, 1, 260, h, a.FieldSurfaces[2], 0, 0, 260, 420);
}

}  // namespace game

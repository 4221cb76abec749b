// TEMPORARY: stand-ins for the block game's procedures until its branch is
// merged; remove this file then. Weak, so the real ones win wherever linked.
#include "display/assets.h"
#include "display/surface.h"
#include "core/hooks.h"
#include "game/game_loop.h"
#include "game/game_over_hook.h"
#include "game/field.h"
#include "game/playfield.h"

namespace game {

__attribute__((weak)) void PrepareGame() {}

__attribute__((weak)) bool Occupied(double x, double y) {
  display::Surface& field = display::Assets.FieldSurfaces[0];
  if (!field.Exists() || x < 0 || y < 0 || x >= kFieldWidth || y >= kFieldHeight) return false;
  return field.Row(static_cast<int>(y))[static_cast<int>(x)] != 0;
}

__attribute__((weak)) void DrawPlayfield() {
  const display::Surface& field = display::Assets.FieldSurfaces[0];
  if (field.Exists()) display::BltOpaque(display::Display.BackBuffer, 181, 147, 260, 420, field, 0, 0, 260, 420);
}

// An empty game that ends at once, so the show after it can be seen.
__attribute__((weak)) void BeginGame() {
  core::EnterScreen("play");
  if (GameOverHook) GameOverHook();
}

}  // namespace game

// What every bonus effect draws with: the field, the back buffer, the black
// paint, the falling piece's sprite and the frame's end.
#pragma once
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "game/field.h"
#include "game/game_state.h"

namespace bonus::detail {

inline display::Surface& Field() { return display::Assets.FieldSurfaces[0]; }
inline display::Surface& Back() { return display::Display.BackBuffer; }

inline void PaintBlack(int x1, int y1, int x2, int y2) { game::PaintField(x1, y1, x2, y2, 0, 0, 0); }

// The falling piece's own sprite (kind, rotation, fuse set) at a screen point.
inline void DrawPieceSprite(double screenX, double screenY) {
  const game::GameState& g = game::Game;
  display::BltKeyed(Back(), screenX, screenY, 80, 80, display::Assets.PieceSprites[g.PieceKind][g.PieceRot][g.PieceFuse],
                    0, 0, 80, 80);
}

// A 20 x 20 square of one surface onto another, with or without the key.
inline void CopyCell(display::Surface& dest, double dx, double dy, const display::Surface& src, double sx, double sy,
                     bool keyed) {
  if (keyed) display::BltKeyed(dest, dx, dy, 20, 20, src, sx, sy, 20, 20);
  else display::BltOpaque(dest, dx, dy, 20, 20, src, sx, sy, 20, 20);
}

inline bool InTypeC() { return core::Settings.PlayType == 2; }

}  // namespace bonus::detail

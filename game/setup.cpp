// The start of every game: the state reset, the screen breaking into falling
// tiles, the start-height garbage, the first piece, then the variant's loop.
#include <cmath>

#include "bonus/bonus_state.h"
#include "core/hooks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_game.h"
#include "fuse/fuse_state.h"
#include "fuse/rocks.h"
#include "game/field.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/garbage.h"
#include "game/line_check.h"
#include "game/pieces.h"
#include "game/playfield.h"
#include "input/control_mapping.h"

namespace game {

namespace {

using display::Assets;

// A speed of 0.001 to 3 pixels a frame, either way.
double RandomSpeed() { return (core::RandomInt(3000) + 1) / 1000.0; }

bool Wickory() { return core::Settings.GameVariant == 2; }

void DrawField() {
  if (Wickory())
    fuse::DrawFuseField();
  else
    DrawPlayfield();
}

void ResetGame() {
  GameState& g = Game;
  core::MenuSettings& s = core::Settings;
  input::Controls.MouseAccumX = 0;
  g.BonusAnimA = g.BonusAnimB = 0;
  g.GarbageCounter = 1;
  bonus::Bonus.SparkNext = 0;
  g.SoftDropPoints = 0;
  if (s.GameVariant < 2 && s.PlayType == 2) s.StartHeight = 0;
  input::Controls.PauseRequest = 0;
  g.FieldBlitOff = 0;
  g.Lines = g.LinesShown = (s.GameVariant < 2 && s.PlayType == 1) ? 30 : 0;
  g.Score = g.ScoreShown = 0;
  fuse::Fuse.ChargeCount = 0;
  g.KindCount = s.GameVariant == 0 ? 7 : s.GameVariant == 1 ? 13 : 16;
  FreshNex();
}

// The picture on screen cut into 192 tiles of 50 x 50 that fly apart and
// fall away, with the new game drawn behind them.
void OpeningTransition() {
  GameState& g = Game;
  display::Surface& screen = display::Display.PrimarySurface;
  display::Surface& back = display::Display.BackBuffer;
  int i = 0;
  for (int x = 0; x <= 750; x += 50) {
    for (int y = 0; y <= 550; y += 50) {
      ++i;
      display::BltOpaque(Assets.TileSurfaces[i], 0, 0, 50, 50, screen, x, y, 50, 50);
      double dx = RandomSpeed(), dy = RandomSpeed();
      if (core::RandomInt(2, 1) == 1) dx = -dx;
      if (core::RandomInt(2, 1) == 1) dy = -dy;
      g.Debris[i] = DebrisRecord{double(x), double(y), dx, dy, 50, 0};
    }
  }
  const int tiles = i;
  auto falling = [&] {
    for (int t = 1; t <= tiles; ++t)
      if (g.Debris[t].Y < 600) return true;
    return false;
  };
  while (falling()) {
    for (int t = 1; t <= tiles; ++t) {
      DebrisRecord& d = g.Debris[t];
      if (d.Y >= 600) continue;
      display::BltOpaque(back, d.X, d.Y, 50, 50, Assets.TileSurfaces[t], 0, 0, 50, 50);
      d.X += d.DX;
      d.Y += d.DY;
      d.DY += 0.1;
    }
    display::PresentFrame(0);
    DrawField();
  }
  g.HideBomb = 1;
}

// Full garbage rows for the start height: two a unit of height, but 15 for
// 8 and 16 for 9 so that a piece still has room to come in.
int GarbageRows(double height) {
  if (height == 8) return 15;
  if (height == 9) return 16;
  return static_cast<int>(std::floor(2 * height));
}

}  // namespace

void BeginGame() {
  core::NoteGameBegins();
  GameState& g = Game;
  core::EnterScreen("play");
  OfferFieldPainter(true);
  if (Wickory()) {
    core::SetFieldPainter(fuse::PaintFuseFieldRow);
    core::SetFieldStamper(fuse::StampPiece);
  }
  ResetGame();
  for (int i = 0; i <= 2; ++i) display::FillSurface(Assets.FieldSurfaces[i], display::Rect{0, 0, 260, 420}, 0);
  OpeningTransition();

  if (Wickory()) {
    fuse::DropStartRocks();
    FreshCurrent();
    fuse::FuseGame();
    core::SetFieldStamper(nullptr);
    OfferFieldPainter(false);
    return;
  }

  const double height = core::Settings.StartHeight;
  const int rows = GarbageRows(height);
  if (rows > 0) DropGarbageRows(rows);
  g.HideBomb = 0;
  if (height > 0) {
    BlowHoles();
    g.PieceKind = 0;  // the garbage rows that survived whole are cleared as a plain landing
    CheckLine();
  }

  FreshCurrent();
  if (core::Settings.GameVariant < 2) StandardGame();
  OfferFieldPainter(false);
}

}  // namespace game

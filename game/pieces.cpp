// The pieces: sprites cut from the variant's sheet, the random supply, and
// the entry of a new piece. No shape is written here: a piece is whatever
// its sprite shows on the 4 x 4 grid of its box.
#include "game/pieces.h"

#include <string>

#include "core/hooks.h"
#include "core/random.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_state.h"
#include "game/field.h"
#include "game/game_state.h"
#include "game/playfield.h"

namespace game {

namespace {

using display::Assets;
using display::Surface;

// Sheet rows of two kinds, four rotations each, for fuse set `fuse`.
void CutSheetRows(const Surface& sheet, int lastY, int fuse) {
  int k = -1, r = 0;
  for (int y = 0; y <= lastY; y += 80) {
    for (int x = 0; x <= 560; x += 80) {
      if (x == 0 || x == 320) ++k;
      Surface& sprite = Assets.PieceSprites[k][r][fuse];
      display::FillSurface(sprite, display::Display.WholeRect, 0);
      // Rows past the sheet's bottom copy nothing and leave the sprite black.
      display::BltOpaque(sprite, 0, 0, 80, 80, sheet, x, y, 80, 80);
      r = (r + 1) % 4;
    }
  }
}

// Single pictures in the row at y = 480, one per kind from `firstKind`, used
// for every rotation.
void CutSinglePictures(const Surface& sheet, int firstKind, int count) {
  for (int i = 0; i < count; ++i) {
    for (int r = 0; r <= 3; ++r) {
      Surface& sprite = Assets.PieceSprites[firstKind + i][r][0];
      display::FillSurface(sprite, display::Display.WholeRect, 0);
      display::BltOpaque(sprite, 0, 0, 80, 80, sheet, 80 * i, 480, 80, 80);
    }
  }
}

// The three fuse sets, the charge and the detonator (set 0 only) and the
// eight glow tiles.
void CutFuseSheets(Surface& sheet) {
  display::LoadSurface(sheet, "\\graphics\\piecefuse1.bmp", 640, 560);
  CutSheetRows(sheet, 400, 0);
  CutSinglePictures(sheet, 12, 2);
  for (int i = 0; i <= 7; ++i) {
    display::FillSurface(Assets.BlockTiles[i], display::Display.WholeRect, 0);
    display::BltOpaque(Assets.BlockTiles[i], 0, 0, 20, 20, sheet, 208 + 20 * i, 500, 20, 20);
  }
  display::LoadSurface(sheet, "\\graphics\\piecefuse2.bmp", 640, 480);
  CutSheetRows(sheet, 400, 1);
  display::LoadSurface(sheet, "\\graphics\\piecefuse3.bmp", 640, 480);
  CutSheetRows(sheet, 400, 2);
}

// The variant's frame without the piece.
void DrawField() {
  if (core::Settings.GameVariant == 2)
    fuse::DrawFuseField();
  else
    DrawPlayfield();
}

}  // namespace

void CreatePieces() {
  Surface& sheet = Assets.PieceSheet;
  const int variant = core::Settings.GameVariant;
  if (variant == 2) {
    CutFuseSheets(sheet);
  } else if (variant == 0) {
    display::LoadSurface(sheet, "\\graphics\\classicpieces.bmp", 640, 320);
    CutSheetRows(sheet, 320, 0);
  } else {
    display::LoadSurface(sheet, "\\graphics\\bonuspieces.bmp", 640, 560);
    CutSheetRows(sheet, 400, 0);
    CutSinglePictures(sheet, 12, 4);
  }
  const char* fill = variant == 0   ? "\\graphics\\classicfill.bmp"
                     : variant == 1 ? "\\graphics\\bonusfill.bmp"
                                    : "\\graphics\\fusefill.bmp";
  display::LoadSurface(Assets.FillSheet, fill, 100, 20);
  for (int i = 0; i <= 4; ++i) {
    display::FillSurface(Assets.FillTiles[i], display::Display.WholeRect, 0);
    display::BltOpaque(Assets.FillTiles[i], 0, 0, 20, 20, Assets.FillSheet, 20 * i, 0, 20, 20);
  }
  display::FillSurface(Assets.FillTiles[5], display::Display.WholeRect, 0);
}

void FreshNex() {
  GameState& g = Game;
  int kind = 0, fuse = 0;
  const bool forced = core::TakeQueuedPiece(kind, fuse);
  if (forced) {
    g.NextKind = static_cast<int16_t>(kind);
    g.NextFuse = static_cast<int16_t>(core::Settings.GameVariant == 2 && kind <= 11 ? fuse : 0);
  } else if (core::Settings.GameVariant == 2) {
    // A detonator is only dealt while a charge lies in the field.
    do {
      g.NextKind = static_cast<int16_t>(core::RandomInt(18));
      g.NextFuse = static_cast<int16_t>(core::RandomInt(3));
      if (g.NextKind > 11) g.NextFuse = 0;
      if (g.NextKind == 14 || g.NextKind == 15) g.NextKind = 12;
      if (g.NextKind == 16 || g.NextKind == 17) g.NextKind = 13;
    } while (g.NextKind == 13 && fuse::Fuse.ChargeCount == 0);
  } else {
    g.NextKind = static_cast<int16_t>(core::RandomInt(g.KindCount));
    g.NextFuse = 0;
    if (g.NextKind == 12) g.NextKind = static_cast<int16_t>(core::RandomInt(4, 12));
  }
  const int k = g.NextKind;
  g.NextPos[0] = (k == 1 || (k >= 3 && k <= 10) || k > 11) ? 291 : 296;
  int y = g.FrameY + 45;
  if (k == 0) y -= 5;
  if (k == 2) y -= 10;
  if (k >= 8 && k <= 10) y -= 5;
  if (k > 11) y -= 5;
  g.NextPos[1] = static_cast<int16_t>(y);
  core::NoteDraw(g.NextKind, g.NextFuse, fuse::Fuse.ChargeCount, forced);
}

void FreshCurrent() {
  GameState& g = Game;
  g.PieceKind = g.NextKind;
  g.PieceFuse = g.NextFuse;
  g.PieceRot = 0;
  int x = g.NextPos[0];
  const int startY = g.NextPos[1];
  FreshNex();
  if (core::Settings.GameVariant != 2) g.PieceFuse = 0;

  const int kind = g.PieceKind;
  g.PieceX = (kind == 0 || kind == 2 || kind == 11 || kind == 15) ? 100 : 80;
  g.PieceY = (kind == 0 || kind == 2 || kind == 10 || kind > 11) ? -20 : 0;

  // The flight from the preview: 5 pixels down and 1 across a frame, growing
  // from half size over the first 20 frames.
  Surface& back = display::Display.BackBuffer;
  const Surface& sprite0 = Assets.PieceSprites[kind][0][g.PieceFuse];
  const int endY = g.PieceY + 147, endX = g.PieceX + 181;
  int s = 40;
  for (int y = startY; y <= endY; y += 5) {
    if (s < 80) {
      s += 2;
      x -= 1;
    }
    if (y > endY) y = endY;
    if (x > endX) --x;
    else if (x < endX) ++x;
    DrawField();
    display::BltKeyed(back, x, y, s, s, sprite0, 0, 0, 80, 80);
    display::PresentFrame(0);
  }

  // The cells, column by column, top to bottom; short lists repeat cell 0.
  for (int r = 0; r <= 3; ++r) {
    Surface& sprite = Assets.PieceSprites[kind][r][g.PieceFuse];
    int n = -1;
    for (int cx = 10; cx <= 70; cx += 20) {
      for (int cy = 10; cy <= 70; cy += 20) {
        display::ReadPixel(sprite, cx, cy);
        if (display::Display.PixelValue == 0 || n >= 4) continue;
        ++n;
        g.PieceCells[r][n][0] = static_cast<int16_t>(cx);
        g.PieceCells[r][n][1] = static_cast<int16_t>(cy);
      }
    }
    for (int i = n + 1; i <= 4 && n >= 0; ++i) g.PieceCells[r][i] = g.PieceCells[r][0];
  }

  // The statistics panel: the new count, opaque, units at x = 60.
  g.PieceCounts[kind] += 1;
  std::string digits = std::to_string(g.PieceCounts[kind]);
  int dx = 60;
  for (auto it = digits.rbegin(); it != digits.rend(); ++it, dx -= 10)
    display::BltOpaque(Assets.StatusImage, dx, 10 + 30 * kind, 10, 10, display::Text.StatDigits[*it - '0'], 0, 0, 10,
                       10);

  DrawField();
  display::BltKeyed(back, g.PieceX + 181, g.PieceY + 147, 80, 80, Assets.PieceSprites[kind][g.PieceRot][g.PieceFuse],
                    0, 0, 80, 80);
  display::PresentFrame(0);
}

}  // namespace game

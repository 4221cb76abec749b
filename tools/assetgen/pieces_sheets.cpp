// Generators of the piece grid: the piece sheets, the garbage tiles, the
// statistics panels and the animation strips of the special pieces.
#include <cmath>
#include <string>

#include "tools/assetgen/pieces_art.h"
#include "tools/assetgen/pieces_draw.h"
#include "tools/assetgen/registry.h"

namespace assetgen::pieces {

bmp::Image565 Sprite(Variant v, int kind, int rot, int set) {
  bmp::Image565 img = Blank(kBox, kBox);
  if (v == Variant::Bonus && kind == 12) return BombSprite();
  if (v == Variant::Bonus && (kind == 13 || kind == 14)) {
    Paste(img, ArrowFrame(kind == 13, 0), 40, 20);
    return img;
  }
  if (v == Variant::Bonus && kind == 15) {
    Paste(img, EarthFrame(0), 20, 20);
    return img;
  }
  if (v == Variant::Fuse && kind >= 12) {
    Paste(img, kind == 12 ? ChargeFrame(kChargeRest) : DetonatorFrame(0), 40, 20);
    return img;
  }
  const auto cells = Cells(kind, rot);
  const Material m = MaterialOf(v, kind);
  ArmGrid arms{};
  if (v == Variant::Fuse) arms = FuseArms(kind, rot, set);
  img = Render(kBox, kBox, [&](cairo_t* cr) {
    for (Cell c : cells) DrawBlock(cr, c.c * kCell, c.r * kCell, kCell, m);
    for (Cell c : cells) DrawCord(cr, c.c * kCell, c.r * kCell, arms[c.r * 4 + c.c]);
  });
  if (v == Variant::Fuse) {
    ScrubFireCodes(img);
    for (Cell c : cells) PaintFuse(img, c.c * kCell, c.r * kCell, arms[c.r * 4 + c.c]);
    if (kind == 9 && set == 1) Paste(img, ChargeFrame(kChargeRest), kChargeCell.c * kCell, kChargeCell.r * kCell);
  }
  return img;
}

namespace {

Variant VariantArg(const Entry& e) {
  if (e.args.empty()) Fail(e, "needs a variant: classic, bonus or fuse");
  if (e.args[0] == "classic") return Variant::Classic;
  if (e.args[0] == "bonus") return Variant::Bonus;
  if (e.args[0] == "fuse") return Variant::Fuse;
  Fail(e, "unknown variant " + e.args[0]);
}

int IntArg(const Entry& e, size_t i) {
  if (e.args.size() <= i) Fail(e, "needs argument " + std::to_string(i + 1));
  return std::stoi(e.args[i]);
}

}  // namespace
}  // namespace assetgen::pieces

using namespace assetgen;
using namespace assetgen::pieces;

// ARGS: classic | bonus | fuse SET
ASSETGEN_GENERATOR(piece_sheet) {
  Variant v = VariantArg(entry);
  int set = v == Variant::Fuse ? IntArg(entry, 1) : 0;
  bmp::Image565 img = Blank(entry.width, entry.height);
  int kinds = v == Variant::Classic ? 8 : 12;
  for (int k = 0; k < kinds; ++k)
    for (int r = 0; r < 4; ++r) Paste(img, Sprite(v, k, r, set), (k % 2) * 320 + r * kBox, (k / 2) * kBox);
  if (v == Variant::Bonus)
    for (int k = 12; k < 16; ++k) Paste(img, Sprite(v, k, 0, 0), (k - 12) * kBox, 480);
  if (v == Variant::Fuse && set == 0) {
    Paste(img, Sprite(v, 12, 0, 0), 0, 480);
    Paste(img, Sprite(v, 13, 0, 0), 80, 480);
    for (int i = 0; i < 8; ++i) Paste(img, GlowTile(i), 208 + 20 * i, 500);
    Put(img, 406, 505, kFuse1);
    Put(img, 407, 505, kFuse2);
    Put(img, 408, 505, kCharge1);
  }
  Write(ctx, entry, img);
}

// ARGS: classic | bonus | fuse
ASSETGEN_GENERATOR(piece_fill) {
  Variant v = VariantArg(entry);
  static const Material tiles[3][5] = {
      {{Finish::Gloss, Hex(150, 152, 162)}, {Finish::Gloss, Hex(118, 124, 142)}, {Finish::Gloss, Hex(166, 156, 140)},
       {Finish::Gloss, Hex(108, 114, 120)}, {Finish::Gloss, Hex(138, 134, 150)}},
      {{Finish::Jewel, Hex(122, 112, 142)}, {Finish::Jewel, Hex(108, 132, 130)}, {Finish::Jewel, Hex(142, 122, 100)},
       {Finish::Jewel, Hex(100, 112, 142)}, {Finish::Jewel, Hex(132, 132, 136)}},
      {{Finish::Stone, Hex(122, 116, 106), 21}, {Finish::Stone, Hex(102, 102, 110), 22},
       {Finish::Stone, Hex(142, 128, 110), 23}, {Finish::Stone, Hex(96, 90, 86), 24},
       {Finish::Stone, Hex(128, 122, 118), 25}},
  };
  bmp::Image565 img = Render(100, 20, [&](cairo_t* cr) {
    for (int i = 0; i < 5; ++i) DrawBlock(cr, 20 * i, 0, 20, tiles[static_cast<int>(v)][i]);
  });
  ScrubFireCodes(img);
  Write(ctx, entry, img);
}

// ARGS: column | line
ASSETGEN_GENERATOR(piece_arrows) {
  bool column = !entry.args.empty() && entry.args[0] == "column";
  bmp::Image565 img = Blank(220, 20);
  for (int i = 0; i < 11; ++i) Paste(img, ArrowFrame(column, i), 20 * i, 0);
  Write(ctx, entry, img);
}

ASSETGEN_GENERATOR(piece_earth) {
  bmp::Image565 img = Blank(800, 40);
  for (int i = 0; i < 20; ++i) Paste(img, EarthFrame(i), 40 * i, 0);
  Write(ctx, entry, img);
}

// ARGS: N (0..5)
ASSETGEN_GENERATOR(piece_megabomb) { Write(ctx, entry, MegaBomb(IntArg(entry, 0))); }

ASSETGEN_GENERATOR(piece_charges) {
  bmp::Image565 img = Blank(260, 20);
  for (int i = 0; i < kChargeFrames; ++i) Paste(img, ChargeFrame(i), 20 * i, 0);
  Write(ctx, entry, img);
}

ASSETGEN_GENERATOR(piece_detonators) {
  bmp::Image565 img = Blank(160, 20);
  for (int i = 0; i < 8; ++i) Paste(img, DetonatorFrame(i), 20 * i, 0);
  Write(ctx, entry, img);
}

// ARGS: SIDE in cells (1..3)
ASSETGEN_GENERATOR(piece_rock) { Write(ctx, entry, Rock(IntArg(entry, 0))); }

ASSETGEN_GENERATOR(piece_cracked) { Write(ctx, entry, Cracked()); }

// The pictures of the piece grid, shared by the sheets (which show the first
// or resting frame of every animation) and by the animation strips.
#pragma once
#include "platform/bmp_file.h"
#include "tools/assetgen/pieces_shapes.h"

namespace assetgen::pieces {

// Bonus pieces.
bmp::Image565 ArrowFrame(bool column, int frame);  // 20 x 20, frames 0..10
bmp::Image565 EarthFrame(int frame);               // 40 x 40, frames 0..19, the block in the top right quarter
bmp::Image565 BombSprite();                        // 80 x 80, the round bomb in cell (2, 1), fuse tip at (26, 12)
bmp::Image565 MegaBomb(int n);                     // 40 x 40, the Type C bomb pictures 0..5

// Wickory.
constexpr int kChargeFrames = 13;
constexpr int kChargeRest = 12;                    // the frame shown most of the time
bmp::Image565 ChargeFrame(int frame);              // 20 x 20 charge cell, with its fuse cross
bmp::Image565 DetonatorFrame(int frame);           // 20 x 20, frames 0..7
bmp::Image565 GlowTile(int n);                     // 20 x 20, tiles 0..7
bmp::Image565 Rock(int side);                      // side x side cells
bmp::Image565 Cracked();                           // 20 x 20

// One 80 x 80 sprite of a sheet as the sheet holds it (kinds 12..15: the
// still picture; fuse set only in Wickory).
bmp::Image565 Sprite(Variant v, int kind, int rot, int set);

}  // namespace assetgen::pieces

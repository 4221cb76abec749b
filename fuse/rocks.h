// Rocks: the start height of Wickory, and the rock a detonation may drop.
#pragma once

namespace fuse {

// Where a rock of size class 0..2 (1, 2 or 3 cells wide) in field column x
// comes to rest: the top of its picture.
int RockRestTop(int sizeClass, int x);
// Drops the rock from above the field onto restTop, one frame a step, the
// speed growing by accel a frame; it stays painted into field element 0.
void DropRock(int sizeClass, int x, int restTop, double speed, double accel);
// 2 x StartHeight rocks, none resting above y = 100, each scoring.
void DropStartRocks();

}  // namespace fuse

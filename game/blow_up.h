// The field as a game-over show leaves it: the blown-up cells falling and the
// game-over picture (FieldSurfaces[2]) unrolling over them.
#pragma once

namespace game {

// One frame of it in FieldSurfaces[0]: tiles 0..count-1 (Debris x, y, speed
// in DX, pull in DY) drawn and moved on, then h rows of the picture.
void UnrollFieldStep(int count, int h);

}  // namespace game

// The introduction after loading: a star burst, the picture zooming in and
// out, the stars flying off. It reads no input.
#pragma once

namespace frontend {

void Introduction();
// One pass over the 150 stars (Debris rows 1..150); DrawStars sends the stars
// that left the screen back to the centre, DrawStars2 does not.
void DrawStars();
void DrawStars2();

}  // namespace frontend

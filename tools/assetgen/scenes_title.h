// The title art and falling pieces shared by the menu picture and the introduction.
#pragma once
#include "tools/assetgen/scenes_art.h"

namespace scenes {

// "Bonus / VORREL / plus Wickory" centred on cx, about 560 x 230 at scale 1.
void TitleLogo(cairo_t* cr, double cx, double top, double scale);
// One of the seven four-cell pieces in glossy blocks, centred near (x, y).
void FallingPiece(cairo_t* cr, int shape, double x, double y, double cell, double angle, double alpha = 1.0);

}  // namespace scenes

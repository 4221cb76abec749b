// The play-screen backgrounds: 400 x 300 pictures, one per variant and level.
// Each variant paints its own look; the per-pixel techniques are shared.
#pragma once
#include <cstdint>

#include "tools/assetgen/scenes_art.h"

namespace scenes {

constexpr int kBgW = 400, kBgH = 300;

// Per-pixel techniques over a colour ramp (position 0 dark .. 1 light).
void Nebula(Pixels& p, const Ramp& ramp, Col accent, double scale, uint64_t seed);
void Plasma(Pixels& p, const Ramp& ramp, double freq, double bands, uint64_t seed);
// Crystal cells: facets lit from the top left, with bright seams.
void Crystal(Pixels& p, const Ramp& ramp, double cell, double seam, uint64_t seed);
void Swirl(Pixels& p, const Ramp& ramp, double cx, double cy, int arms, double twist, uint64_t seed);
void Marble(Pixels& p, const Ramp& ramp, double freq, double turbulence, uint64_t seed);
// Curtains of light hanging over a dark sky.
void Aurora(Pixels& p, const Ramp& sky, Col light, double freq, uint64_t seed);

// Shape techniques drawn with Cairo over whatever is there.
enum class Tiling { Hex, Diamond, Triangle };
void Tiles(cairo_t* cr, Tiling kind, double size, const Ramp& ramp, Col line, uint64_t seed);
void Sunburst(cairo_t* cr, double cx, double cy, int rays, Col a, Col b, double alpha);
void BlockRain(cairo_t* cr, const Col* hues, int hueCount, int count, uint64_t seed);
void Orbs(cairo_t* cr, const Col* hues, int hueCount, int count, uint64_t seed);

void ClassicBackground(assetgen::Canvas& c, int level);
void BonusBackground(assetgen::Canvas& c, int level);
void WickoryBackground(assetgen::Canvas& c, int level);

}  // namespace scenes

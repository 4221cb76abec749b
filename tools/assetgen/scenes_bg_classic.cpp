// Classic: deep blue and teal backdrops, each level lit by one of the seven
// piece hues; the technique changes every three levels.
#include <cmath>

#include "tools/assetgen/scenes_bg.h"

namespace scenes {

namespace {

const Col kHues[7] = {Hex(0xE8303A), Hex(0xF58A1F), Hex(0xF5D92A), Hex(0x3CCB48),
                      Hex(0x2FD3E0), Hex(0x3A6BF0), Hex(0xC040E0)};

Ramp Sea() {
  return Ramp{{0.0, Hex(0x040922)}, {0.35, Hex(0x0E2C70)}, {0.7, Hex(0x14808E)}, {1.0, Hex(0x9EEAEA)}};
}

void Vignette(cairo_t* cr, double strength) {
  cairo_pattern_t* g = cairo_pattern_create_radial(kBgW / 2.0, kBgH / 2.0, 80, kBgW / 2.0, kBgH / 2.0, 260);
  cairo_pattern_add_color_stop_rgba(g, 0, 0, 0, 0.05, 0);
  cairo_pattern_add_color_stop_rgba(g, 1, 0, 0, 0.05, strength);
  cairo_set_source(cr, g);
  cairo_paint(cr);
  cairo_pattern_destroy(g);
}

void Hills(cairo_t* cr, uint64_t seed, double base, Col c) {
  Noise n(seed);
  cairo_move_to(cr, 0, kBgH);
  for (int x = 0; x <= kBgW; x += 4) cairo_line_to(cr, x, base - 40 * n.Fbm(x / 70.0, 0.5, 3));
  cairo_line_to(cr, kBgW, kBgH);
  cairo_close_path(cr);
  Source(cr, c);
  cairo_fill(cr);
}

}  // namespace

void ClassicBackground(assetgen::Canvas& canvas, int level) {
  cairo_t* cr = canvas.cr();
  Col hue = kHues[level % 7];
  uint64_t seed = 1000 + level * 37;
  assetgen::Random rnd(seed);
  Pixels px(kBgW, kBgH);
  switch (level / 3) {
    case 0: {  // nebula
      Nebula(px, Sea(), Scale(hue, 0.9), 2.4 + 0.4 * level, seed);
      Paint(px, canvas);
      Stars(cr, rnd, 160, kBgW, kBgH, 0.9);
      break;
    }
    case 1: {  // plasma
      Ramp r{{0.0, Hex(0x050C2C)}, {0.45, Hex(0x10407E)}, {0.75, Lerp(Hex(0x17A0A8), hue, 0.35)},
             {1.0, Lerp(hue, Hex(0xFFFFFF), 0.3)}};
      Plasma(px, r, 1.2 + 0.3 * (level - 3), 1.2, seed);
      Paint(px, canvas);
      Vignette(cr, 0.5);
      break;
    }
    case 2: {  // crystal cells
      Ramp r{{0.0, Hex(0x061236)}, {0.5, Hex(0x12508E)}, {0.8, Hex(0x1C9CA6)}, {1.0, Lerp(Hex(0xC0FFFF), hue, 0.45)}};
      Crystal(px, r, 34 + 8 * (level - 6), 0.06, seed);
      Paint(px, canvas);
      Vignette(cr, 0.45);
      break;
    }
    case 3: {  // tiles
      Ramp r{{0.0, Hex(0x061440)}, {0.6, Hex(0x13608E)}, {1.0, Lerp(Hex(0x20B0B0), hue, 0.3)}};
      Tiling kinds[3] = {Tiling::Hex, Tiling::Diamond, Tiling::Triangle};
      Tiles(cr, kinds[level - 9], 22 + 4 * (level - 9), r, Lerp(hue, Hex(0xFFFFFF), 0.3), seed);
      Glow(cr, rnd.Range(260, 380), rnd.Range(40, 260), 160, hue, 0.35);
      Vignette(cr, 0.6);
      break;
    }
    case 4: {  // aurora over hills
      Ramp sky{{0.0, Hex(0x020618)}, {0.6, Hex(0x0A2458)}, {1.0, Hex(0x0F4E66)}};
      Aurora(px, sky, Lerp(hue, Hex(0x30E0C0), 0.3), 5 + 2 * (level - 12), seed);
      Paint(px, canvas);
      Stars(cr, rnd, 90, kBgW, kBgH * 0.6, 0.8);
      Hills(cr, seed, 250, Hex(0x06142E));
      Hills(cr, seed + 1, 285, Hex(0x020A1A));
      break;
    }
    case 5: {  // block rain
      cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, kBgH);
      cairo_pattern_add_color_stop_rgb(g, 0, 0.02, 0.05, 0.16);
      cairo_pattern_add_color_stop_rgb(g, 1, 0.04, 0.25, 0.32);
      cairo_set_source(cr, g);
      cairo_paint(cr);
      cairo_pattern_destroy(g);
      Glow(cr, 200, 150, 260, hue, 0.3);
      Col hues[9];
      for (int i = 0; i < 7; ++i) hues[i] = kHues[i];
      hues[7] = hues[8] = hue;  // the level's own hue rains more often
      BlockRain(cr, hues, 9, 110 + 10 * (level - 15), seed);
      break;
    }
    default: {  // swirl with rays
      Ramp r{{0.0, Hex(0x030A26)}, {0.5, Hex(0x0D3A7A)}, {0.85, Hex(0x1B9AA6)}, {1.0, Lerp(hue, Hex(0xFFFFFF), 0.5)}};
      double cx = level == 19 ? 110 : 320, cy = level == 20 ? 240 : 70;
      Swirl(px, r, cx, cy, 3 + (level - 18), 3.5, seed);
      Paint(px, canvas);
      Sunburst(cr, cx, cy, 24, hue, Hex(0x2FD3E0), 0.12);
      Stars(cr, rnd, 70, kBgW, kBgH, 0.7);
      break;
    }
  }
}

}  // namespace scenes

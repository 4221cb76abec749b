// Bonus: jewel tones set in purple and gold; a different gem lights each
// level and the technique changes every three levels.
#include <cmath>

#include "tools/assetgen/scenes_bg.h"

namespace scenes {

namespace {

const Col kJewels[7] = {Hex(0x10C070), Hex(0xE0104A), Hex(0x2A5CF5), Hex(0xA040F0),
                        Hex(0xF0A020), Hex(0x30E0D0), Hex(0xF060B0)};
const Col kGold = Hex(0xE8B440);

Ramp Royal(Col jewel) {
  return Ramp{{0.0, Hex(0x0E0318)}, {0.35, Hex(0x36104F)}, {0.65, Lerp(Hex(0x7A2E9A), jewel, 0.3)},
              {0.88, kGold}, {1.0, Hex(0xFFF1B8)}};
}

void GoldDust(cairo_t* cr, assetgen::Random& rnd, int count) {
  for (int i = 0; i < count; ++i) {
    double x = rnd.Range(0, kBgW), y = rnd.Range(0, kBgH), r = 0.4 + 1.2 * std::pow(rnd.Uniform(), 3);
    Source(cr, Lerp(kGold, Hex(0xFFF6D0), rnd.Uniform()), rnd.Range(0.3, 0.9));
    cairo_arc(cr, x, y, r, 0, 2 * M_PI);
    cairo_fill(cr);
    if (r > 1.2) Glow(cr, x, y, r * 5, kGold, 0.3);
  }
}

void Shade(cairo_t* cr, double top, double bottom) {
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, kBgH);
  cairo_pattern_add_color_stop_rgba(g, 0, 0.04, 0, 0.06, top);
  cairo_pattern_add_color_stop_rgba(g, 1, 0.04, 0, 0.06, bottom);
  cairo_set_source(cr, g);
  cairo_paint(cr);
  cairo_pattern_destroy(g);
}

}  // namespace

void BonusBackground(assetgen::Canvas& canvas, int level) {
  cairo_t* cr = canvas.cr();
  Col jewel = kJewels[level % 7];
  uint64_t seed = 2000 + level * 41;
  assetgen::Random rnd(seed);
  Pixels px(kBgW, kBgH);
  switch (level / 3) {
    case 0: {  // cut gems
      Ramp r{{0.0, Scale(jewel, 0.12)}, {0.45, Scale(jewel, 0.5)}, {0.8, Lerp(jewel, Hex(0xFFFFFF), 0.2)},
             {1.0, Lerp(kGold, Hex(0xFFFFFF), 0.3)}};
      Crystal(px, r, 46 + 10 * level, 0.035, seed);
      Paint(px, canvas);
      Shade(cr, 0.1, 0.5);
      GoldDust(cr, rnd, 60);
      break;
    }
    case 1: {  // vortex
      Swirl(px, Royal(jewel), level == 4 ? 90 : 300, level == 5 ? 230 : 80, 4 + (level - 3), -4.0, seed);
      Paint(px, canvas);
      GoldDust(cr, rnd, 80);
      break;
    }
    case 2: {  // marble
      Ramp r{{0.0, Hex(0x12031C)}, {0.4, Hex(0x3C0F56)}, {0.7, Lerp(Hex(0x6A2590), jewel, 0.35)}, {1.0, kGold}};
      Marble(px, r, 7 + 3 * (level - 6), 6 + 2 * (level - 6), seed);
      Paint(px, canvas);
      Shade(cr, 0.0, 0.35);
      break;
    }
    case 3: {  // jewels floating in a velvet dark
      cairo_pattern_t* g = cairo_pattern_create_radial(200, 130, 20, 200, 150, 320);
      Col mid = Lerp(Hex(0x40125E), jewel, 0.25);
      cairo_pattern_add_color_stop_rgb(g, 0, mid.r, mid.g, mid.b);
      cairo_pattern_add_color_stop_rgb(g, 1, 0.05, 0.01, 0.08);
      cairo_set_source(cr, g);
      cairo_paint(cr);
      cairo_pattern_destroy(g);
      Col hues[5] = {jewel, jewel, kGold, kJewels[(level + 2) % 7], Hex(0x8A3AC0)};
      Orbs(cr, hues, 5, 70 + 15 * (level - 9), seed);
      GoldDust(cr, rnd, 50);
      break;
    }
    case 4: {  // nebula with gold dust
      Nebula(px, Royal(jewel), Scale(jewel, 0.8), 2.7 + 0.5 * (level - 12), seed);
      Paint(px, canvas);
      Stars(cr, rnd, 80, kBgW, kBgH, 0.7);
      GoldDust(cr, rnd, 90);
      break;
    }
    case 5: {  // lattice in gold
      Ramp r{{0.0, Hex(0x14041F)}, {0.6, Hex(0x4A1766)}, {1.0, Lerp(Hex(0x8A3AB0), jewel, 0.4)}};
      Tiling kinds[3] = {Tiling::Diamond, Tiling::Hex, Tiling::Triangle};
      Tiles(cr, kinds[level - 15], 30 + 3 * (level - 15), r, kGold, seed);
      Glow(cr, rnd.Range(40, 360), rnd.Range(40, 260), 170, jewel, 0.4);
      Shade(cr, 0.15, 0.45);
      break;
    }
    default: {  // plasma behind a burst of gold rays
      Ramp r{{0.0, Hex(0x100320)}, {0.55, Hex(0x4A1468)}, {0.9, Lerp(Hex(0x7A2E9A), jewel, 0.5)},
             {1.0, Scale(kGold, 0.85)}};
      Plasma(px, r, 1.0 + 0.35 * (level - 18), 1.6, seed);
      Paint(px, canvas);
      double cx = level == 19 ? 60 : 330, cy = level == 20 ? 250 : 60;
      Sunburst(cr, cx, cy, 20 + 4 * (level - 18), kGold, jewel, 0.16);
      Glow(cr, cx, cy, 90, Hex(0xFFE9A0), 0.45);
      GoldDust(cr, rnd, 40);
      break;
    }
  }
}

}  // namespace scenes

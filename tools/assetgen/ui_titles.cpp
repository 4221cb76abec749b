// Variant titles and play-type badges: shown on the play screen and, shrunk,
// on the menu's score and help pages.
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

void Star(cairo_t* cr, double cx, double cy, double r, Col c) {
  cairo_new_path(cr);
  for (int i = 0; i < 8; ++i) {
    double a = i * M_PI / 4 - M_PI / 2, rr = (i % 2) ? r * 0.3 : r;
    cairo_line_to(cr, cx + rr * std::cos(a), cy + rr * std::sin(a));
  }
  cairo_close_path(cr);
  Set(cr, c);
  cairo_fill(cr);
}

}  // namespace

// 275 x 116: a capsule in the variant's colours with the name across it.
ASSETGEN_GENERATOR(ui_title) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  const std::string v = Arg(entry, 0);
  double w = entry.width;
  Ramp body, letters = pal::kGold;
  std::string name, ribbon;
  if (v == "classic") {
    body = {{90, 200, 230}, {20, 110, 160}, {8, 40, 80}};
    name = "CLASSIC";
    ribbon = "VORREL";
  } else if (v == "bonus") {
    body = {{190, 120, 250}, {100, 36, 170}, {40, 10, 80}};
    name = "BONUS";
    ribbon = "VORREL";
  } else if (v == "wickory") {
    body = {{170, 160, 150}, {100, 92, 84}, {40, 36, 32}};
    letters = pal::kEmber;
    name = "WICKORY";
    ribbon = "FUSE & FIRE";
  } else {
    Fail(entry, "title variant must be classic, bonus or wickory");
  }
  // The play-type badge is drawn over this title's lower middle (rows 90 and
  // down), so the title keeps to the upper 88 rows: a tab with the ribbon
  // word on top, the capsule with the name below it.
  RimmedPlate(cr, w / 2 - 62, 2, 124, 28, 11, {{60, 70, 110}, {24, 28, 56}, {10, 12, 30}}, 2);
  Lettering(cr, ribbon, w / 2 - 52, 5, 104, 20, 40, pal::kSilver, 1.5, 0.12);
  RimmedPlate(cr, 6, 24, w - 12, 62, 24, body, 2.5);
  Col glint = v == "classic" ? Col{210, 250, 255} : v == "bonus" ? Col{255, 240, 170} : Col{255, 200, 90};
  Star(cr, w - 36, 26, 7, glint);
  Star(cr, w - 24, 32, 4, glint);
  Star(cr, 28, 80, 5, glint);
  Lettering(cr, name, 20, 22, w - 40, 66, 90, letters, 3.2, 0.16);
  Save(ctx, entry, c);
}

// 125 x 40: "TYPE" and a medallion with the letter.
ASSETGEN_GENERATOR(ui_type_badge) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  const std::string t = Arg(entry, 0);
  double w = entry.width, h = entry.height;
  RimmedPlate(cr, 2, 4, w - 20, h - 8, 12, {{70, 94, 170}, {26, 38, 96}, {10, 14, 44}}, 1.5);
  Lettering(cr, "TYPE", 12, 9, 66, h - 18, 40, pal::kSilver, 1.6, 0.12);
  double cx = w - 22, cy = h / 2, r = h / 2 - 1;
  cairo_arc(cr, cx, cy, r, 0, 2 * M_PI);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  cairo_arc(cr, cx, cy, r - 1, 0, 2 * M_PI);
  cairo_pattern_t* g = RampPattern(pal::kGold, cy - r, cy + r);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  cairo_arc(cr, cx, cy, r - 3.5, 0, 2 * M_PI);
  g = RampPattern(pal::kTeal, cy - r, cy + r);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  Lettering(cr, t, cx - 11, cy - 12, 22, 24, 40, pal::kGold, 1.8);
  Save(ctx, entry, c);
}

}  // namespace assetgen::ui

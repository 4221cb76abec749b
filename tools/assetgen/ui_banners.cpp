// Award banners, counter labels and the statistics heading of the play screen.
#include <algorithm>
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

// Manifest words cannot hold spaces; an underscore stands for one.
std::string Words(const std::string& s) {
  std::string out = s;
  for (char& ch : out)
    if (ch == '_') ch = ' ';
  return out;
}

// A small glossy block, the counting mark of cleared rows.
void Cell(cairo_t* cr, double x, double y, double s, const Ramp& r) {
  cairo_rectangle(cr, x, y, s, s);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  cairo_rectangle(cr, x + 1, y + 1, s - 2, s - 2);
  cairo_pattern_t* p = RampPattern(r, y + 1, y + s - 1);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  cairo_rectangle(cr, x + 1, y + 1, s - 2, 1);
  Set(cr, {255, 255, 255}, 0.6);
  cairo_fill(cr);
}

// A four-pointed twinkle.
void Twinkle(cairo_t* cr, double cx, double cy, double r, Col c) {
  cairo_new_path(cr);
  for (int i = 0; i < 8; ++i) {
    double a = i * M_PI / 4 - M_PI / 2, rr = (i % 2) ? r * 0.28 : r;
    cairo_line_to(cr, cx + rr * std::cos(a), cy + rr * std::sin(a));
  }
  cairo_close_path(cr);
  Set(cr, c);
  cairo_fill(cr);
}

const Ramp kBannerBodies[6] = {
    {{60, 84, 160}, {22, 32, 84}, {8, 12, 40}},    // single
    {{40, 140, 160}, {10, 70, 96}, {4, 30, 48}},   // double
    {{120, 60, 170}, {56, 20, 104}, {24, 6, 52}},  // triple
    {{170, 50, 40}, {100, 16, 16}, {44, 6, 8}},    // vorrel
    {{150, 70, 200}, {70, 20, 130}, {30, 6, 60}},  // megavorrel
    {{110, 70, 40}, {60, 34, 20}, {26, 14, 8}},    // kaboom and fault: scorched
};

}  // namespace

// Banners are 220 x 40. The score is stamped later over the lower right
// (x >= 216 - 16 * digits, y >= 20), so the word sits along the top and the
// lower left carries the badge of the award.
ASSETGEN_GENERATOR(ui_banner) {
  const std::string style = Arg(entry, 0);
  const int count = std::stoi(Arg(entry, 1));
  const std::string word = Words(Arg(entry, 2));
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  double w = entry.width, h = entry.height;
  if (style == "line") {
    if (count < 1 || count > 5) Fail(entry, "a line banner counts 1 to 5 rows");
    RimmedPlate(cr, 0, 0, w, h, 9, kBannerBodies[count - 1]);
    Lettering(cr, word, 8, 1, w - 16, 25, 40, pal::kGold, 2.0, 0.22);
    for (int i = 0; i < count; ++i) Cell(cr, 12 + 12 * i, 25, 10, count == 5 ? pal::kEmber : pal::kTeal);
    if (count == 5) {
      Twinkle(cr, 84, 30, 6, {255, 250, 200});
      Twinkle(cr, 100, 27, 4, {255, 220, 120});
    }
  } else if (style == "kaboom") {
    RimmedPlate(cr, 0, 0, w, h, 9, kBannerBodies[5]);
    Lettering(cr, word, 8, 1, w - 16, 25, 40, pal::kEmber, 2.0, 0.22);
    Twinkle(cr, 22, 31, 7, {255, 236, 140});
    Twinkle(cr, 40, 28, 5, {255, 160, 60});
    Twinkle(cr, 56, 32, 4, {255, 236, 140});
  } else if (style == "fault") {
    RimmedPlate(cr, 0, 0, w, h, 9, kBannerBodies[5]);
    Lettering(cr, word, 20, 1, w - 40, 25, 40, pal::kRed, 2.0, 0.22);
    Lettering(cr, Words(Arg(entry, 3)), 40, 26, w - 80, 11, 12, pal::kSilver, 1.0);
  } else {
    Fail(entry, "banner style must be line, kaboom or fault");
  }
  Save(ctx, entry, c);
}

// The labels over the play-screen counters: slanted gold words on a short rule.
ASSETGEN_GENERATOR(ui_counter_label) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  double w = entry.width, h = entry.height;
  double barH = 6, barY = h - barH - 2;
  // One letter height for every label, whatever its box; the word sits on the rule.
  double textH = std::min(barY - 1, 28.0);
  Lettering(cr, Words(Arg(entry, 0)), 1, barY - textH, w - 2, textH, 60, pal::kGold, 2.2, 0.18);
  RoundRect(cr, 3, barY, w - 6, barH, barH / 2);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, 4, barY + 1, w - 8, barH - 2, (barH - 2) / 2);
  cairo_pattern_t* p = cairo_pattern_create_linear(4, 0, w - 4, 0);
  cairo_pattern_add_color_stop_rgb(p, 0, 0.98, 0.77, 0.16);
  cairo_pattern_add_color_stop_rgb(p, 0.7, 0.55, 0.30, 0.03);
  cairo_pattern_add_color_stop_rgb(p, 1, 0.25, 0.12, 0.02);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  Save(ctx, entry, c);
}

// The heading over the piece statistics.
ASSETGEN_GENERATOR(ui_small_heading) {
  Canvas c(entry.width, entry.height);
  Lettering(c.cr(), Words(Arg(entry, 0)), 1, 1, entry.width - 2, entry.height - 2, 40, pal::kGold, 1.6, 0.15);
  Save(ctx, entry, c);
}

}  // namespace assetgen::ui

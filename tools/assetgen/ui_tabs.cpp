// Page tabs, page headers and the two pointers of the menu.
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

const Ramp kTabPlain{{76, 98, 150}, {34, 46, 96}, {14, 20, 52}};

// Strokes the current path twice: a dark edge, then the ramp on top.
void InkedStroke(cairo_t* cr, double width, const Ramp& r, double y0, double y1) {
  cairo_path_t* p = cairo_copy_path(cr);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, width + 3);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  cairo_append_path(cr, p);
  cairo_set_line_width(cr, width);
  cairo_pattern_t* g = RampPattern(r, y0, y1);
  cairo_set_source(cr, g);
  cairo_stroke(cr);
  cairo_pattern_destroy(g);
  cairo_path_destroy(p);
}

void InkedFill(cairo_t* cr, const Ramp& r, double y0, double y1) {
  cairo_path_t* p = cairo_copy_path(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 3);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  cairo_append_path(cr, p);
  cairo_pattern_t* g = RampPattern(r, y0, y1);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  cairo_path_destroy(p);
}

void SlidersIcon(cairo_t* cr, const Ramp& r) {
  const double ys[3] = {13, 20, 27}, knobs[3] = {16, 24, 19};
  for (int i = 0; i < 3; ++i) {
    cairo_move_to(cr, 11, ys[i]);
    cairo_line_to(cr, 29, ys[i]);
    InkedStroke(cr, 2, r, 10, 30);
  }
  for (int i = 0; i < 3; ++i) {
    cairo_rectangle(cr, knobs[i] - 2.5, ys[i] - 3, 5, 6);
    InkedFill(cr, r, ys[i] - 3, ys[i] + 3);
  }
}

void TrophyIcon(cairo_t* cr, const Ramp& r) {
  cairo_arc(cr, 13, 15, 3.5, M_PI / 2, 3 * M_PI / 2);
  cairo_new_sub_path(cr);
  cairo_arc(cr, 27, 15, 3.5, -M_PI / 2, M_PI / 2);
  InkedStroke(cr, 2, r, 10, 30);
  cairo_move_to(cr, 13, 10);
  cairo_line_to(cr, 27, 10);
  cairo_curve_to(cr, 27, 19, 24, 23, 21.5, 23);
  cairo_line_to(cr, 21.5, 26);
  cairo_line_to(cr, 25, 26);
  cairo_line_to(cr, 25, 30);
  cairo_line_to(cr, 15, 30);
  cairo_line_to(cr, 15, 26);
  cairo_line_to(cr, 18.5, 26);
  cairo_line_to(cr, 18.5, 23);
  cairo_curve_to(cr, 16, 23, 13, 19, 13, 10);
  cairo_close_path(cr);
  InkedFill(cr, r, 10, 30);
}

void PowerIcon(cairo_t* cr, const Ramp& r) {
  cairo_arc(cr, 20, 21, 8, -M_PI / 2 + 0.75, 3 * M_PI / 2 - 0.75);
  InkedStroke(cr, 3, r, 12, 30);
  cairo_move_to(cr, 20, 10);
  cairo_line_to(cr, 20, 20);
  InkedStroke(cr, 3, r, 10, 30);
}

}  // namespace

// Tabs: 40 x 40 glossy squares with an icon; the lit one glows.
ASSETGEN_GENERATOR(ui_tab) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  const std::string icon = Arg(entry, 0);
  bool lit = Lit(entry, 1);
  if (lit) {
    Glow(cr, 3, 3, 34, 34, 9, {255, 230, 120}, 2.5);
    RimmedPlate(cr, 3, 3, 34, 34, 9, icon == "exit" ? pal::kRed : pal::kTeal);
  } else {
    Plate(cr, 3, 3, 34, 34, 9, kTabPlain, 1.5);
  }
  const Ramp& ink = lit ? Ramp{{255, 255, 235}, {255, 222, 100}, {220, 140, 20}} : pal::kGold;
  if (icon == "options") SlidersIcon(cr, ink);
  else if (icon == "scores") TrophyIcon(cr, ink);
  else if (icon == "help") Lettering(cr, "?", 11, 9, 18, 22, 40, ink, 1.6);
  else if (icon == "exit") PowerIcon(cr, icon == "exit" && !lit ? pal::kRed : ink);
  else Fail(entry, "tab icon must be options, scores, help or exit");
  Save(ctx, entry, c);
}

// Page headers are copied opaque, so every pixel is painted: a navy plate
// with the title on top; the variant badge covers the lower part.
ASSETGEN_GENERATOR(ui_header) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  double w = entry.width, h = entry.height;
  cairo_rectangle(cr, 0, 0, w, h);
  Set(cr, {24, 30, 60});
  cairo_fill(cr);
  RimmedPlate(cr, 0, 0, w, h, 6, {{72, 96, 170}, {26, 38, 96}, {10, 14, 44}});
  // A quiet dotted sky under the badge.
  Random rnd(0x4EAD + static_cast<uint64_t>(entry.path.size()));
  for (int i = 0; i < 40; ++i) {
    double x = rnd.Range(8, w - 8), y = rnd.Range(h * 0.55, h - 7);
    Set(cr, {180, 200, 255}, rnd.Range(0.2, 0.7));
    cairo_rectangle(cr, std::floor(x), std::floor(y), 1, 1);
    cairo_fill(cr);
  }
  std::string title = Arg(entry, 0);
  for (char& ch : title)
    if (ch == '_') ch = ' ';
  Lettering(cr, title, 10, 6, w - 20, 34, 60, pal::kGold, 2.2, 0.15);
  cairo_rectangle(cr, 14, 44, w - 28, 2);
  cairo_pattern_t* p = cairo_pattern_create_linear(14, 0, w - 14, 0);
  cairo_pattern_add_color_stop_rgba(p, 0, 1, 0.8, 0.2, 0);
  cairo_pattern_add_color_stop_rgba(p, 0.5, 1, 0.85, 0.3, 1);
  cairo_pattern_add_color_stop_rgba(p, 1, 1, 0.8, 0.2, 0);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  Save(ctx, entry, c);
}

// The pointer: an arrow with its tip on the top-left pixel (the hot spot).
// Held down, it turns to ember with a small spark beside it.
ASSETGEN_GENERATOR(ui_cursor) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  bool pressed = Arg(entry, 0) == "pressed";
  cairo_move_to(cr, 1, 1);
  cairo_line_to(cr, 1, 16);
  cairo_line_to(cr, 5, 12.5);
  cairo_line_to(cr, 8, 18.5);
  cairo_line_to(cr, 11, 17);
  cairo_line_to(cr, 8.2, 11.2);
  cairo_line_to(cr, 13.5, 11);
  cairo_close_path(cr);
  cairo_path_t* path = cairo_copy_path(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
  cairo_set_line_width(cr, 2);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  cairo_append_path(cr, path);
  cairo_pattern_t* g = RampPattern(pressed ? pal::kEmber : pal::kGold, 1, 18);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  cairo_move_to(cr, 2.5, 4);
  cairo_line_to(cr, 2.5, 12);
  cairo_set_line_width(cr, 1);
  Set(cr, {255, 255, 230}, 0.8);
  cairo_stroke(cr);
  cairo_path_destroy(path);
  if (pressed) {
    for (int i = 0; i < 4; ++i) {
      double a = M_PI / 4 + i * M_PI / 2;
      cairo_move_to(cr, 15 + 2 * std::cos(a), 15 + 2 * std::sin(a));
      cairo_line_to(cr, 15 + 4.5 * std::cos(a), 15 + 4.5 * std::sin(a));
    }
    cairo_set_line_width(cr, 1.2);
    Set(cr, {255, 240, 160});
    cairo_stroke(cr);
  }
  Save(ctx, entry, c);
}

}  // namespace assetgen::ui

// The option page's small controls: sliders, their labels, switches and the
// track arrows.
#include <algorithm>
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

std::string Words(const std::string& s) {
  std::string out = s;
  for (char& ch : out)
    if (ch == '_') ch = ' ';
  return out;
}

constexpr int kSteps = 10;  // a slider has ten 25-pixel steps

}  // namespace

// The slider's frame is drawn over its filled part, so the cells stay
// empty (transparent): only the rim and the step dividers are painted.
ASSETGEN_GENERATOR(ui_slider_frame) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  double w = entry.width, h = entry.height, step = w / kSteps;
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
  RoundRect(cr, 0, 0, w, h, 5);
  RoundRect(cr, 3, 3, w - 6, h - 6, 3);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, 1, 1, w - 2, h - 2, 4);
  RoundRect(cr, 2.5, 2.5, w - 5, h - 5, 3);
  cairo_pattern_t* p = RampPattern(pal::kGold, 0, h);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
  for (int i = 1; i < kSteps; ++i) {
    double x = std::round(i * step);
    cairo_rectangle(cr, x - 1, 3, 2, h - 6);
    Set(cr, pal::kInk);
    cairo_fill(cr);
    cairo_rectangle(cr, x + 1, 3, 1, h - 6);
    Set(cr, {120, 96, 40});
    cairo_fill(cr);
  }
  Save(ctx, entry, c);
}

// The filled part of a slider, cut to the chosen step by the game: a glossy
// band from cool to hot for level and height, from clear to dark for the
// darkening of the field.
ASSETGEN_GENERATOR(ui_slider_fill) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  double w = entry.width, h = entry.height;
  const std::string kind = Arg(entry, 0);
  cairo_pattern_t* p = cairo_pattern_create_linear(0, 0, w, 0);
  if (kind == "heat") {
    cairo_pattern_add_color_stop_rgb(p, 0.0, 0.15, 0.75, 0.35);
    cairo_pattern_add_color_stop_rgb(p, 0.45, 0.95, 0.85, 0.15);
    cairo_pattern_add_color_stop_rgb(p, 0.75, 0.98, 0.50, 0.08);
    cairo_pattern_add_color_stop_rgb(p, 1.0, 0.85, 0.10, 0.08);
  } else if (kind == "shade") {
    cairo_pattern_add_color_stop_rgb(p, 0.0, 0.70, 0.85, 1.00);
    cairo_pattern_add_color_stop_rgb(p, 0.5, 0.25, 0.40, 0.80);
    cairo_pattern_add_color_stop_rgb(p, 1.0, 0.10, 0.10, 0.30);
  } else {
    Fail(entry, "slider fill must be heat or shade");
  }
  cairo_rectangle(cr, 0, 0, w, h);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  // Gloss on the upper half, a shade on the lower edge.
  cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, h);
  cairo_pattern_add_color_stop_rgba(g, 0.0, 1, 1, 1, 0.55);
  cairo_pattern_add_color_stop_rgba(g, 0.45, 1, 1, 1, 0.12);
  cairo_pattern_add_color_stop_rgba(g, 0.5, 0, 0, 0, 0.0);
  cairo_pattern_add_color_stop_rgba(g, 1.0, 0, 0, 0, 0.35);
  cairo_rectangle(cr, 0, 0, w, h);
  cairo_set_source(cr, g);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  Save(ctx, entry, c);
}

// The step under the pointer: a bright ring inside one 25 x 20 cell.
ASSETGEN_GENERATOR(ui_slider_highlight) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  RoundRect(cr, 3.5, 3.5, entry.width - 7, entry.height - 7, 2.5);
  cairo_set_line_width(cr, 3);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  RoundRect(cr, 3.5, 3.5, entry.width - 7, entry.height - 7, 2.5);
  cairo_set_line_width(cr, 1.6);
  Set(cr, {255, 250, 210});
  cairo_stroke(cr);
  Save(ctx, entry, c);
}

// A slider's label. Its lower rows may lie over the slider's top, so the
// lettering keeps to the rows given.
ASSETGEN_GENERATOR(ui_menu_label) {
  Canvas c(entry.width, entry.height);
  int rows = entry.args.size() > 1 ? std::stoi(Arg(entry, 1)) : entry.height;
  Lettering(c.cr(), Words(Arg(entry, 0)), 0, 0, entry.width, std::min(rows, entry.height), 60, pal::kGold, 1.6,
            0.12);
  Save(ctx, entry, c);
}

// A switch: the box on the left (its click spot), the name beside it.
ASSETGEN_GENERATOR(ui_switch_label) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  RoundRect(cr, 1, 0, 16, 15, 3);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, 2, 1, 14, 13, 2.5);
  cairo_pattern_t* p = RampPattern(pal::kGold, 1, 14);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  RoundRect(cr, 3.5, 2.5, 11, 10, 1.5);
  cairo_pattern_t* in = cairo_pattern_create_linear(0, 2.5, 0, 12.5);
  cairo_pattern_add_color_stop_rgb(in, 0, 0.03, 0.05, 0.13);
  cairo_pattern_add_color_stop_rgb(in, 1, 0.15, 0.2, 0.4);
  cairo_set_source(cr, in);
  cairo_fill(cr);
  cairo_pattern_destroy(in);
  // The words keep one height; a short name simply ends sooner.
  std::string text = Words(Arg(entry, 0));
  SetFont(cr, "DejaVu Sans", true, 12 / 0.729);  // 12-pixel capitals
  cairo_text_extents_t te;
  cairo_text_extents(cr, text.c_str(), &te);
  // The track chooser's left arrow starts 83 pixels in on the music row.
  double need = te.width + 0.12 * 12 + 3, room = std::min(entry.width - 23.0, 58.0);
  Lettering(cr, text, 21, 0, std::min(room, need), 15, 60, pal::kGold, 1.4, 0.12, std::min(1.0, room / need));
  Save(ctx, entry, c);
}

// The tick over a switch's box; it reaches a little past the box's corner.
ASSETGEN_GENERATOR(ui_check) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  cairo_move_to(cr, 2.5, 7.5);
  cairo_line_to(cr, 6, 11.5);
  cairo_line_to(cr, 15.5, 2);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_path_t* path = cairo_copy_path(cr);
  InkedRampStroke(cr, path, 4.6, 2.4, pal::kGreen, 2, 12);
  cairo_path_destroy(path);
  Save(ctx, entry, c);
}

// Hovering a switch lights its box's rim.
ASSETGEN_GENERATOR(ui_box_highlight) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  RoundRect(cr, 1.5, 0.5, 15, 14, 3);
  cairo_set_line_width(cr, 1.6);
  Set(cr, {255, 252, 220});
  cairo_stroke(cr);
  RoundRect(cr, 3, 2, 12, 11, 2);
  cairo_set_line_width(cr, 1);
  Set(cr, {120, 230, 255});
  cairo_stroke(cr);
  Save(ctx, entry, c);
}

// The track chooser's arrows; lit while they can act under the pointer.
ASSETGEN_GENERATOR(ui_arrow) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  bool left = Arg(entry, 0) == "left";
  bool lit = Lit(entry, 1);
  double w = entry.width, h = entry.height;
  double tip = left ? 2 : w - 2, back = left ? w - 3 : 3;
  cairo_move_to(cr, tip, h / 2);
  cairo_line_to(cr, back, 2);
  cairo_line_to(cr, back, h - 2);
  cairo_close_path(cr);
  cairo_path_t* path = cairo_copy_path(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 2.4);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  cairo_append_path(cr, path);
  cairo_pattern_t* p = RampPattern(lit ? Ramp{{255, 255, 240}, {255, 236, 140}, {240, 170, 40}} : pal::kGold, 2, h - 2);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  cairo_path_destroy(path);
  Save(ctx, entry, c);
}

}  // namespace assetgen::ui

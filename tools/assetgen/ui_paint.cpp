#include "tools/assetgen/ui_paint.h"

#include <algorithm>
#include <cmath>

namespace assetgen::ui {

void Set(cairo_t* cr, Col c, double alpha) { Rgb(cr, int(c.r + 0.5), int(c.g + 0.5), int(c.b + 0.5), alpha); }

cairo_pattern_t* RampPattern(const Ramp& r, double y0, double y1) {
  cairo_pattern_t* p = cairo_pattern_create_linear(0, y0, 0, y1);
  cairo_pattern_add_color_stop_rgb(p, 0.0, r.top.r / 255, r.top.g / 255, r.top.b / 255);
  cairo_pattern_add_color_stop_rgb(p, 0.5, r.mid.r / 255, r.mid.g / 255, r.mid.b / 255);
  cairo_pattern_add_color_stop_rgb(p, 1.0, r.bottom.r / 255, r.bottom.g / 255, r.bottom.b / 255);
  return p;
}

void InkedRampStroke(cairo_t* cr, cairo_path_t* path, double inkWidth, double width, const Ramp& r, double y0,
                     double y1) {
  cairo_set_line_width(cr, inkWidth);
  Set(cr, pal::kInk);
  cairo_stroke(cr);
  cairo_append_path(cr, path);
  cairo_set_line_width(cr, width);
  cairo_pattern_t* p = RampPattern(r, y0, y1);
  cairo_set_source(cr, p);
  cairo_stroke(cr);
  cairo_pattern_destroy(p);
}

void RoundRect(cairo_t* cr, double x, double y, double w, double h, double radius) {
  double r = std::min({radius, w / 2, h / 2});
  cairo_new_sub_path(cr);
  cairo_arc(cr, x + w - r, y + r, r, -M_PI / 2, 0);
  cairo_arc(cr, x + w - r, y + h - r, r, 0, M_PI / 2);
  cairo_arc(cr, x + r, y + h - r, r, M_PI / 2, M_PI);
  cairo_arc(cr, x + r, y + r, r, M_PI, 3 * M_PI / 2);
  cairo_close_path(cr);
}

namespace {

void RawTextPath(cairo_t* cr, const std::string& text, double size, double slant, double squeeze,
                 const char* family, double ox, double oy) {
  SetFont(cr, family, true, size);
  cairo_save(cr);
  cairo_translate(cr, ox, oy);
  cairo_matrix_t m;
  cairo_matrix_init(&m, squeeze, 0, -slant, 1, 0, 0);
  cairo_transform(cr, &m);
  cairo_move_to(cr, 0, 0);
  cairo_text_path(cr, text.c_str());
  cairo_restore(cr);
}

}  // namespace

double TextPath(cairo_t* cr, const std::string& text, double x, double y, double w, double h, double size,
                double slant, double squeeze, const char* family) {
  // Measure at the requested size, then shrink to fit and centre on the ink.
  cairo_new_path(cr);
  RawTextPath(cr, text, size, slant, squeeze, family, 0, 0);
  double x0, y0, x1, y1;
  cairo_path_extents(cr, &x0, &y0, &x1, &y1);
  cairo_new_path(cr);
  double ew = std::max(1.0, x1 - x0), eh = std::max(1.0, y1 - y0);
  double k = std::min({1.0, w / ew, h / eh});
  double s = size * k;
  double ox = x + (w - ew * k) / 2 - x0 * k;
  double oy = y + (h - eh * k) / 2 - y0 * k;
  RawTextPath(cr, text, s, slant, squeeze, family, ox, oy);
  return s;
}

void Lettering(cairo_t* cr, const std::string& text, double x, double y, double w, double h, double size,
               const Ramp& fill, double outline, double slant, double squeeze) {
  // Leave room for the outline inside the box.
  TextPath(cr, text, x + outline, y + outline, w - 2 * outline, h - 2 * outline, size, slant, squeeze);
  cairo_path_t* path = cairo_copy_path(cr);
  double x0, y0, x1, y1;
  cairo_path_extents(cr, &x0, &y0, &x1, &y1);

  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 2 * outline);
  Set(cr, pal::kInk);
  cairo_stroke_preserve(cr);

  cairo_pattern_t* p = RampPattern(fill, y0, y1);
  cairo_set_source(cr, p);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(p);

  // Gloss: a light band over the upper part of the letters only.
  cairo_save(cr);
  cairo_clip(cr);
  cairo_pattern_t* g = cairo_pattern_create_linear(0, y0, 0, y0 + (y1 - y0) * 0.5);
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 1, 1, 0.55);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 1, 1, 0.0);
  cairo_set_source(cr, g);
  cairo_rectangle(cr, x0 - 2, y0 - 2, x1 - x0 + 4, (y1 - y0) * 0.5 + 2);
  cairo_fill(cr);
  cairo_pattern_destroy(g);
  cairo_restore(cr);

  cairo_new_path(cr);
  cairo_append_path(cr, path);
  cairo_set_line_width(cr, std::max(0.6, outline * 0.35));
  Set(cr, Scale(fill.bottom, 0.7), 0.8);
  cairo_stroke(cr);
  cairo_path_destroy(path);
}

void Plate(cairo_t* cr, double x, double y, double w, double h, double radius, const Ramp& body, double rim,
           Col rimCol) {
  RoundRect(cr, x, y, w, h, radius);
  Set(cr, rimCol);
  cairo_fill(cr);

  double ix = x + rim, iy = y + rim, iw = w - 2 * rim, ih = h - 2 * rim, ir = std::max(0.0, radius - rim);
  RoundRect(cr, ix, iy, iw, ih, ir);
  cairo_pattern_t* p = RampPattern(body, iy, iy + ih);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);

  // Bevel: a light line along the top edge, a dark one along the bottom.
  cairo_save(cr);
  RoundRect(cr, ix, iy, iw, ih, ir);
  cairo_clip(cr);
  cairo_set_line_width(cr, 1.2);
  RoundRect(cr, ix + 0.6, iy + 0.6, iw - 1.2, ih - 1.2, std::max(0.0, ir - 0.6));
  cairo_pattern_t* b = cairo_pattern_create_linear(0, iy, 0, iy + ih);
  cairo_pattern_add_color_stop_rgba(b, 0, 1, 1, 1, 0.7);
  cairo_pattern_add_color_stop_rgba(b, 0.5, 1, 1, 1, 0.0);
  cairo_pattern_add_color_stop_rgba(b, 1, 0, 0, 0, 0.45);
  cairo_set_source(cr, b);
  cairo_stroke(cr);
  cairo_pattern_destroy(b);

  // Shine: a rounded highlight over the upper half.
  double sh = ih * 0.48;
  RoundRect(cr, ix + 2, iy + 1.5, iw - 4, sh, std::max(0.0, ir - 1));
  cairo_pattern_t* s = cairo_pattern_create_linear(0, iy, 0, iy + sh);
  cairo_pattern_add_color_stop_rgba(s, 0, 1, 1, 1, 0.5);
  cairo_pattern_add_color_stop_rgba(s, 1, 1, 1, 1, 0.08);
  cairo_set_source(cr, s);
  cairo_fill(cr);
  cairo_pattern_destroy(s);
  cairo_restore(cr);
}

void RimmedPlate(cairo_t* cr, double x, double y, double w, double h, double radius, const Ramp& body,
                 double rim) {
  RoundRect(cr, x, y, w, h, radius);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, x + 1, y + 1, w - 2, h - 2, std::max(0.0, radius - 1));
  cairo_pattern_t* p = RampPattern(pal::kGold, y + 1, y + h - 1);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  Plate(cr, x + 1 + rim, y + 1 + rim, w - 2 - 2 * rim, h - 2 - 2 * rim, std::max(0.0, radius - 1 - rim), body, 1.0);
}

void Glow(cairo_t* cr, double x, double y, double w, double h, double radius, Col c, double width) {
  for (int i = int(std::ceil(width)); i >= 1; --i) {
    RoundRect(cr, x - i, y - i, w + 2 * i, h + 2 * i, radius + i);
    cairo_set_line_width(cr, 1.0);
    Set(cr, c, 0.9 * (1.0 - (i - 1) / width));
    cairo_stroke(cr);
  }
}

const std::string& Arg(const Entry& e, size_t i) {
  if (i >= e.args.size()) Fail(e, "missing argument " + std::to_string(i + 1));
  return e.args[i];
}

bool Lit(const Entry& e, size_t i) {
  const std::string& a = Arg(e, i);
  if (a == "selected" || a == "lit") return true;
  if (a == "plain") return false;
  Fail(e, "state must be plain, selected or lit, not " + a);
}

void Save(const Context& ctx, const Entry& e, const Canvas& c) { WriteBmp(ctx, e, Quantise(c, Dither::None)); }

}  // namespace assetgen::ui

// The play-screen frames around the field: a glossy cabinet in the variant's
// colours with a head that holds the preview window. Drawn keyed over the
// field, so the field window itself is exactly black.
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

struct FrameStyle {
  int fieldX, fieldY;  // top-left of the 260 x 420 field window
  Ramp body;           // rails and head
  Col rimLight;        // the light edge of the rails
  Ramp trim;           // the thin line around the window and the head
  Ramp inset;          // recessed head panels
};

const FrameStyle& Style(const Entry& e, const std::string& v) {
  static const FrameStyle kClassic{21, 140, {{110, 190, 220}, {30, 100, 150}, {10, 40, 76}}, {190, 240, 255},
                                   pal::kTeal, {{8, 26, 48}, {14, 44, 74}, {24, 64, 100}}};
  static const FrameStyle kBonus{23, 144, {{170, 110, 220}, {84, 34, 140}, {34, 10, 66}}, {236, 200, 255},
                                 pal::kGold, {{20, 8, 40}, {34, 14, 64}, {54, 26, 92}}};
  static const FrameStyle kWickory{18, 127, {{160, 150, 140}, {96, 88, 80}, {44, 40, 36}}, {220, 210, 196},
                                   pal::kEmber, {{20, 16, 14}, {34, 28, 24}, {52, 44, 38}}};
  if (v == "classic") return kClassic;
  if (v == "bonus") return kBonus;
  if (v == "wickory") return kWickory;
  Fail(e, "frame variant must be classic, bonus or wickory");
}

constexpr int kFieldW = 260, kFieldH = 420;
constexpr double kPreviewX = 127, kPreviewY = 32, kPreviewW = 55, kPreviewH = 58;

void FillRamp(cairo_t* cr, const Ramp& r, double y0, double y1) {
  cairo_pattern_t* p = RampPattern(r, y0, y1);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
}

// A recessed panel: dark inside, shadowed top edge, lit bottom edge.
void Inset(cairo_t* cr, double x, double y, double w, double h, double r, const FrameStyle& s) {
  RoundRect(cr, x - 1, y - 1, w + 2, h + 2, r + 1);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, x, y, w, h, r);
  FillRamp(cr, s.inset, y, y + h);
  RoundRect(cr, x + 0.5, y + 0.5, w - 1, h - 1, r);
  cairo_pattern_t* p = cairo_pattern_create_linear(0, y, 0, y + h);
  cairo_pattern_add_color_stop_rgba(p, 0, 0, 0, 0, 0.6);
  cairo_pattern_add_color_stop_rgba(p, 0.5, 0, 0, 0, 0);
  cairo_pattern_add_color_stop_rgba(p, 1, s.rimLight.r / 255, s.rimLight.g / 255, s.rimLight.b / 255, 0.6);
  cairo_set_source(cr, p);
  cairo_set_line_width(cr, 1);
  cairo_stroke(cr);
  cairo_pattern_destroy(p);
}

void Rivet(cairo_t* cr, double x, double y, const FrameStyle& s) {
  cairo_arc(cr, x, y, 2.6, 0, 2 * M_PI);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  cairo_arc(cr, x, y, 1.8, 0, 2 * M_PI);
  cairo_pattern_t* p = cairo_pattern_create_radial(x - 0.6, y - 0.8, 0.2, x, y, 1.8);
  cairo_pattern_add_color_stop_rgb(p, 0, 1, 1, 1);
  cairo_pattern_add_color_stop_rgb(p, 1, s.trim.bottom.r / 255, s.trim.bottom.g / 255, s.trim.bottom.b / 255);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
}

// Speaker grills either side of the preview: rows of short slots.
void Grill(cairo_t* cr, double x, double y, double w, double h, const FrameStyle& s) {
  Inset(cr, x, y, w, h, 6, s);
  for (double gy = y + 7; gy + 3 < y + h - 4; gy += 7) {
    RoundRect(cr, x + 7, gy, w - 14, 3, 1.5);
    Set(cr, Scale(s.inset.top, 0.5));
    cairo_fill(cr);
    cairo_rectangle(cr, x + 8, gy + 3, w - 16, 1);
    Set(cr, s.rimLight, 0.25);
    cairo_fill(cr);
  }
}

// The mark of each variant in the middle of its grills.
void Motif(cairo_t* cr, const std::string& v, double cx, double cy, Random& rnd) {
  if (v == "classic") {
    const int cells[4][2] = {{0, 0}, {1, 0}, {2, 0}, {1, 1}};
    for (auto& c : cells) {
      double x = cx - 15 + c[0] * 10, y = cy - 10 + c[1] * 10;
      cairo_rectangle(cr, x, y, 10, 10);
      Set(cr, pal::kInk);
      cairo_fill(cr);
      cairo_rectangle(cr, x + 1, y + 1, 8, 8);
      FillRamp(cr, pal::kTeal, y + 1, y + 9);
      cairo_rectangle(cr, x + 1, y + 1, 8, 2);
      Set(cr, {255, 255, 255}, 0.5);
      cairo_fill(cr);
    }
  } else if (v == "bonus") {
    cairo_new_path(cr);
    for (int i = 0; i < 10; ++i) {
      double a = i * M_PI / 5 - M_PI / 2, r = (i % 2) ? 5.5 : 13;
      cairo_line_to(cr, cx + r * std::cos(a), cy + r * std::sin(a));
    }
    cairo_close_path(cr);
    cairo_path_t* p = cairo_copy_path(cr);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(cr, 3);
    Set(cr, pal::kInk);
    cairo_stroke(cr);
    cairo_append_path(cr, p);
    FillRamp(cr, pal::kGold, cy - 13, cy + 11);
    cairo_path_destroy(p);
  } else {
    // A fuse with a spark at its end.
    cairo_move_to(cr, cx - 22, cy + 6);
    cairo_curve_to(cr, cx - 10, cy - 10, cx + 2, cy + 14, cx + 12, cy - 2);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_path_t* p = cairo_copy_path(cr);
    cairo_set_line_width(cr, 5);
    Set(cr, pal::kInk);
    cairo_stroke(cr);
    cairo_append_path(cr, p);
    cairo_set_line_width(cr, 2.5);
    Set(cr, {230, 200, 120});
    const double dash[2] = {3, 2};
    cairo_set_dash(cr, dash, 2, 0);
    cairo_stroke(cr);
    cairo_set_dash(cr, nullptr, 0, 0);
    cairo_path_destroy(p);
    for (int i = 0; i < 8; ++i) {
      double a = rnd.Range(0, 2 * M_PI), l = rnd.Range(4, 9);
      cairo_move_to(cr, cx + 12, cy - 2);
      cairo_line_to(cr, cx + 12 + l * std::cos(a), cy - 2 + l * std::sin(a));
    }
    cairo_set_line_width(cr, 1.2);
    Set(cr, {255, 220, 100});
    cairo_stroke(cr);
    cairo_arc(cr, cx + 12, cy - 2, 2.5, 0, 2 * M_PI);
    Set(cr, {255, 255, 220});
    cairo_fill(cr);
  }
}

// Stone grain and glowing cracks for the Wickory cabinet.
void StoneGrain(cairo_t* cr, double w, double h, const FrameStyle& s, Random& rnd) {
  for (int i = 0; i < 900; ++i) {
    double x = std::floor(rnd.Range(0, w)), y = std::floor(rnd.Range(0, h));
    bool light = rnd.Uniform() < 0.5;
    Set(cr, light ? s.rimLight : Col{20, 16, 14}, rnd.Range(0.08, 0.22));
    cairo_rectangle(cr, x, y, rnd.Uniform() < 0.3 ? 2 : 1, 1);
    cairo_fill(cr);
  }
}

void Crack(cairo_t* cr, double x, double y, double dx, double dy, int steps, Random& rnd) {
  cairo_move_to(cr, x, y);
  for (int i = 0; i < steps; ++i) {
    x += dx + rnd.Range(-2.5, 2.5);
    y += dy + rnd.Range(-2.5, 2.5);
    cairo_line_to(cr, x, y);
  }
  cairo_path_t* p = cairo_copy_path(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 3);
  Set(cr, {90, 20, 4}, 0.9);
  cairo_stroke(cr);
  cairo_append_path(cr, p);
  cairo_set_line_width(cr, 1.2);
  Set(cr, {255, 150, 40});
  cairo_stroke(cr);
  cairo_path_destroy(p);
}

}  // namespace

ASSETGEN_GENERATOR(ui_frame) {
  const std::string v = Arg(entry, 0);
  const FrameStyle& s = Style(entry, v);
  const double w = entry.width, h = entry.height;
  const double fx = s.fieldX, fy = s.fieldY, fr = fx + kFieldW, fb = fy + kFieldH;
  Random rnd(v == "classic" ? 11 : v == "bonus" ? 22 : 33);
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();

  // Cabinet silhouette and body.
  RoundRect(cr, 0, 0, w, h, 16);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  RoundRect(cr, 1.5, 1.5, w - 3, h - 3, 14.5);
  FillRamp(cr, s.body, 0, h);
  if (v == "wickory") StoneGrain(cr, w, h, s, rnd);
  // Rails: lit on the left edge of each, shaded on the right, for a rounded look.
  for (double rx : {1.5, fr + 1}) {
    double rw = rx < fx ? fx - rx : w - 1.5 - rx;
    cairo_rectangle(cr, rx, fy - 8, rw, fb - fy + 8);
    cairo_pattern_t* p = cairo_pattern_create_linear(rx, 0, rx + rw, 0);
    cairo_pattern_add_color_stop_rgba(p, 0, 1, 1, 1, 0.0);
    cairo_pattern_add_color_stop_rgba(p, 0.3, 1, 1, 1, 0.28);
    cairo_pattern_add_color_stop_rgba(p, 0.55, 1, 1, 1, 0.0);
    cairo_pattern_add_color_stop_rgba(p, 1, 0, 0, 0, 0.35);
    cairo_set_source(cr, p);
    cairo_fill(cr);
    cairo_pattern_destroy(p);
  }
  // Light edge round the whole cabinet.
  RoundRect(cr, 2.5, 2.5, w - 5, h - 5, 13.5);
  cairo_pattern_t* edge = cairo_pattern_create_linear(0, 0, 0, h);
  cairo_pattern_add_color_stop_rgba(edge, 0, s.rimLight.r / 255, s.rimLight.g / 255, s.rimLight.b / 255, 0.9);
  cairo_pattern_add_color_stop_rgba(edge, 1, s.rimLight.r / 255, s.rimLight.g / 255, s.rimLight.b / 255, 0.2);
  cairo_set_source(cr, edge);
  cairo_set_line_width(cr, 1);
  cairo_stroke(cr);
  cairo_pattern_destroy(edge);
  // Trim line round the cabinet, just inside its edge.
  RoundRect(cr, 5.5, 5.5, w - 11, h - 11, 11);
  cairo_pattern_t* trim = RampPattern(s.trim, 0, h);
  cairo_set_source(cr, trim);
  cairo_set_line_width(cr, 1.4);
  cairo_stroke(cr);
  cairo_pattern_destroy(trim);

  // Head: grills, the motif, the preview window under its label.
  double headTop = 12, headBottom = fy - 14;
  double gw = kPreviewX - 20 - 14;
  Grill(cr, 14, headTop + 8, gw, headBottom - headTop - 8, s);
  Grill(cr, kPreviewX + kPreviewW + 20, headTop + 8, w - 14 - (kPreviewX + kPreviewW + 20), headBottom - headTop - 8, s);
  Motif(cr, v, 14 + gw / 2, (headTop + headBottom) / 2 + 4, rnd);
  double rgx = kPreviewX + kPreviewW + 20, rgw = w - 14 - rgx;
  Motif(cr, v, rgx + rgw / 2, (headTop + headBottom) / 2 + 4, rnd);
  RimmedPlate(cr, kPreviewX - 10, 6, kPreviewW + 20, kPreviewY + kPreviewH - 6 + 10, 9, s.body, 1.5);
  Lettering(cr, "NEXT", kPreviewX - 4, 10, kPreviewW + 8, 19, 30, pal::kGold, 1.4);
  Inset(cr, kPreviewX, kPreviewY, kPreviewW, kPreviewH, 5, s);

  if (v == "wickory") {
    Crack(cr, 8, fy + 60, 0.6, 6, 10, rnd);
    Crack(cr, w - 9, fy + 250, -0.5, 7, 9, rnd);
    Crack(cr, 60, h - 8, 6, -0.8, 6, rnd);
  }
  // Rivets down the rails and along the bottom.
  for (double y = fy + 20; y < fb - 10; y += 60) {
    Rivet(cr, fx / 2 + 0.5, y, s);
    Rivet(cr, fr + (w - fr) / 2, y, s);
  }
  for (double x = fx + 40; x < fr - 20; x += 60) Rivet(cr, x, fb + (h - fb) / 2, s);

  // The window's bevel: trim, a dark lip and a light inner edge right at the field.
  cairo_rectangle(cr, fx - 5, fy - 5, kFieldW + 10, kFieldH + 10);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  cairo_rectangle(cr, fx - 4, fy - 4, kFieldW + 8, kFieldH + 8);
  FillRamp(cr, s.trim, fy - 4, fb + 4);
  cairo_rectangle(cr, fx - 2, fy - 2, kFieldW + 4, kFieldH + 4);
  Set(cr, Scale(s.body.bottom, 0.8));
  cairo_fill(cr);
  cairo_rectangle(cr, fx - 1, fy - 1, kFieldW + 2, kFieldH + 2);
  Set(cr, Mix(s.body.mid, s.rimLight, 0.35));
  cairo_fill(cr);

  bmp::Image565 img = Quantise(c, Dither::None);
  for (int y = s.fieldY; y < s.fieldY + kFieldH; ++y)
    for (int x = s.fieldX; x < s.fieldX + kFieldW; ++x) img.pixels[size_t(y) * img.width + x] = 0;
  WriteBmp(ctx, entry, img);
}

}  // namespace assetgen::ui

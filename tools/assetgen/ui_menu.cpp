// The menu's buttons, tabs, headers and pointers. Every button comes in a
// plain and a selected (or lit) state; the state is the manifest's word.
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

const Ramp kPlainBody{{76, 98, 150}, {34, 46, 96}, {14, 20, 52}};
const Ramp kLitText{{255, 255, 230}, {255, 220, 90}, {220, 130, 20}};
// Lit bodies deep enough for gold lettering to stand out.
const Ramp kDeepEmber{{240, 140, 60}, {170, 60, 14}, {80, 20, 4}};
const Ramp kDeepGreen{{120, 220, 100}, {30, 140, 40}, {10, 60, 16}};
const Ramp kDeepAmber{{250, 180, 80}, {180, 92, 10}, {90, 40, 4}};
const Ramp kDeepRed{{240, 110, 90}, {180, 30, 24}, {80, 8, 8}};

const Ramp& VariantBody(const Entry& e, const std::string& v) {
  if (v == "classic") return pal::kTeal;
  if (v == "bonus") return pal::kPurple;
  if (v == "wickory") return kDeepEmber;
  Fail(e, "variant must be classic, bonus or wickory");
}

// Plain buttons are calm navy with pale lettering; selected ones wear their
// colour, a gold rim and a halo.
void Button(cairo_t* cr, double w, double h, double radius, const Ramp& litBody, bool lit,
            const std::string& text, double textH) {
  double m = 3;  // room for the halo
  if (lit) {
    Glow(cr, m, m, w - 2 * m, h - 2 * m, radius, {255, 230, 120}, 3);
    RimmedPlate(cr, m, m, w - 2 * m, h - 2 * m, radius, litBody);
  } else {
    Plate(cr, m, m, w - 2 * m, h - 2 * m, radius, kPlainBody, 1.5);
  }
  Lettering(cr, text, m + 5, (h - textH) / 2, w - 2 * m - 10, textH, 60, lit ? kLitText : pal::kPaleGold,
            lit ? 1.8 : 1.4, 0.12);
}

}  // namespace

ASSETGEN_GENERATOR(ui_variant_button) {
  Canvas c(entry.width, entry.height);
  const std::string v = Arg(entry, 0);
  Button(c.cr(), entry.width, entry.height, 12, VariantBody(entry, v), Lit(entry, 1),
         v == "classic" ? "CLASSIC" : v == "bonus" ? "BONUS" : "WICKORY", 22);
  Save(ctx, entry, c);
}

// Difficulty: the game uses 81 of the 82 columns, so the last stays empty.
ASSETGEN_GENERATOR(ui_difficulty_button) {
  Canvas c(entry.width, entry.height);
  const std::string d = Arg(entry, 0);
  const Ramp& body = d == "easy" ? kDeepGreen : d == "medium" ? kDeepAmber : kDeepRed;
  const std::string text = d == "easy" ? "EASY" : d == "medium" ? "MEDIUM" : "HARD";
  if (d != "easy" && d != "medium" && d != "hard") Fail(entry, "difficulty must be easy, medium or hard");
  Button(c.cr(), entry.width - 1, entry.height, 8, body, Lit(entry, 1), text, 13);
  Save(ctx, entry, c);
}

// Play types A, B, C: round glossy buttons with one big letter.
ASSETGEN_GENERATOR(ui_type_button) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  const std::string t = Arg(entry, 0);
  bool lit = Lit(entry, 1);
  double s = entry.width, cx = s / 2, cy = entry.height / 2.0, r = s / 2 - 4;
  if (lit) {
    for (int i = 3; i >= 1; --i) {
      cairo_arc(cr, cx, cy, r + i, 0, 2 * M_PI);
      Set(cr, {255, 230, 120}, 0.9 * (1 - (i - 1) / 3.0));
      cairo_set_line_width(cr, 1);
      cairo_stroke(cr);
    }
  }
  cairo_arc(cr, cx, cy, r, 0, 2 * M_PI);
  Set(cr, pal::kInk);
  cairo_fill(cr);
  if (lit) {
    cairo_arc(cr, cx, cy, r - 1, 0, 2 * M_PI);
    cairo_pattern_t* g = RampPattern(pal::kGold, cy - r, cy + r);
    cairo_set_source(cr, g);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
  }
  double ir = lit ? r - 3 : r - 1.5;
  cairo_arc(cr, cx, cy, ir, 0, 2 * M_PI);
  cairo_pattern_t* body = cairo_pattern_create_radial(cx - ir * 0.3, cy - ir * 0.4, ir * 0.1, cx, cy, ir);
  const Ramp& b = lit ? pal::kTeal : kPlainBody;
  cairo_pattern_add_color_stop_rgb(body, 0, b.top.r / 255, b.top.g / 255, b.top.b / 255);
  cairo_pattern_add_color_stop_rgb(body, 0.6, b.mid.r / 255, b.mid.g / 255, b.mid.b / 255);
  cairo_pattern_add_color_stop_rgb(body, 1, b.bottom.r / 255, b.bottom.g / 255, b.bottom.b / 255);
  cairo_set_source(cr, body);
  cairo_fill(cr);
  cairo_pattern_destroy(body);
  // Shine across the top of the orb.
  cairo_save(cr);
  cairo_translate(cr, cx, cy - ir * 0.45);
  cairo_scale(cr, ir * 0.7, ir * 0.4);
  cairo_arc(cr, 0, 0, 1, 0, 2 * M_PI);
  cairo_restore(cr);
  cairo_pattern_t* sh = cairo_pattern_create_linear(0, cy - ir * 0.85, 0, cy - ir * 0.05);
  cairo_pattern_add_color_stop_rgba(sh, 0, 1, 1, 1, 0.6);
  cairo_pattern_add_color_stop_rgba(sh, 1, 1, 1, 1, 0.0);
  cairo_set_source(cr, sh);
  cairo_fill(cr);
  cairo_pattern_destroy(sh);
  Lettering(cr, t, cx - ir * 0.6, cy - ir * 0.62, ir * 1.2, ir * 1.24, 60, lit ? kLitText : pal::kPaleGold,
            lit ? 2.0 : 1.6);
  Save(ctx, entry, c);
}

ASSETGEN_GENERATOR(ui_start_button) {
  Canvas c(entry.width, entry.height);
  bool lit = Lit(entry, 0);
  cairo_t* cr = c.cr();
  double m = 3, w = entry.width, h = entry.height;
  if (lit) Glow(cr, m, m, w - 2 * m, h - 2 * m, 14, {255, 236, 140}, 3);
  RimmedPlate(cr, m, m, w - 2 * m, h - 2 * m, 14,
              lit ? Ramp{{255, 190, 120}, {236, 84, 24}, {130, 24, 6}} : Ramp{{200, 110, 80}, {150, 40, 20}, {70, 12, 6}});
  Lettering(cr, "START", m + 10, 8, w - 2 * m - 20, h - 16, 60, lit ? kLitText : pal::kGold, 1.8, 0.15);
  Save(ctx, entry, c);
}

}  // namespace assetgen::ui

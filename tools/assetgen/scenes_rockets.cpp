// The reward rockets (three sizes of one design, drawn in the large one's
// 146 x 355 units) and the two flickering exhaust flames.
#include <cmath>
#include <string>

#include "tools/assetgen/scenes_art.h"

namespace {

using scenes::Col;
using scenes::Hex;

const char* kFinLeft = "M 40 228 C 22 246 6 286 2 334 L 2 355 L 14 355 C 20 340 30 330 40 324 Z";
const char* kFinRight = "M 106 228 C 124 246 140 286 144 334 L 144 355 L 132 355 C 126 340 116 330 106 324 Z";
const char* kFinFront = "M 68 286 L 78 286 L 79 355 L 67 355 Z";
const char* kBody = "M 38 112 C 38 62 58 22 73 0 C 88 22 108 62 108 112 L 108 300 C 108 314 102 320 96 322 "
                    "L 50 322 C 44 320 38 314 38 300 Z";
const char* kNozzle = "M 50 320 L 96 320 L 103 352 L 43 352 Z";

void Cylinder(cairo_t* cr, double x0, double x1, Col c) {
  cairo_pattern_t* g = cairo_pattern_create_linear(x0, 0, x1, 0);
  Col hi = scenes::Lerp(c, Hex(0xFFFFFF), 0.7);
  cairo_pattern_add_color_stop_rgb(g, 0, c.r * 0.35, c.g * 0.35, c.b * 0.35);
  cairo_pattern_add_color_stop_rgb(g, 0.32, hi.r, hi.g, hi.b);
  cairo_pattern_add_color_stop_rgb(g, 0.55, c.r, c.g, c.b);
  cairo_pattern_add_color_stop_rgb(g, 1, c.r * 0.3, c.g * 0.3, c.b * 0.3);
  cairo_set_source(cr, g);
  cairo_pattern_destroy(g);
}

void Rocket(cairo_t* cr, Col trim) {
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 2.5);
  // Fins behind the body.
  for (const char* fin : {kFinLeft, kFinRight}) {
    scenes::PathData(cr, fin);
    Cylinder(cr, 0, 146, trim);
    cairo_fill_preserve(cr);
    scenes::Source(cr, Hex(0x1A0A08));
    cairo_stroke(cr);
  }
  scenes::PathData(cr, kNozzle);
  Cylinder(cr, 43, 103, Hex(0x707480));
  cairo_fill_preserve(cr);
  scenes::Source(cr, Hex(0x141418));
  cairo_stroke(cr);
  // Body, then the painted parts clipped to it.
  scenes::PathData(cr, kBody);
  Cylinder(cr, 38, 108, Hex(0xE4E8F0));
  cairo_fill_preserve(cr);
  cairo_save(cr);
  cairo_clip(cr);
  Cylinder(cr, 38, 108, trim);
  cairo_rectangle(cr, 0, 0, 146, 92);  // nose cone
  cairo_rectangle(cr, 0, 252, 146, 16);
  cairo_rectangle(cr, 0, 300, 146, 30);
  cairo_fill(cr);
  Cylinder(cr, 38, 108, Hex(0xF2C040));
  cairo_rectangle(cr, 0, 92, 146, 6);
  cairo_rectangle(cr, 0, 268, 146, 4);
  cairo_fill(cr);
  scenes::Source(cr, Hex(0x303440), 0.6);  // panel seams
  cairo_set_line_width(cr, 1.2);
  for (double y : {140.0, 230.0}) {
    cairo_move_to(cr, 38, y);
    cairo_line_to(cr, 108, y);
  }
  cairo_stroke(cr);
  cairo_restore(cr);
  scenes::PathData(cr, kBody);
  scenes::Source(cr, Hex(0x1A0A08));
  cairo_set_line_width(cr, 2.5);
  cairo_stroke(cr);
  // Portholes: gold rim, deep blue glass with a gleam.
  for (auto [y, r] : {std::pair{164.0, 17.0}, std::pair{210.0, 9.0}}) {
    cairo_arc(cr, 73, y, r, 0, 2 * M_PI);
    scenes::Source(cr, Hex(0x1A0A08));
    cairo_fill(cr);
    cairo_arc(cr, 73, y, r - 1.5, 0, 2 * M_PI);
    scenes::Source(cr, Hex(0xE8B030));
    cairo_fill(cr);
    cairo_pattern_t* g = cairo_pattern_create_radial(73 - r * 0.3, y - r * 0.3, 1, 73, y, r * 0.75);
    cairo_pattern_add_color_stop_rgb(g, 0, 0.6, 0.85, 1);
    cairo_pattern_add_color_stop_rgb(g, 1, 0.05, 0.15, 0.45);
    cairo_set_source(cr, g);
    cairo_arc(cr, 73, y, r * 0.72, 0, 2 * M_PI);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
  }
  scenes::PathData(cr, kFinFront);
  Cylinder(cr, 67, 79, trim);
  cairo_fill_preserve(cr);
  scenes::Source(cr, Hex(0x1A0A08));
  cairo_set_line_width(cr, 1.5);
  cairo_stroke(cr);
}

// A teardrop of exhaust hanging from the nozzle; 'phase' varies the flicker.
void Flame(cairo_t* cr, double w, double h, int phase) {
  struct Layer {
    double width, length;
    uint32_t colour;
  };
  const Layer layers[4] = {{1.0, 1.0, 0xD8380C}, {0.78, 0.82, 0xFF8A1A}, {0.55, 0.62, 0xFFD84A}, {0.3, 0.38, 0xFFFBE8}};
  // The two pictures alternate every frame: one long and leaning left, one
  // short, wide and leaning right, so the flame seems to flicker.
  double stretch = phase == 0 ? 1.0 : 0.74, widen = phase == 0 ? 0.9 : 1.1, sway = phase == 0 ? -3.0 : 3.0;
  for (const Layer& l : layers) {
    double hw = w * 0.42 * l.width * widen, len = (h - 1) * l.length * stretch;
    double cx = w / 2;
    double s = sway * l.length;
    cairo_move_to(cr, cx - hw, 0);
    cairo_curve_to(cr, cx - hw * 1.1, len * 0.4, cx + s - hw * 0.35, len * 0.75, cx + s, len);
    cairo_curve_to(cr, cx + s + hw * 0.3, len * 0.7, cx + hw * 1.1, len * 0.35, cx + hw, 0);
    cairo_close_path(cr);
    scenes::Source(cr, Hex(l.colour));
    cairo_fill(cr);
  }
}

}  // namespace

// scene_rocket TRIM: a rocket of the entry's size; TRIM is its paint colour as RRGGBB.
ASSETGEN_GENERATOR(scene_rocket) {
  if (entry.args.size() != 1) assetgen::Fail(entry, "expects TRIM");
  assetgen::Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  cairo_scale(cr, entry.width / 146.0, entry.height / 355.0);
  Rocket(cr, Hex(std::stoul(entry.args[0], nullptr, 16)));
  scenes::KeyEdges(c);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

// scene_flame PHASE: one of the two alternating exhaust pictures.
ASSETGEN_GENERATOR(scene_flame) {
  int phase = entry.args.empty() ? 0 : std::stoi(entry.args[0]);
  assetgen::Canvas c(entry.width, entry.height);
  Flame(c.cr(), entry.width, entry.height, phase);
  scenes::KeyEdges(c);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::None));
}

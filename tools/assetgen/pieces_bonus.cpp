// The Bonus variant's special pictures: the arrow and earth animations, the
// round bomb, and the Type C bomb.
#include <algorithm>
#include <cmath>

#include "tools/assetgen/pieces_art.h"
#include "tools/assetgen/pieces_draw.h"

namespace assetgen::pieces {
namespace {

const Rgb kSteel = Hex(150, 160, 178);

// Chevrons scrolling through the face of a steel block; one period of the
// scroll spans the eleven frames.
void Chevrons(cairo_t* cr, bool column, int frame, Rgb glow) {
  const double period = 7, shift = period * frame / 11.0;
  cairo_save(cr);
  cairo_rectangle(cr, 3, 3, 14, 14);
  cairo_clip(cr);
  for (int pass = 0; pass < 2; ++pass) {
    for (int k = -2; k < 4; ++k) {
      double t = 1 + k * period + shift;  // tip position along the motion
      // Brighter towards the leading side.
      double a = std::clamp((t - 1) / 16.0, 0.0, 1.0);
      auto point = [&](double along, double across) {
        if (column) cairo_line_to(cr, 10 + across, along);
        else cairo_line_to(cr, along, 10 + across);
      };
      cairo_new_path(cr);
      point(t - 4, -5);
      point(t, 0);
      point(t - 4, 5);
      cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
      cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
      if (pass == 0) {
        cairo_set_line_width(cr, 3.6);
        cairo_set_source_rgba(cr, 0.05, 0.07, 0.12, 0.85);
      } else {
        cairo_set_line_width(cr, 1.8);
        Source(cr, Mix(Scale(glow, 0.7), glow, a));
      }
      cairo_stroke(cr);
    }
  }
  cairo_restore(cr);
}

}  // namespace

bmp::Image565 ArrowFrame(bool column, int frame) {
  return Render(20, 20, [&](cairo_t* cr) {
    DrawBlock(cr, 0, 0, 20, {Finish::Gloss, column ? Hex(70, 120, 190) : Hex(190, 120, 40)});
    Chevrons(cr, column, frame, column ? Hex(150, 240, 255) : Hex(255, 240, 120));
  });
}

bmp::Image565 EarthFrame(int frame) {
  // The block jitters by a pixel; dust trickles from it and shake marks
  // flicker beside it, always clear of the other three cell centres.
  static const int jx[20] = {0, 1, 0, -1, 1, 0, -1, 0, 1, -1, 0, 1, -1, 0, 0, 1, -1, 1, 0, -1};
  static const int jy[20] = {0, 0, 1, 0, -1, 1, 0, -1, 0, 1, -1, 0, 1, 0, -1, 0, 0, 1, -1, 0};
  bmp::Image565 img = Render(40, 40, [&](cairo_t* cr) {
    double x = 20 + jx[frame], y = 0 + jy[frame];
    const Rgb soil = Hex(130, 84, 44);
    DrawBlock(cr, x, y, 20, {Finish::Gloss, soil});
    // Grass on top and pebbles in the soil.
    cairo_rectangle(cr, x + 1, y + 1, 18, 5);
    Source(cr, Hex(70, 165, 50));
    cairo_fill(cr);
    cairo_rectangle(cr, x + 1, y + 1, 18, 1.5);
    Source(cr, Hex(150, 225, 100));
    cairo_fill(cr);
    for (int i = 0; i < 6; ++i) {
      cairo_move_to(cr, x + 2 + 3 * i, y + 6);
      cairo_line_to(cr, x + 3 + 3 * i, y + 7.5);
      cairo_line_to(cr, x + 4 + 3 * i, y + 6);
    }
    Source(cr, Hex(70, 165, 50));
    cairo_fill(cr);
    const double peb[4][2] = {{5, 10}, {13, 9}, {9, 14}, {15, 15}};
    for (auto& p : peb) {
      cairo_arc(cr, x + p[0], y + p[1], 1.3, 0, 2 * M_PI);
      Source(cr, Hex(190, 160, 120));
      cairo_fill(cr);
    }
    // A crack that opens and closes with the quake.
    double open = 0.6 + 0.6 * std::fabs(std::sin(frame * M_PI / 10));
    cairo_move_to(cr, x + 10, y + 6);
    cairo_line_to(cr, x + 8, y + 10);
    cairo_line_to(cr, x + 11, y + 13);
    cairo_line_to(cr, x + 9, y + 18);
    cairo_set_line_width(cr, open);
    Source(cr, Hex(40, 22, 10));
    cairo_stroke(cr);
    // Shake marks left of and below the block.
    double a = frame % 2 ? 0.9 : 0.5;
    cairo_set_line_width(cr, 1.2);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    for (int k = 0; k < 2; ++k) {
      double off = 3 + 2.5 * k + (frame % 2);
      cairo_arc(cr, 30, 10, 10 + off, M_PI * 0.8, M_PI * 1.2);
      cairo_new_sub_path(cr);
      cairo_arc(cr, 30, 10, 10 + off, M_PI * 0.3, M_PI * 0.7);
      cairo_new_sub_path(cr);
    }
    cairo_set_source_rgba(cr, 0.95, 0.85, 0.6, a);
    cairo_stroke(cr);
    // Dust falling from the block.
    for (int k = 0; k < 5; ++k) {
      double px = 22 + 4 * k, py = 22 + std::fmod(frame * 0.9 + k * 3.7, 16);
      cairo_rectangle(cr, px, py, 1.2, 1.2);
      cairo_set_source_rgba(cr, 0.8, 0.62, 0.4, 1 - (py - 22) / 18);
      cairo_fill(cr);
    }
  });
  for (auto [cx, cy] : {std::pair{10, 10}, {10, 30}, {30, 30}}) Put(img, cx, cy, 0);
  return img;
}

namespace {

// A round bomb of radius r centred at (x, y) with its fuse socket up and to
// the side given by dir (-1 left, +1 right); heat 0..1 turns it red-hot.
void RoundBomb(cairo_t* cr, double x, double y, double r, int dir, double heat) {
  Rgb body = Mix(Hex(62, 70, 100), Hex(240, 70, 25), heat);
  // Body shading lit from the top left, a dark rim, a reflected glow low on
  // the right, and a crisp gloss crescent.
  cairo_pattern_t* p = cairo_pattern_create_radial(x - r * 0.35, y - r * 0.35, r * 0.05, x, y, r);
  Rgb lit = Mix(body, {1, 1, 1}, 0.4 + 0.2 * heat), dark = Scale(body, 0.4);
  cairo_pattern_add_color_stop_rgb(p, 0, lit.r, lit.g, lit.b);
  cairo_pattern_add_color_stop_rgb(p, 0.55, body.r, body.g, body.b);
  cairo_pattern_add_color_stop_rgb(p, 1, dark.r, dark.g, dark.b);
  cairo_arc(cr, x, y, r, 0, 2 * M_PI);
  cairo_set_source(cr, p);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(p);
  cairo_set_line_width(cr, std::max(1.0, r * 0.09));
  Source(cr, Scale(body, 0.28));
  cairo_stroke(cr);
  cairo_arc(cr, x, y, r * 0.8, 0.15 * M_PI, 0.45 * M_PI);
  cairo_set_line_width(cr, std::max(0.8, r * 0.1));
  Source(cr, Mix(body, Hex(150, 180, 255), 0.5), 0.6);
  cairo_stroke(cr);
  cairo_arc(cr, x, y, r * 0.68, 1.05 * M_PI, 1.4 * M_PI);
  cairo_set_line_width(cr, std::max(1.2, r * 0.16));
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_set_source_rgba(cr, 1, 1, 1, 0.85);
  cairo_stroke(cr);
  // The metal socket of the fuse.
  double a = dir < 0 ? -2.2 : -0.95;
  double sx = x + r * 0.92 * std::cos(a), sy = y + r * 0.92 * std::sin(a);
  cairo_save(cr);
  cairo_translate(cr, sx, sy);
  cairo_rotate(cr, a + M_PI / 2);
  cairo_rectangle(cr, -r * 0.3, -r * 0.24, r * 0.6, r * 0.36);
  cairo_restore(cr);
  Source(cr, Hex(185, 185, 195));
  cairo_fill_preserve(cr);
  cairo_set_line_width(cr, 0.6);
  Source(cr, Hex(60, 60, 70));
  cairo_stroke(cr);
}

// A burning fuse tip: orange glow and a yellow-white core.
void Flame(cairo_t* cr, double x, double y, double r) {
  cairo_pattern_t* p = cairo_pattern_create_radial(x, y, 0, x, y, r);
  cairo_pattern_add_color_stop_rgba(p, 0, 1, 1, 0.85, 1);
  cairo_pattern_add_color_stop_rgba(p, 0.45, 1, 0.75, 0.1, 0.95);
  cairo_pattern_add_color_stop_rgba(p, 1, 1, 0.3, 0, 0);
  cairo_arc(cr, x, y, r, 0, 2 * M_PI);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  // Four small rays.
  cairo_set_line_width(cr, 0.7);
  cairo_set_source_rgba(cr, 1, 0.95, 0.6, 0.9);
  for (int k = 0; k < 4; ++k) {
    double a = M_PI / 4 + k * M_PI / 2;
    cairo_move_to(cr, x + std::cos(a) * r * 0.3, y + std::sin(a) * r * 0.3);
    cairo_line_to(cr, x + std::cos(a) * r * 1.1, y + std::sin(a) * r * 1.1);
  }
  cairo_stroke(cr);
}

}  // namespace

bmp::Image565 BombSprite() {
  bmp::Image565 img = Render(80, 80, [](cairo_t* cr) {
    // The fuse curls from the socket to its tip at (26, 12), passing below (30, 10).
    cairo_move_to(cr, 44, 23);
    cairo_curve_to(cr, 40, 17.5, 35, 16, 30.5, 15);
    cairo_curve_to(cr, 28.5, 14.5, 27.5, 13.5, 26.8, 12.8);
    cairo_set_line_width(cr, 1.6);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    Source(cr, Hex(200, 170, 120));
    cairo_stroke(cr);
    RoundBomb(cr, 50, 31, 10.2, -1, 0);
    Flame(cr, 26.5, 12.5, 2.4);
  });
  Put(img, 30, 10, 0);
  return img;
}

bmp::Image565 MegaBomb(int n) {
  // 0: the armed look (red-hot) that marks a cleared half; 1: the bomb;
  // 2..5: the bomb flaring ever brighter when its fuse spits.
  double heat = n == 0 ? 0.85 : n == 1 ? 0 : 0.15 * (n - 1);
  double flame = n == 0 ? 3 : n == 1 ? 2.5 : 2.5 + 1.2 * (n - 1);
  return Render(40, 40, [&](cairo_t* cr) {
    cairo_move_to(cr, 30, 9);
    cairo_curve_to(cr, 32, 5.5, 34, 4, 35.5, 3.5);
    cairo_set_line_width(cr, 1.6);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    Source(cr, Hex(200, 170, 120));
    cairo_stroke(cr);
    RoundBomb(cr, 20, 21, 17, +1, heat);
    Flame(cr, 35.5, 3.5, flame);
  });
}

}  // namespace assetgen::pieces

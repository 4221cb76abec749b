// Glyph and digit sheets: the bitmap lettering of names, scores and counters.
#include <algorithm>
#include <cmath>
#include <string>

#include "tools/assetgen/ui_paint.h"

namespace assetgen::ui {
namespace {

// The signs of the character sheet, in sheet order; the game lower-cases
// names before lookup, so capitals stand in the letter slots.
const char* const kSheetSigns[47] = {
    "A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M", "N", "O", "P",
    "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "0", "1", "2", "3", "4", "5",
    "6", "7", "8", "9", "&", "!", "?", "/", "+", "-", ":", "\"", "'", ".", " "};

constexpr double kCapRatio = 0.729;  // cap height of DejaVu Sans Bold per em

// One sign on a shared baseline, so full stops sit low and quotes high.
// Wide signs are narrowed rather than shrunk, keeping every cap the same height.
void Sign(cairo_t* cr, const std::string& s, double cellX, double cellW, double baseline, double cap,
          double outline, const Ramp& fill) {
  double size = cap / kCapRatio;
  SetFont(cr, "DejaVu Sans", true, size);
  cairo_new_path(cr);
  cairo_move_to(cr, 0, 0);
  cairo_text_path(cr, s.c_str());
  double x0, y0, x1, y1;
  cairo_path_extents(cr, &x0, &y0, &x1, &y1);
  cairo_new_path(cr);
  double room = cellW - 2 * outline - 1;
  double squeeze = std::min(1.0, room / std::max(1.0, x1 - x0));
  double ox = cellX + (cellW - (x1 - x0) * squeeze) / 2 - x0 * squeeze;

  cairo_save(cr);
  cairo_translate(cr, ox, baseline);
  cairo_scale(cr, squeeze, 1.0);
  cairo_move_to(cr, 0, 0);
  cairo_text_path(cr, s.c_str());
  cairo_restore(cr);
  cairo_path_t* path = cairo_copy_path(cr);
  cairo_path_extents(cr, &x0, &y0, &x1, &y1);

  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_width(cr, 2 * outline);
  Set(cr, pal::kInk);
  cairo_stroke_preserve(cr);
  // The ramp runs over the cap height, not the sign's own ink, so all signs share one gradient.
  cairo_pattern_t* p = RampPattern(fill, baseline - cap, baseline);
  cairo_set_source(cr, p);
  cairo_fill_preserve(cr);
  cairo_pattern_destroy(p);
  cairo_save(cr);
  cairo_clip(cr);
  cairo_pattern_t* g = cairo_pattern_create_linear(0, baseline - cap, 0, baseline - cap * 0.45);
  cairo_pattern_add_color_stop_rgba(g, 0, 1, 1, 1, 0.5);
  cairo_pattern_add_color_stop_rgba(g, 1, 1, 1, 1, 0.0);
  cairo_set_source(cr, g);
  cairo_paint(cr);
  cairo_pattern_destroy(g);
  cairo_restore(cr);
  cairo_new_path(cr);
  cairo_path_destroy(path);
}

// The end key of the name keyboard: a return arrow in green, the colour of "done".
void EndKey(cairo_t* cr, double cx) {
  cairo_new_path(cr);
  double l = cx - 19, r = cx + 17;
  cairo_move_to(cr, r, 9);
  cairo_line_to(cr, r, 30);
  cairo_line_to(cr, l + 12, 30);
  cairo_move_to(cr, l + 14, 19);
  cairo_line_to(cr, l + 2, 30);
  cairo_line_to(cr, l + 14, 41);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_path_t* path = cairo_copy_path(cr);
  InkedRampStroke(cr, path, 14, 7, pal::kGreen, 9, 41);
  cairo_append_path(cr, path);
  cairo_set_line_width(cr, 2);
  Set(cr, {230, 255, 210}, 0.7);
  cairo_translate(cr, -0.5, -1.5);
  cairo_stroke(cr);
  cairo_identity_matrix(cr);
  cairo_path_destroy(path);
}

}  // namespace

// 48 signs of 50 x 50; also shown at 25 x 25 (nearest neighbour), so the
// strokes and outlines stay at least two pixels wide.
ASSETGEN_GENERATOR(ui_charset) {
  Canvas c(entry.width, entry.height);
  double cell = entry.width / 48.0;
  for (int i = 0; i < 46; ++i)
    Sign(c.cr(), kSheetSigns[i], i * cell, cell, cell * 0.86, cell * 0.68, cell * 0.07, pal::kGold);
  EndKey(c.cr(), 47 * cell + cell / 2);
  Save(ctx, entry, c);
}

// The frame under the key at the pointer: a dark glossy plate with a bright rim.
ASSETGEN_GENERATOR(ui_select) {
  Canvas c(entry.width, entry.height);
  cairo_t* cr = c.cr();
  Plate(cr, 1, 1, 48, 48, 9, {{64, 92, 170}, {24, 36, 96}, {12, 18, 52}}, 3, {255, 214, 80});
  RoundRect(cr, 1.5, 1.5, 47, 47, 9);
  cairo_set_line_width(cr, 1);
  Set(cr, {120, 70, 0});
  cairo_stroke(cr);
  Save(ctx, entry, c);
}

// Piece counts are pasted opaque into the statistics panel: the cell is the
// panel's plain colour, the digit a crisp 5 x 7 pixel face with a shadow.
ASSETGEN_GENERATOR(ui_statdigits) {
  static const char* const kFace[10][7] = {
      {".###.", "#...#", "#..##", "#.#.#", "##..#", "#...#", ".###."},
      {"..#..", ".##..", "..#..", "..#..", "..#..", "..#..", ".###."},
      {".###.", "#...#", "....#", "..##.", ".#...", "#....", "#####"},
      {"####.", "....#", "....#", ".###.", "....#", "....#", "####."},
      {"...#.", "..##.", ".#.#.", "#..#.", "#####", "...#.", "...#."},
      {"#####", "#....", "####.", "....#", "....#", "#...#", ".###."},
      {".###.", "#....", "#....", "####.", "#...#", "#...#", ".###."},
      {"#####", "....#", "...#.", "..#..", ".#...", ".#...", ".#..."},
      {".###.", "#...#", "#...#", ".###.", "#...#", "#...#", ".###."},
      {".###.", "#...#", "#...#", ".####", "....#", "....#", ".###."}};
  // The statistics panels keep their count strip in exactly this colour.
  const Col panel{24, 28, 41}, shadow{6, 8, 14};
  const Col top{255, 240, 170}, bottom{232, 168, 40};
  bmp::Image565 img;
  img.width = entry.width;
  img.height = entry.height;
  img.pixels.assign(size_t(img.width) * img.height, bmp::Pack565(int(panel.r), int(panel.g), int(panel.b)));
  int cell = entry.height;
  for (int d = 0; d < 10; ++d)
    for (int pass = 0; pass < 2; ++pass)
      for (int row = 0; row < 7; ++row)
        for (int col = 0; col < 5; ++col) {
          if (kFace[d][row][col] != '#') continue;
          int x = d * cell + 2 + col + (pass == 0), y = 1 + row + (pass == 0);
          if (x >= (d + 1) * cell || y >= cell) continue;
          Col k = pass == 0 ? shadow : Mix(top, bottom, row / 6.0);
          img.pixels[size_t(y) * img.width + x] = bmp::Pack565(int(k.r), int(k.g), int(k.b));
        }
  WriteBmp(ctx, entry, img);
}

// Banner digits: pale gold on a dark outline, drawn keyed over the banner plate.
ASSETGEN_GENERATOR(ui_scoredigits) {
  Canvas c(entry.width, entry.height);
  double cell = entry.height;
  for (int d = 0; d < 10; ++d)
    Sign(c.cr(), std::string(1, char('0' + d)), d * cell, cell, cell * 0.83, cell * 0.7, 1.6,
         {{255, 255, 235}, {255, 226, 120}, {220, 140, 30}});
  Save(ctx, entry, c);
}

// The play-screen counter digits: 28 drawn columns and a black 29th in each
// 29-pixel slot; the eleventh slot stays all black (the bomb's eraser).
ASSETGEN_GENERATOR(ui_bigdigits) {
  constexpr int kStride = 29;
  Canvas c(entry.width, entry.height);
  for (int d = 0; d < 10; ++d)
    Sign(c.cr(), std::string(1, char('0' + d)), d * kStride, kStride - 1, entry.height - 4, entry.height - 9,
         2.4, pal::kGold);
  bmp::Image565 img = Quantise(c, Dither::None);
  for (int y = 0; y < img.height; ++y) {
    for (int d = 0; d < 10; ++d) img.pixels[size_t(y) * img.width + d * kStride + kStride - 1] = 0;
    for (int x = 10 * kStride; x < img.width; ++x) img.pixels[size_t(y) * img.width + x] = 0;
  }
  WriteBmp(ctx, entry, img);
}

}  // namespace assetgen::ui

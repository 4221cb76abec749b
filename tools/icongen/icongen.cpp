// The desktop icons: a falling purple piece over a settled stack, a red
// charge at the right with a lit fuse. Drawn separately at every size so the
// cell edges land on whole pixels; the smallest sizes are drawn pixel by pixel.
//
//   icongen --out DIR --name ICON SIZE...   writes DIR/<S>x<S>/apps/ICON.png
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

struct Rgb {
  double r, g, b;
};

Rgb Hex(int r, int g, int b) { return {r / 255.0, g / 255.0, b / 255.0}; }
Rgb Mix(Rgb a, Rgb b, double t) { return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t}; }
Rgb Scale(Rgb a, double k) { return {std::min(1.0, a.r * k), std::min(1.0, a.g * k), std::min(1.0, a.b * k)}; }
void Source(cairo_t* cr, Rgb c, double a = 1.0) { cairo_set_source_rgba(cr, c.r, c.g, c.b, a); }
const Rgb kWhite{1, 1, 1};

// The classic pieces' colours.
const Rgb kCyan = Hex(0, 205, 235), kPurple = Hex(165, 60, 225), kYellow = Hex(250, 212, 20),
          kOrange = Hex(250, 130, 20), kBlue = Hex(40, 90, 240), kGreen = Hex(40, 205, 60), kRed = Hex(235, 40, 40);

// The picture on a 4 x 4 grid; the fuse leaves the charge (column 3, row 2)
// upwards and burns in the empty top right corner.
struct Cell {
  int col, row;
  Rgb colour;
};
const Cell kCells[] = {
    {0, 0, kPurple}, {1, 0, kPurple}, {2, 0, kPurple}, {1, 1, kPurple},  // falling, its stem over the gap
    {0, 2, kCyan},   {2, 2, kYellow}, {3, 2, kRed},                       // the stack
    {0, 3, kBlue},   {1, 3, kGreen},  {2, 3, kYellow}, {3, 3, kOrange},
};
constexpr int kChargeCol = 3, kChargeRow = 2;

void Fill(cairo_t* cr, double x, double y, double w, double h, Rgb c, double a = 1.0) {
  cairo_rectangle(cr, x, y, w, h);
  Source(cr, c, a);
  cairo_fill(cr);
}

void Quad(cairo_t* cr, double x0, double y0, double x1, double y1, double x2, double y2, double x3, double y3,
          Rgb c) {
  cairo_move_to(cr, x0, y0);
  cairo_line_to(cr, x1, y1);
  cairo_line_to(cr, x2, y2);
  cairo_line_to(cr, x3, y3);
  cairo_close_path(cr);
  Source(cr, c);
  cairo_fill(cr);
}

// Below 8 pixels a bevel band and a gloss would blur into one another: one
// light edge, one dark edge and a single lit pixel keep the block readable.
void TinyBlock(cairo_t* cr, int x, int y, int s, Rgb c) {
  Fill(cr, x, y, s, s, c);
  Fill(cr, x, y, s, 1, Mix(c, kWhite, 0.55));
  Fill(cr, x, y + 1, 1, s - 1, Mix(c, kWhite, 0.3));
  Fill(cr, x + 1, y + s - 1, s - 1, 1, Scale(c, 0.45));
  Fill(cr, x + s - 1, y + 1, 1, s - 2, Scale(c, 0.62));
  Fill(cr, x + 1, y + 1, 1, 1, Mix(c, kWhite, 0.8));
}

// Dark rim, four bevel bands, a diagonal face gradient and a soft gloss with
// a specular spot: the look of the game's own blocks.
void GlossBlock(cairo_t* cr, int x, int y, int s, Rgb c) {
  double b = std::max(1.0, std::round(s * 0.15));
  Fill(cr, x, y, s, s, Scale(c, 0.38));
  double i0 = 1, i1 = s - 1;
  Quad(cr, x + i0, y + i0, x + i1, y + i0, x + i1 - b, y + i0 + b, x + i0 + b, y + i0 + b, Mix(c, kWhite, 0.62));
  Quad(cr, x + i0, y + i0, x + i0 + b, y + i0 + b, x + i0 + b, y + i1 - b, x + i0, y + i1, Mix(c, kWhite, 0.38));
  Quad(cr, x + i0, y + i1, x + i0 + b, y + i1 - b, x + i1 - b, y + i1 - b, x + i1, y + i1, Scale(c, 0.55));
  Quad(cr, x + i1, y + i0, x + i1, y + i1, x + i1 - b, y + i1 - b, x + i1 - b, y + i0 + b, Scale(c, 0.7));

  double f = 1 + b, w = s - 2 - 2 * b;
  cairo_pattern_t* p = cairo_pattern_create_linear(x + f, y + f, x + f + w, y + f + w);
  Rgb a = Mix(c, kWhite, 0.18), z = Scale(c, 0.86);
  cairo_pattern_add_color_stop_rgb(p, 0, a.r, a.g, a.b);
  cairo_pattern_add_color_stop_rgb(p, 1, z.r, z.g, z.b);
  cairo_rectangle(cr, x + f, y + f, w, w);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);

  cairo_save(cr);
  cairo_rectangle(cr, x + 1, y + 1, s - 2, s - 2);
  cairo_clip(cr);
  p = cairo_pattern_create_radial(x + s * 0.34, y + s * 0.3, 0, x + s * 0.34, y + s * 0.3, s * 0.5);
  cairo_pattern_add_color_stop_rgba(p, 0, 1, 1, 1, 0.6);
  cairo_pattern_add_color_stop_rgba(p, 1, 1, 1, 1, 0);
  cairo_set_source(cr, p);
  cairo_paint(cr);
  cairo_pattern_destroy(p);
  if (s >= 12) {
    cairo_arc(cr, x + s * 0.3, y + s * 0.27, s * 0.085, 0, 2 * M_PI);
    cairo_set_source_rgba(cr, 1, 1, 1, 0.9);
    cairo_fill(cr);
  }
  cairo_restore(cr);
}

// A painted cross on the charge, as the fuse pieces carry: where the fuse
// goes in.
void ChargeMark(cairo_t* cr, int x, int y, int s) {
  if (s < 12) return;
  double t = std::max(2.0, std::round(s * 0.12));
  double cx = x + s / 2.0, cy = y + s / 2.0;
  Fill(cr, cx - t / 2, y + std::round(s * 0.22), t, cy - y - std::round(s * 0.22) + t / 2, Hex(52, 30, 14), 0.85);
  cairo_arc(cr, cx, cy, t * 1.1, 0, 2 * M_PI);
  Source(cr, Hex(52, 30, 14), 0.85);
  cairo_fill(cr);
}

// The cord from the top of the charge, bending left then up, and the spark at
// its end; every length follows the cell size.
void Fuse(cairo_t* cr, int x, int y, int s) {
  double cx = x + s / 2.0, top = y + 1;
  double w = std::max(1.5, s * 0.09);
  double tipX = cx + s * 0.05, tipY = y - s * 0.7;
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_move_to(cr, cx, top + s * 0.25);
  cairo_curve_to(cr, cx, top - s * 0.25, cx - s * 0.38, top - s * 0.2, cx - s * 0.3, tipY + s * 0.22);
  cairo_curve_to(cr, cx - s * 0.24, tipY + s * 0.05, tipX - s * 0.1, tipY + s * 0.02, tipX, tipY);
  cairo_set_line_width(cr, w + std::max(1.0, s * 0.04));
  Source(cr, Hex(30, 18, 8), 0.9);
  cairo_stroke_preserve(cr);
  cairo_set_line_width(cr, w);
  Source(cr, Hex(150, 105, 60));
  cairo_stroke(cr);

  // Glow, rays, then a white-hot core.
  double r = s * 0.5;
  cairo_pattern_t* p = cairo_pattern_create_radial(tipX, tipY, 0, tipX, tipY, r);
  cairo_pattern_add_color_stop_rgba(p, 0, 1, 0.95, 0.6, 0.95);
  cairo_pattern_add_color_stop_rgba(p, 0.35, 1, 0.62, 0.1, 0.55);
  cairo_pattern_add_color_stop_rgba(p, 1, 1, 0.4, 0, 0);
  cairo_arc(cr, tipX, tipY, r, 0, 2 * M_PI);
  cairo_set_source(cr, p);
  cairo_fill(cr);
  cairo_pattern_destroy(p);
  for (int i = 0; i < 8; ++i) {
    double a = i * M_PI / 4 + M_PI / 8, len = (i % 2 ? 0.28 : 0.44) * s, half = std::max(0.6, s * 0.04);
    double dx = std::cos(a), dy = std::sin(a);
    cairo_move_to(cr, tipX - dy * half, tipY + dx * half);
    cairo_line_to(cr, tipX + dx * len, tipY + dy * len);
    cairo_line_to(cr, tipX + dy * half, tipY - dx * half);
    cairo_close_path(cr);
    cairo_set_source_rgba(cr, 1, 0.85, 0.3, 0.9);
    cairo_fill(cr);
  }
  cairo_arc(cr, tipX, tipY, std::max(1.3, s * 0.1), 0, 2 * M_PI);
  cairo_set_source_rgba(cr, 1, 1, 0.92, 1);
  cairo_fill(cr);
}

// The fuse at 16 pixels: a cord pixel column and a plus-shaped spark.
void TinyFuse(cairo_t* cr, int x, int y, int s) {
  int cx = x + s / 2 - 1;
  Fill(cr, cx, y - 2, 1, 2, Hex(120, 80, 40));
  int sx = cx, sy = y - 3;
  Fill(cr, sx - 1, sy, 3, 1, Hex(255, 150, 20));
  Fill(cr, sx, sy - 1, 1, 3, Hex(255, 150, 20));
  Fill(cr, sx, sy, 1, 1, Hex(255, 250, 200));
  Fill(cr, sx - 1, sy - 1, 1, 1, Hex(255, 210, 60), 0.6);
  Fill(cr, sx + 1, sy + 1, 1, 1, Hex(255, 210, 60), 0.6);
  Fill(cr, sx + 1, sy - 1, 1, 1, Hex(255, 210, 60), 0.6);
}

bool DrawIcon(int size, const std::string& file) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size);
  cairo_t* cr = cairo_create(surface);
  // Larger icons get a margin as desktop icons do; up to 32 every pixel counts.
  int margin = size <= 32 ? 0 : std::max(1, size / 16);
  int cell = (size - 2 * margin) / 4;
  int origin = (size - 4 * cell) / 2;
  bool tiny = cell < 8;

  if (!tiny) {
    // A soft shadow under the blocks lifts them off light and dark panels alike.
    double off = std::max(1.0, cell * 0.06);
    for (const Cell& c : kCells)
      Fill(cr, origin + c.col * cell + off, origin + c.row * cell + off, cell, cell, Hex(0, 0, 0), 0.28);
  }
  cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
  for (const Cell& c : kCells) {
    int x = origin + c.col * cell, y = origin + c.row * cell;
    if (tiny)
      TinyBlock(cr, x, y, cell, c.colour);
    else
      GlossBlock(cr, x, y, cell, c.colour);
  }
  int chargeX = origin + kChargeCol * cell, chargeY = origin + kChargeRow * cell;
  if (tiny) {
    TinyFuse(cr, chargeX, chargeY, cell);
  } else {
    ChargeMark(cr, chargeX, chargeY, cell);
    Fuse(cr, chargeX, chargeY, cell);
  }

  cairo_destroy(cr);
  cairo_surface_flush(surface);
  bool ok = cairo_surface_write_to_png(surface, file.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(surface);
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  std::string out, name;
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    if (a == "--out" && i + 1 < argc) {
      out = argv[++i];
    } else if (a == "--name" && i + 1 < argc) {
      name = argv[++i];
    } else {
      char* end = nullptr;
      long n = std::strtol(a.c_str(), &end, 10);
      if (*end || n < 16 || n > 1024) {
        std::fprintf(stderr, "icongen: bad size or option '%s'\n", a.c_str());
        return 2;
      }
      sizes.push_back(static_cast<int>(n));
    }
  }
  if (out.empty() || name.empty() || sizes.empty()) {
    std::fprintf(stderr, "usage: icongen --out DIR --name ICON SIZE...\n");
    return 2;
  }
  for (int s : sizes) {
    std::filesystem::path dir = std::filesystem::path(out) / (std::to_string(s) + "x" + std::to_string(s)) / "apps";
    std::error_code ec;
    std::filesystem::create_directories(dir, ec);
    std::string file = (dir / (name + ".png")).string();
    if (ec || !DrawIcon(s, file)) {
      std::fprintf(stderr, "icongen: cannot write %s\n", file.c_str());
      return 1;
    }
  }
  return 0;
}

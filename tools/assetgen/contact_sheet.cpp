#include "tools/assetgen/contact_sheet.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>

#include "platform/bmp_file.h"
#include "tools/assetgen/canvas.h"

namespace fs = std::filesystem;

namespace assetgen {
namespace {

constexpr int kPageWidth = 1600;
constexpr int kPageMaxHeight = 2400;
constexpr int kMargin = 16;
constexpr int kGap = 12;
constexpr int kThumbW = 240, kThumbH = 180;  // the largest a picture is shown
constexpr double kLabelSize = 10;
constexpr int kLabelLines = 2;
constexpr int kLabelH = 13 * kLabelLines + 2;
constexpr int kHeadingH = 26;

// Dark grey, so that keyed black stands out as black.
void Backdrop(cairo_t* cr) { Rgb(cr, 72, 72, 76); }

struct Tile {
  std::string title, detail;  // path; size or the reason it cannot be shown
  std::string section;        // manifest file
  bmp::Image565 img;
  bool ok = false;
  double scale = 1;
  int w = 0, h = 0;           // the cell, label included
};

double TextWidth(cairo_t* cr, const std::string& s) {
  cairo_text_extents_t e;
  cairo_text_extents(cr, s.c_str(), &e);
  return e.x_advance;
}

cairo_surface_t* ToSurface(const bmp::Image565& img) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, img.width, img.height);
  cairo_surface_flush(s);
  unsigned char* data = cairo_image_surface_get_data(s);
  const int stride = cairo_image_surface_get_stride(s);
  for (int y = 0; y < img.height; ++y) {
    auto* row = reinterpret_cast<uint32_t*>(data + y * stride);
    for (int x = 0; x < img.width; ++x) {
      int r, g, b;
      bmp::Unpack565(img.at(x, y), r, g, b);
      row[x] = 0xff000000u | (r << 16) | (g << 8) | b;
    }
  }
  cairo_surface_mark_dirty(s);
  return s;
}

void DrawTile(cairo_t* cr, const Tile& t, double x, double y) {
  const double tw = t.ok ? t.img.width * t.scale : 60, th = t.ok ? t.img.height * t.scale : 40;
  if (t.ok) {
    cairo_surface_t* s = ToSurface(t.img);
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, t.scale, t.scale);
    cairo_set_source_surface(cr, s, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), t.scale >= 1 ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_paint(cr);
    cairo_restore(cr);
    cairo_surface_destroy(s);
  } else {
    Rgb(cr, 200, 30, 30);
    cairo_rectangle(cr, x, y, tw, th);
    cairo_fill(cr);
  }
  // A thin frame marks the picture's extent even where it is all black.
  Rgb(cr, 110, 110, 116);
  cairo_set_line_width(cr, 1);
  cairo_rectangle(cr, x - 0.5, y - 0.5, tw + 1, th + 1);
  cairo_stroke(cr);
  SetFont(cr, "DejaVu Sans", false, kLabelSize);
  Rgb(cr, 235, 235, 235);
  cairo_move_to(cr, x, y + th + 12);
  cairo_show_text(cr, t.title.c_str());
  Rgb(cr, t.ok ? 170 : 255, t.ok ? 170 : 120, t.ok ? 170 : 120);
  cairo_move_to(cr, x, y + th + 25);
  cairo_show_text(cr, t.detail.c_str());
}

void SavePng(cairo_surface_t* s, const std::string& path) {
  const std::string tmp = path + ".tmp";
  if (cairo_surface_write_to_png(s, tmp.c_str()) != CAIRO_STATUS_SUCCESS)
    throw std::runtime_error("cannot write " + tmp);
  fs::rename(tmp, path);
}

}  // namespace

std::vector<std::string> WriteContactPages(const std::string& outDir, const std::vector<Entry>& entries) {
  // Measure labels on a scratch context.
  cairo_surface_t* scratch = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 8, 8);
  cairo_t* mcr = cairo_create(scratch);
  SetFont(mcr, "DejaVu Sans", false, kLabelSize);
  std::vector<Tile> tiles;
  for (const Entry& e : entries) {
    if (e.kind != "bmp") continue;
    Tile t;
    t.title = e.path;
    t.section = e.source.substr(0, e.source.find(':'));
    std::string err;
    t.ok = bmp::Read(outDir + "/" + e.path, t.img, err);
    if (t.ok) {
      const int w = t.img.width, h = t.img.height;
      // Long strips (glyph sheets) may use the whole page width.
      const int maxW = w > 3 * h ? kPageWidth - 2 * kMargin : kThumbW;
      t.scale = std::min({1.0, double(maxW) / w, double(kThumbH) / h});
      if (w <= 64 && h <= 64) t.scale = 2;  // sparks, rocks and buttons are too small to judge at 1:1
      t.detail = std::to_string(w) + " x " + std::to_string(h);
      if (t.scale != 1) t.detail += "  (shown " + std::to_string(int(std::lround(t.scale * 100))) + "%)";
      if (w != e.width || h != e.height)
        t.detail += "  listed " + std::to_string(e.width) + " x " + std::to_string(e.height);
    } else {
      t.detail = "cannot read: " + err;
    }
    const double tw = t.ok ? t.img.width * t.scale : 60, th = t.ok ? t.img.height * t.scale : 40;
    t.w = static_cast<int>(std::ceil(std::max({tw, TextWidth(mcr, t.title), TextWidth(mcr, t.detail)})));
    t.h = static_cast<int>(std::ceil(th)) + kLabelH;
    tiles.push_back(std::move(t));
  }
  cairo_destroy(mcr);
  cairo_surface_destroy(scratch);

  // Flow the tiles into rows and the rows onto pages, a heading per manifest file.
  struct Placed { size_t tile; int x, y; };
  struct Heading { std::string text; int y; };
  struct Page { std::vector<Placed> tiles; std::vector<Heading> headings; int height = 0; };
  std::vector<Page> pages(1);
  int x = kMargin, y = kMargin, rowH = 0;
  std::string section;
  auto newRow = [&] {
    y += rowH + (rowH ? kGap : 0);
    x = kMargin;
    rowH = 0;
  };
  for (size_t i = 0; i < tiles.size(); ++i) {
    const Tile& t = tiles[i];
    const bool heading = t.section != section;
    if (heading || x + t.w > kPageWidth - kMargin) newRow();
    const int need = t.h + (heading ? kHeadingH : 0);
    if (y + need > kPageMaxHeight - kMargin && !pages.back().tiles.empty()) {
      pages.back().height = y + rowH;
      pages.emplace_back();
      x = kMargin;
      y = kMargin;
      rowH = 0;
      section.clear();
    }
    if (t.section != section) {
      section = t.section;
      pages.back().headings.push_back({section, y});
      y += kHeadingH;
    }
    pages.back().tiles.push_back({i, x, y});
    x += t.w + kGap;
    rowH = std::max(rowH, t.h);
  }
  newRow();
  pages.back().height = y;

  std::vector<std::string> written;
  for (size_t p = 0; p < pages.size(); ++p) {
    const int height = std::max(pages[p].height + kMargin, 64);
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kPageWidth, height);
    cairo_t* cr = cairo_create(s);
    Backdrop(cr);
    cairo_paint(cr);
    for (const Heading& h : pages[p].headings) {
      SetFont(cr, "DejaVu Sans", true, 15);
      Rgb(cr, 255, 220, 120);
      cairo_move_to(cr, kMargin, h.y + 17);
      cairo_show_text(cr, h.text.c_str());
    }
    for (const Placed& pl : pages[p].tiles) DrawTile(cr, tiles[pl.tile], pl.x, pl.y);
    if (tiles.empty()) {
      SetFont(cr, "DejaVu Sans", false, 14);
      Rgb(cr, 235, 235, 235);
      cairo_move_to(cr, kMargin, 36);
      cairo_show_text(cr, "No pictures in the manifest.");
    }
    cairo_destroy(cr);
    const std::string name = p == 0 ? "contact-sheet.png" : "contact-sheet-" + std::to_string(p + 1) + ".png";
    SavePng(s, outDir + "/" + name);
    cairo_surface_destroy(s);
    written.push_back(name);
  }
  // Pages of an earlier, longer run would be stale.
  for (size_t p = pages.size() + 1;; ++p) {
    const fs::path stale = fs::path(outDir) / ("contact-sheet-" + std::to_string(p) + ".png");
    if (!fs::exists(stale)) break;
    fs::remove(stale);
  }
  return written;
}

}  // namespace assetgen

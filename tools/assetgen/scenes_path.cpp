// Path data for the illustrated pictures: the outlines are written once as
// short strings and placed with the Cairo matrix.
#include <cctype>
#include <cstdlib>
#include <stdexcept>

#include "tools/assetgen/scenes_art.h"

namespace scenes {

namespace {

class Reader {
 public:
  explicit Reader(const std::string& d) : d_(d) {}
  void Skip() {
    while (i_ < d_.size() && (std::isspace(static_cast<unsigned char>(d_[i_])) || d_[i_] == ',')) ++i_;
  }
  bool AtEnd() {
    Skip();
    return i_ >= d_.size();
  }
  bool AtCommand() {
    Skip();
    return i_ < d_.size() && std::isalpha(static_cast<unsigned char>(d_[i_]));
  }
  char Command() { return d_[i_++]; }
  double Number() {
    Skip();
    const char* start = d_.c_str() + i_;
    char* end = nullptr;
    double v = std::strtod(start, &end);
    if (end == start) throw std::runtime_error("path data: number expected at " + std::to_string(i_) + " in " + d_);
    i_ += static_cast<size_t>(end - start);
    return v;
  }

 private:
  const std::string& d_;
  size_t i_ = 0;
};

}  // namespace

void PathData(cairo_t* cr, const std::string& d) {
  Reader r(d);
  char cmd = 0;
  double x = 0, y = 0, sx = 0, sy = 0;  // current point, start of subpath
  while (!r.AtEnd()) {
    // A command letter may be left out when it repeats.
    if (r.AtCommand()) cmd = r.Command();
    else if (!cmd) throw std::runtime_error("path data: command expected in " + d);
    bool rel = std::islower(static_cast<unsigned char>(cmd));
    double ox = rel ? x : 0, oy = rel ? y : 0;
    switch (std::toupper(static_cast<unsigned char>(cmd))) {
      case 'M':
        x = ox + r.Number();
        y = oy + r.Number();
        cairo_move_to(cr, x, y);
        sx = x;
        sy = y;
        cmd = rel ? 'l' : 'L';  // further pairs are lines
        break;
      case 'L':
        x = ox + r.Number();
        y = oy + r.Number();
        cairo_line_to(cr, x, y);
        break;
      case 'H':
        x = ox + r.Number();
        cairo_line_to(cr, x, y);
        break;
      case 'V':
        y = oy + r.Number();
        cairo_line_to(cr, x, y);
        break;
      case 'C': {
        double x1 = ox + r.Number(), y1 = oy + r.Number();
        double x2 = ox + r.Number(), y2 = oy + r.Number();
        x = ox + r.Number();
        y = oy + r.Number();
        cairo_curve_to(cr, x1, y1, x2, y2, x, y);
        break;
      }
      case 'Q': {
        // Quadratic as the equivalent cubic.
        double qx = ox + r.Number(), qy = oy + r.Number();
        double ex = ox + r.Number(), ey = oy + r.Number();
        cairo_curve_to(cr, x + 2.0 / 3 * (qx - x), y + 2.0 / 3 * (qy - y), ex + 2.0 / 3 * (qx - ex),
                       ey + 2.0 / 3 * (qy - ey), ex, ey);
        x = ex;
        y = ey;
        break;
      }
      case 'Z':
        cairo_close_path(cr);
        x = sx;
        y = sy;
        cmd = 0;
        break;
      default:
        throw std::runtime_error(std::string("path data: unknown command ") + cmd + " in " + d);
    }
  }
}

}  // namespace scenes

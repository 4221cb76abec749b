#include "tests/data/fuse_trace.h"

#include <vector>

namespace fuse_trace {
namespace {

struct Point {
  int x, y;
};

}  // namespace

Result Burn(bmp::Image565& field, const Colours& c, int cx, int cy,
            const std::function<void(bmp::Image565&)>& afterFifthSweep) {
  auto inside = [&](int x, int y) { return x >= 0 && y >= 0 && x < field.width && y < field.height; };
  auto read = [&](int x, int y) -> uint16_t { return inside(x, y) ? field.at(x, y) : 0; };
  auto burn = [&](int x, int y) {
    if (inside(x, y)) field.pixels[static_cast<size_t>(y) * field.width + x] = kBurnt;
  };
  // Heads are numbered from 1 as in the game; slot 0 stays unused.
  std::vector<Point> heads = {{0, 0}, {cx, cy + 10}, {cx + 20, cy + 10}, {cx + 10, cy}, {cx + 10, cy + 20}};
  int count = 4;
  Result r;
  int divider = 0;
  const Point dirs[4] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
  const uint16_t order[4] = {c.fuse1, c.fuse2, c.charge2, c.charge1};
  while (count > 0) {
    for (int i = 1;; ++i) {
      Point old = heads[i], now = old;
      bool moved = false;
      for (const Point& d : dirs)
        if (c.IsFuse(read(old.x + d.x, old.y + d.y))) {
          moved = true;
          if (d.x) now.x = old.x + d.x;
          else now.y = old.y + d.y;
        }
      if (!moved) {
        heads[i] = heads[count];
        --count;
      } else {
        heads[i] = now;
        burn(now.x, now.y);
        if ((now.x + 10) % 20 == 0 && (now.y + 10) % 20 == 0) ++r.scoredCentres;
        for (const Point& d : dirs) {
          uint16_t v = read(old.x + d.x, old.y + d.y);
          for (uint16_t colour : order)
            if (v == colour) {
              ++count;
              if (static_cast<int>(heads.size()) <= count) heads.resize(count + 1);
              heads[count] = {old.x + d.x, old.y + d.y};
              burn(old.x + d.x, old.y + d.y);
            }
        }
      }
      if (count > r.maxHeads) r.maxHeads = count;
      if (i >= count) break;
    }
    ++r.sweeps;
    if (++divider > 4) {
      divider = 0;
      if (afterFifthSweep) afterFifthSweep(field);
    }
  }
  return r;
}

}  // namespace fuse_trace

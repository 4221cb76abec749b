#include "tools/assetgen/pieces_shapes.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace assetgen::pieces {
namespace {

// Rotation 0 of kinds 0..11 as "column,row" pairs, and the point each kind
// turns about, in box cell units (cell (c, r) has its centre at (c, r)).
struct Shape {
  std::vector<Cell> cells;
  double cx, cy;
};

const Shape& ShapeOf(int kind) {
  static const Shape shapes[12] = {
      {{{0, 1}, {1, 1}, {2, 1}, {3, 1}}, 1.5, 1.5},          // 0 bar, about the box middle
      {{{2, 0}, {1, 1}, {2, 1}, {3, 1}}, 2, 1},              // 1 T
      {{{1, 1}, {2, 1}, {1, 2}, {2, 2}}, 1.5, 1.5},          // 2 square, about the box middle
      {{{3, 0}, {1, 1}, {2, 1}, {3, 1}}, 2, 1},              // 3 L
      {{{1, 0}, {1, 1}, {2, 1}, {3, 1}}, 2, 1},              // 4 J
      {{{2, 0}, {3, 0}, {1, 1}, {2, 1}}, 2, 1},              // 5 S
      {{{1, 0}, {2, 0}, {2, 1}, {3, 1}}, 2, 1},              // 6 Z
      {{{1, 0}, {3, 0}, {1, 1}, {2, 1}, {3, 1}}, 2, 1},      // 7 U, five cells
      {{{1, 0}, {2, 0}, {3, 0}, {2, 1}, {2, 2}}, 2, 1},      // 8 long T, five cells
      {{{2, 0}, {1, 1}, {2, 1}, {3, 1}, {2, 2}}, 2, 1},      // 9 plus, five cells
      {{{1, 1}, {2, 1}, {3, 1}}, 2, 1},                      // 10 three in a row
      {{{1, 0}, {1, 1}, {2, 1}}, 1.5, 0.5},                  // 11 corner of three, turns in place
  };
  return shapes[kind];
}

// One quarter turn clockwise on screen: right goes to down.
Cell Turn(Cell a, double cx, double cy) {
  double c = cx - (a.r - cy), r = cy + (a.c - cx);
  return {static_cast<int>(c + 0.5), static_cast<int>(r + 0.5)};
}

uint8_t TurnArms(uint8_t m) {
  uint8_t o = 0;
  if (m & kLeft) o |= kUp;
  if (m & kUp) o |= kRight;
  if (m & kRight) o |= kDown;
  if (m & kDown) o |= kLeft;
  return o;
}

void ScanOrder(std::vector<Cell>& v) {
  std::sort(v.begin(), v.end(), [](Cell a, Cell b) { return a.c != b.c ? a.c < b.c : a.r < b.r; });
}

// Fuse paths of rotation 0, one string per kind and set. Each path is
// "c r E MOVES X": it enters cell (c, r) through side E, moves from cell to
// cell (L, R, U, D; "-" for none) and leaves the last cell through side X.
// "." for E or X ends the path at a cell's middle, where it joins another.
// Paths are separated by "; ".
const char* const kFusePaths[12][3] = {
    {"0 1 L RRR R", "0 1 U RRR D", "0 1 D RRR R; 2 1 . - U"},
    {"1 1 L RR R; 2 1 . U U", "1 1 D RU R; 3 1 U - D", "2 0 L DR U; 1 1 L - D"},
    {"1 1 L RDL L", "1 1 U DRU U", "1 1 U D D; 1 2 . R R; 2 1 U - R"},
    {"1 1 L RRU U", "1 1 D RRU R", "3 0 U D D; 1 1 U RR ."},
    {"1 0 U DRR R", "1 0 L DRR D", "1 0 R D D; 2 1 U R R"},
    {"1 1 L RUR R", "1 1 D RUR U", "2 0 U D D; 1 1 L R .; 2 0 . R D"},
    {"1 0 L RDR R", "1 0 U RDR D", "2 0 U D D; 1 0 L R .; 3 1 R L ."},
    {"1 0 U DRRU U", "1 0 L DRRU R", "1 1 L RR R; 1 0 U D .; 3 0 U D ."},
    {"1 0 L RR R; 2 0 . DD D", "1 0 U RDD L; 3 0 R - D", "3 0 R LDD R; 1 0 L - D"},
    {"1 1 L RR R; 2 0 U DD D", "2 1 . U L; 2 1 . R U; 2 1 . D R; 2 1 . L D",
     "1 1 L RR R; 2 0 L - R; 2 2 L - R"},
    {"1 1 L RR R", "1 1 U RR D", "1 1 L RR U; 2 1 . - D"},
    {"1 0 U DR R", "1 0 L DR U", "1 0 R D D; 1 1 . R D"},
};

uint8_t ArmOf(char d) {
  switch (d) {
    case 'L': return kLeft;
    case 'R': return kRight;
    case 'U': return kUp;
    case 'D': return kDown;
    case '.': return 0;
  }
  throw std::logic_error(std::string("bad fuse side ") + d);
}

uint8_t Opposite(uint8_t a) {
  return a == kLeft ? kRight : a == kRight ? kLeft : a == kUp ? kDown : kUp;
}

bool Holds(const std::vector<Cell>& cells, int c, int r) {
  return std::find(cells.begin(), cells.end(), Cell{c, r}) != cells.end();
}

ArmGrid ParsePaths(int kind, const char* text) {
  const auto& cells = ShapeOf(kind).cells;
  ArmGrid g{};
  std::string all(text);
  size_t pos = 0;
  while (pos < all.size()) {
    size_t end = all.find("; ", pos);
    if (end == std::string::npos) end = all.size();
    std::string p = all.substr(pos, end - pos);
    pos = end + 2;
    int c = p[0] - '0', r = p[2] - '0';
    char entry = p[4];
    size_t sp = p.find(' ', 6);
    std::string moves = p.substr(6, sp - 6);
    char exit = p[sp + 1];
    auto outward = [&](uint8_t a) {
      int dc = a == kLeft ? -1 : a == kRight ? 1 : 0, dr = a == kUp ? -1 : a == kDown ? 1 : 0;
      if (Holds(cells, c + dc, r + dr)) throw std::logic_error("fuse end inside kind " + std::to_string(kind));
    };
    if (!Holds(cells, c, r)) throw std::logic_error("fuse outside kind " + std::to_string(kind));
    if (uint8_t a = ArmOf(entry)) { outward(a); g[r * 4 + c] |= a; }
    for (char m : moves) {
      if (m == '-') continue;
      uint8_t a = ArmOf(m);
      g[r * 4 + c] |= a;
      c += a == kLeft ? -1 : a == kRight ? 1 : 0;
      r += a == kUp ? -1 : a == kDown ? 1 : 0;
      if (!Holds(cells, c, r)) throw std::logic_error("fuse leaves kind " + std::to_string(kind));
      g[r * 4 + c] |= Opposite(a);
    }
    if (uint8_t a = ArmOf(exit)) { outward(a); g[r * 4 + c] |= a; }
  }
  return g;
}

}  // namespace

std::vector<Cell> Cells(int kind, int rot) {
  if (kind >= 12) return {{2, 1}};
  const Shape& s = ShapeOf(kind);
  std::vector<Cell> v = s.cells;
  for (int i = 0; i < rot; ++i)
    for (Cell& a : v) a = Turn(a, s.cx, s.cy);
  ScanOrder(v);
  return v;
}

ArmGrid FuseArms(int kind, int rot, int set) {
  const Shape& s = ShapeOf(kind);
  ArmGrid g = ParsePaths(kind, kFusePaths[kind][set]);
  for (int i = 0; i < rot; ++i) {
    ArmGrid t{};
    for (int r = 0; r < 4; ++r)
      for (int c = 0; c < 4; ++c)
        if (g[r * 4 + c]) {
          Cell n = Turn({c, r}, s.cx, s.cy);
          t[n.r * 4 + n.c] = TurnArms(g[r * 4 + c]);
        }
    g = t;
  }
  return g;
}

}  // namespace assetgen::pieces

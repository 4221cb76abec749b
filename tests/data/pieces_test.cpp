// The piece pictures. Pieces exist only through the pixels at their cell
// centres, so the sheets are the piece set: these tests read them the way the
// game cuts and probes them and hold them to the screen map (where each kind
// sits, how it turns), to the single-block rule of the animated pieces, and,
// for Wickory, to the colours the fire follows, with a copy of the fire
// itself burning from detonators through every fuse piece into charges.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/bmp_file.h"
#include "tests/data/fuse_trace.h"

namespace {

using Image = bmp::Image565;

Image Load(const std::string& name) {
  Image img;
  std::string error;
  if (!bmp::Read(std::string(VORREL_TEST_DATA) + "/graphics/" + name, img, error)) {
    ADD_FAILURE() << name << ": " << error;
    img.width = img.height = 1;
    img.pixels.assign(1, 0);
  }
  return img;
}

Image Blank(int w, int h) {
  Image img;
  img.width = w;
  img.height = h;
  img.pixels.assign(static_cast<size_t>(w) * h, 0);
  return img;
}

uint16_t At(const Image& img, int x, int y) {
  return x >= 0 && y >= 0 && x < img.width && y < img.height ? img.at(x, y) : 0;
}

// Copies (sx, sy, w, h) of src to (dx, dy) of dst, clipped; keyed skips black.
void Blit(Image& dst, const Image& src, int sx, int sy, int w, int h, int dx, int dy, bool keyed) {
  for (int j = 0; j < h; ++j)
    for (int i = 0; i < w; ++i) {
      int x = dx + i, y = dy + j;
      if (x < 0 || y < 0 || x >= dst.width || y >= dst.height) continue;
      uint16_t v = At(src, sx + i, sy + j);
      if (keyed && v == 0) continue;
      dst.pixels[static_cast<size_t>(y) * dst.width + x] = v;
    }
}

Image Crop(const Image& src, int x, int y, int w, int h) {
  Image out = Blank(w, h);
  Blit(out, src, x, y, w, h, 0, 0, false);
  return out;
}

// ---------------------------------------------------------------------------
// The sprites as the game cuts them from the sheets.

enum Variant { kClassic, kBonus, kWickory };

struct Sprites {
  Image s[16][4][3];  // kind, rotation, fuse set
  Image glow[8];
};

void CutRows(Sprites& sp, const Image& sheet, int ylast, int set) {
  int k = -1, r = 0;
  for (int y = 0; y <= ylast; y += 80)
    for (int x = 0; x <= 560; x += 80) {
      if (x == 0 || x == 320) ++k;
      sp.s[k][r][set] = Crop(sheet, x, y, 80, 80);
      r = (r + 1) % 4;
    }
}

std::unique_ptr<Sprites> Cut(Variant v) {
  auto sp = std::make_unique<Sprites>();
  for (auto& kind : sp->s)
    for (auto& rot : kind)
      for (auto& s : rot) s = Blank(80, 80);
  if (v == kClassic) {
    CutRows(*sp, Load("classicpieces.bmp"), 320, 0);
  } else if (v == kBonus) {
    Image sheet = Load("bonuspieces.bmp");
    CutRows(*sp, sheet, 400, 0);
    for (int k = 12; k < 16; ++k)
      for (int r = 0; r < 4; ++r) sp->s[k][r][0] = Crop(sheet, (k - 12) * 80, 480, 80, 80);
  } else {
    Image sheet = Load("piecefuse1.bmp");
    CutRows(*sp, sheet, 400, 0);
    for (int k = 12; k < 14; ++k)
      for (int r = 0; r < 4; ++r) sp->s[k][r][0] = Crop(sheet, (k - 12) * 80, 480, 80, 80);
    for (int i = 0; i < 8; ++i) sp->glow[i] = Crop(sheet, 208 + 20 * i, 500, 20, 20);
    CutRows(*sp, Load("piecefuse2.bmp"), 400, 1);
    CutRows(*sp, Load("piecefuse3.bmp"), 400, 2);
  }
  return sp;
}

// ---------------------------------------------------------------------------
// Cells, read the way the game reads them: pixel (20c + 10, 20r + 10) not black.

struct Cell {
  int c, r;
  auto operator<=>(const Cell&) const = default;
};
using Cells = std::vector<Cell>;  // in the game's scan order: column by column

Cells CellsOf(const Image& sprite) {
  Cells out;
  for (int c = 0; c < 4; ++c)
    for (int r = 0; r < 4; ++r)
      if (sprite.at(20 * c + 10, 20 * r + 10)) out.push_back({c, r});
  return out;
}

bool Holds(const Cells& cells, Cell a) { return std::find(cells.begin(), cells.end(), a) != cells.end(); }

std::string Show(const Cells& cells) {
  std::string s;
  for (Cell a : cells) s += "(" + std::to_string(a.c) + "," + std::to_string(a.r) + ")";
  return s;
}

// A clockwise quarter turn on screen about (cx2 / 2, cy2 / 2) in cell units.
Cells Turned(const Cells& cells, int cx2, int cy2) {
  Cells out;
  for (Cell a : cells) {
    int c2 = cx2 - (2 * a.r - cy2), r2 = cy2 + (2 * a.c - cx2);
    out.push_back({c2 / 2, r2 / 2});
  }
  std::sort(out.begin(), out.end());
  return out;
}

Cells Sorted(Cells c) {
  std::sort(c.begin(), c.end());
  return c;
}

// The shape of a piece whatever its rotation and place, to tell kinds apart.
std::set<Cells> ShapeClass(const Cells& cells) {
  std::set<Cells> forms;
  Cells cur = cells;
  for (int i = 0; i < 4; ++i) {
    int c0 = 9, r0 = 9;
    for (Cell a : cur) c0 = std::min(c0, a.c), r0 = std::min(r0, a.r);
    Cells n;
    for (Cell a : cur) n.push_back({a.c - c0, a.r - r0});
    forms.insert(Sorted(n));
    Cells t;
    for (Cell a : cur) t.push_back({-a.r, a.c});
    cur = t;
  }
  return forms;
}

// ---------------------------------------------------------------------------
// Where each kind sits in rotation 0 and what it turns about (the screen map).

bool SpawnsAbove(int kind) { return kind == 0 || kind == 2 || kind == 10 || kind > 11; }

// Centre of the bounding box of rotation 0's cells, in sprite pixels, that
// puts the preview in its place.
std::pair<int, int> PreviewCentre(int kind) {
  if (kind == 0) return {40, 30};
  if (kind == 2) return {40, 40};
  if (kind == 11) return {40, 20};
  if (kind >= 8) return {50, 30};
  return {50, 20};
}

// Doubled centre of the quarter turns: the box middle for the bar and the
// square, the middle of its two-by-two square for kind 11, cell (2, 1) else.
std::pair<int, int> TurnCentre2(int kind) {
  if (kind == 0 || kind == 2) return {3, 3};
  if (kind == 11) return {3, 1};
  return {4, 2};
}

void ExpectPlacement(const Image& sprite, int kind, const std::string& where) {
  Cells cells = CellsOf(sprite);
  ASSERT_FALSE(cells.empty()) << where << ": no cells";
  int c0 = 9, c1 = -1, r0 = 9, r1 = -1;
  for (Cell a : cells) c0 = std::min(c0, a.c), c1 = std::max(c1, a.c), r0 = std::min(r0, a.r), r1 = std::max(r1, a.r);
  auto [px, py] = PreviewCentre(kind);
  EXPECT_EQ(10 * (c0 + c1 + 1), px) << where << ": preview off centre " << Show(cells);
  EXPECT_EQ(10 * (r0 + r1 + 1), py) << where << ": preview off centre " << Show(cells);
  EXPECT_EQ(r0 == 0, !SpawnsAbove(kind)) << where << ": row 0 " << Show(cells);
  auto span = [&](int a0, int a1, int b0, int b1) { return c0 == a0 && c1 == a1 && r0 == b0 && r1 == b1; };
  switch (kind) {
    case 0: EXPECT_EQ(cells, (Cells{{0, 1}, {1, 1}, {2, 1}, {3, 1}})) << where; break;
    case 2: EXPECT_EQ(cells, (Cells{{1, 1}, {1, 2}, {2, 1}, {2, 2}})) << where; break;
    case 1: case 3: case 4: case 5: case 6:
      EXPECT_EQ(cells.size(), 4u) << where;
      EXPECT_TRUE(span(1, 3, 0, 1)) << where << Show(cells);
      break;
    case 7: EXPECT_TRUE(span(1, 3, 0, 1) || span(2, 2, 0, 1)) << where << Show(cells); break;
    case 8: case 9:
      EXPECT_TRUE(span(1, 3, 0, 2) || span(2, 2, 0, 2)) << where << Show(cells);
      if (kind == 9) {
        EXPECT_TRUE(Holds(cells, {2, 1})) << where << Show(cells);
      }
      break;
    case 10: EXPECT_EQ(cells, (Cells{{1, 1}, {2, 1}, {3, 1}})) << where; break;
    case 11: EXPECT_TRUE(span(1, 2, 0, 1) || span(0, 3, 0, 1)) << where << Show(cells); break;
    default: EXPECT_EQ(cells, (Cells{{2, 1}})) << where; break;
  }
}

void ExpectTurns(const Sprites& sp, int kind, int set, const std::string& where) {
  auto [cx2, cy2] = TurnCentre2(kind);
  for (int r = 0; r < 4; ++r) {
    Cells now = CellsOf(sp.s[kind][r][set]), next = CellsOf(sp.s[kind][(r + 1) % 4][set]);
    EXPECT_LE(now.size(), 5u) << where << " rotation " << r;
    EXPECT_EQ(Turned(now, cx2, cy2), Sorted(next)) << where << ": rotation " << r + 1 << " is not rotation " << r
                                                   << " turned a quarter clockwise";
  }
}

TEST(PieceSheets, EveryKindSitsAndTurnsAsTheScreenMapSays) {
  const int kinds[3] = {7, 16, 14};
  const int sets[3] = {1, 1, 3};
  std::map<int, Cells> shapes;  // kind -> rotation 0 cells, the same in every variant
  for (Variant v : {kClassic, kBonus, kWickory}) {
    auto sp = Cut(v);
    for (int set = 0; set < sets[v]; ++set)
      for (int k = 0; k < kinds[v]; ++k) {
        if (v == kWickory && set > 0 && k > 11) continue;
        std::string where = "variant " + std::to_string(v) + " kind " + std::to_string(k) + " set " + std::to_string(set);
        ExpectPlacement(sp->s[k][0][set], k, where);
        ExpectTurns(*sp, k, set, where);
        Cells cells = CellsOf(sp->s[k][0][set]);
        if (k < 12 && !shapes.count(k)) shapes[k] = cells;
        if (k < 12) {
          EXPECT_EQ(cells, shapes[k]) << where << ": not the shape the other sheets show";
        }
      }
  }
  // Twelve different shapes: the seven four-cell pieces and five more.
  std::set<std::set<Cells>> classes;
  for (auto& [k, cells] : shapes) {
    if (k < 7) {
      EXPECT_EQ(cells.size(), 4u) << "kind " << k;
    }
    EXPECT_TRUE(classes.insert(ShapeClass(cells)).second) << "kind " << k << " repeats another kind's shape";
  }
  EXPECT_EQ(classes.size(), 12u);
}

// ---------------------------------------------------------------------------
// Animation frames are pasted opaque into the sprites every frame.

TEST(PieceSheets, AnimatedPiecesStayOneBlockInEveryFrame) {
  auto bonus = Cut(kBonus);
  Image earth = Load("earth.bmp"), lines = Load("linearrow.bmp"), columns = Load("columnarrow.bmp");
  ASSERT_EQ(earth.width, 800);
  ASSERT_EQ(lines.width, 220);
  ASSERT_EQ(columns.width, 220);
  const Cells one{{2, 1}};
  for (int i = 0; i < 20; ++i) {
    EXPECT_NE(earth.at(40 * i + 30, 10), 0) << "earth frame " << i;
    for (auto [x, y] : {std::pair{10, 10}, {10, 30}, {30, 30}})
      EXPECT_EQ(earth.at(40 * i + x, y), 0) << "earth frame " << i << " at " << x << "," << y;
    Image s = bonus->s[15][0][0];
    Blit(s, earth, 40 * i, 0, 40, 40, 20, 20, false);
    EXPECT_EQ(CellsOf(s), one) << "earthquake with frame " << i;
  }
  for (int i = 0; i < 11; ++i)
    for (auto [kind, strip] : {std::pair{13, &columns}, {14, &lines}}) {
      EXPECT_NE(strip->at(20 * i + 10, 10), 0) << "arrow frame " << i << " of kind " << kind;
      Image s = bonus->s[kind][0][0];
      Blit(s, *strip, 20 * i, 0, 20, 20, 40, 20, false);
      EXPECT_EQ(CellsOf(s), one) << "kind " << kind << " with frame " << i;
    }
  // The bomb's sparks start at its fuse tip.
  EXPECT_NE(bonus->s[12][0][0].at(26, 12), 0);
  EXPECT_EQ(bonus->s[12][0][0].at(30, 10), 0);

  auto fuse = Cut(kWickory);
  Image charges = Load("bombs.bmp"), detonators = Load("detonators.bmp");
  ASSERT_EQ(charges.width, 260);
  ASSERT_EQ(detonators.width, 160);
  for (int i = 0; i < 13; ++i) {
    EXPECT_NE(charges.at(20 * i + 10, 10), 0) << "charge frame " << i;
    Image charge = fuse->s[12][0][0], nine = fuse->s[9][0][1];
    Blit(charge, charges, 20 * i, 0, 20, 20, 40, 20, false);
    Blit(nine, charges, 20 * i, 0, 20, 20, 40, 20, false);
    EXPECT_EQ(CellsOf(charge), one) << "charge with frame " << i;
    EXPECT_EQ(CellsOf(nine), CellsOf(fuse->s[9][0][0])) << "kind 9 with charge frame " << i;
  }
  for (int i = 0; i < 8; ++i) {
    EXPECT_NE(detonators.at(20 * i + 10, 10), 0) << "detonator frame " << i;
    Image s = fuse->s[13][0][0];
    Blit(s, detonators, 20 * i, 0, 20, 20, 40, 20, false);
    EXPECT_EQ(CellsOf(s), one) << "detonator with frame " << i;
  }
}

// Pictures that fill cells of the field: every cell they stand for reads as occupied.
TEST(PieceSheets, FieldPicturesFillTheirCells) {
  Image bomb0 = Load("megabomb0.bmp");
  ASSERT_EQ(bomb0.width, 40);
  for (auto [x, y] : {std::pair{10, 10}, {30, 10}, {10, 30}, {30, 30}})
    EXPECT_NE(bomb0.at(x, y), 0) << "megabomb0 at " << x << "," << y;
  for (int n = 1; n <= 5; ++n) {
    Image b = Load("megabomb" + std::to_string(n) + ".bmp");
    EXPECT_EQ(b.width, 40);
    EXPECT_EQ(b.height, 40);
  }
  for (const char* fill : {"classicfill.bmp", "bonusfill.bmp", "fusefill.bmp"}) {
    Image f = Load(fill);
    ASSERT_EQ(f.width, 100) << fill;
    for (int i = 0; i < 5; ++i) EXPECT_NE(f.at(20 * i + 10, 10), 0) << fill << " tile " << i;
  }
  for (auto [name, side] : {std::pair{"rocksmall.bmp", 1}, {"rockmedium.bmp", 2}, {"rocklarge.bmp", 3}}) {
    Image rock = Load(name);
    ASSERT_EQ(rock.width, 20 * side) << name;
    for (int c = 0; c < side; ++c)
      for (int r = 0; r < side; ++r) EXPECT_NE(rock.at(20 * c + 10, 20 * r + 10), 0) << name << " cell " << c << "," << r;
  }
  // Statistics panels: a picture on the left of each kind's row and a plain
  // strip where the game writes the count.
  for (auto [name, rows] : {std::pair{"classicStatus.bmp", 7}, {"BonusStatus.bmp", 16}, {"fuseStatus.bmp", 14}}) {
    Image p = Load(name);
    ASSERT_EQ(p.width, 70) << name;
    ASSERT_EQ(p.height, 480) << name;
    for (int k = 0; k < rows; ++k) {
      uint16_t plain = p.at(30, 30 * k);
      int odd = 0, picture = 0;
      for (int y = 30 * k; y < 30 * k + 30; ++y) {
        for (int x = 30; x < 70; ++x) odd += p.at(x, y) != plain;
        for (int x = 0; x < 30; ++x) picture += p.at(x, y) != plain;
      }
      EXPECT_EQ(odd, 0) << name << " row " << k << " is not plain at x 30..69";
      EXPECT_GT(picture, 60) << name << " row " << k << " has no picture";
    }
  }
}

// ---------------------------------------------------------------------------
// Wickory: the fire's colours.

struct Codes {
  fuse_trace::Colours c;
  bool IsCode(uint16_t v) const { return v == fuse_trace::kBurnt || c.IsFuse(v); }
  bool IsShade(uint16_t v) const { return v == c.fuse1 || v == c.fuse2; }
};

Codes Sampled(const Sprites& sp) {
  return {{sp.s[0][0][0].at(0, 29), sp.s[0][0][0].at(0, 30), sp.glow[0].at(9, 9), sp.glow[0].at(10, 10)}};
}

enum : uint8_t { kL = 1, kR = 2, kU = 4, kD = 8 };

// The fuse of one 20 x 20 cell at (ox, oy): which arms run from its middle to
// the middle of an edge; an empty string, or what is wrong.
std::string ReadCell(const Image& img, int ox, int oy, const Codes& k, uint8_t& arms, bool& charge) {
  arms = 0;
  charge = false;
  auto px = [&](int x, int y) { return img.at(ox + x, oy + y); };
  std::array<std::array<bool, 20>, 20> covered{};
  for (uint8_t arm : {kL, kR, kU, kD}) {
    int good = 0, coded = 0;
    for (int t = 0; t < 9; ++t) {
      int along = arm == kL || arm == kU ? t : 11 + t;
      bool h = arm == kL || arm == kR;
      int x1 = h ? along : 9, y1 = h ? 9 : along, x2 = h ? along : 10, y2 = h ? 10 : along;
      covered[y1][x1] = covered[y2][x2] = true;
      uint16_t a = px(x1, y1), b = px(x2, y2);
      coded += k.IsCode(a) || k.IsCode(b);
      good += k.IsShade(a) && k.IsShade(b) && a != b;
    }
    if (good == 9) arms |= arm;
    else if (coded) return "a broken arm " + std::to_string(arm);
  }
  int centreCodes = 0;
  for (int y : {9, 10})
    for (int x : {9, 10}) {
      covered[y][x] = true;
      uint16_t v = px(x, y);
      centreCodes += k.c.IsFuse(v);
      if (v == fuse_trace::kBurnt) return "the burnt marker in the middle";
    }
  if (arms && centreCodes != 4) return "arms without a middle";
  if (!arms && centreCodes) return "fuse colours in the middle without arms";
  bool c1 = px(9, 9) == k.c.charge1, c2 = px(10, 10) == k.c.charge2;
  if (c1 != c2) return "half a charge";
  charge = c1;
  if (charge && arms != (kL | kR | kU | kD)) return "a charge the fire cannot reach from every side";
  if (!charge && (px(10, 9) == k.c.charge1 || px(10, 9) == k.c.charge2 || px(9, 10) == k.c.charge1 ||
                  px(9, 10) == k.c.charge2 || px(9, 9) == k.c.charge2 || px(10, 10) == k.c.charge1))
    return "charge colours off their pixels";
  if (charge && (k.c.charge1 == px(10, 9) || k.c.charge1 == px(9, 10) || k.c.charge2 == px(10, 9) ||
                 k.c.charge2 == px(9, 10)))
    return "charge colours off their pixels";
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x)
      if (!covered[y][x] && k.IsCode(px(x, y)))
        return "a fire colour at " + std::to_string(x) + "," + std::to_string(y) + " off the fuse";
  return "";
}

int CountCodes(const Image& img, const Codes& k) {
  return static_cast<int>(std::count_if(img.pixels.begin(), img.pixels.end(), [&](uint16_t v) { return k.IsCode(v); }));
}

struct PieceFuse {
  std::array<uint8_t, 16> arms{};  // [r * 4 + c]
  std::array<bool, 16> charge{};
};

// Reads and checks the fuses of a whole sprite; failures are reported.
PieceFuse ReadSprite(const Image& s, const Codes& k, const std::string& where) {
  PieceFuse f;
  Cells cells = CellsOf(s);
  for (int r = 0; r < 4; ++r)
    for (int c = 0; c < 4; ++c) {
      if (!Holds(cells, {c, r})) {
        EXPECT_EQ(CountCodes(Crop(s, 20 * c, 20 * r, 20, 20), k), 0) << where << ": fire colours outside the piece";
        continue;
      }
      bool charge;
      std::string why = ReadCell(s, 20 * c, 20 * r, k, f.arms[r * 4 + c], charge);
      f.charge[r * 4 + c] = charge;
      EXPECT_EQ(why, "") << where << " cell " << c << "," << r;
    }
  // Arms between two cells of the piece meet.
  for (Cell a : cells) {
    uint8_t m = f.arms[a.r * 4 + a.c];
    if (Holds(cells, {a.c + 1, a.r})) {
      EXPECT_EQ(bool(m & kR), bool(f.arms[a.r * 4 + a.c + 1] & kL)) << where << " between " << a.c << "," << a.r;
    }
    if (Holds(cells, {a.c, a.r + 1})) {
      EXPECT_EQ(bool(m & kD), bool(f.arms[(a.r + 1) * 4 + a.c] & kU)) << where << " below " << a.c << "," << a.r;
    }
  }
  return f;
}

struct Exit {
  Cell inside, outside;
};

// Fuse networks of a piece, each with the exits where it meets the piece's edge.
std::vector<std::vector<Exit>> Networks(const Image& s, const PieceFuse& f, std::vector<Cells>* members = nullptr) {
  Cells cells = CellsOf(s);
  std::map<Cell, int> net;
  std::vector<std::vector<Exit>> out;
  const std::pair<uint8_t, Cell> steps[4] = {{kL, {-1, 0}}, {kR, {1, 0}}, {kU, {0, -1}}, {kD, {0, 1}}};
  for (Cell start : cells) {
    if (!f.arms[start.r * 4 + start.c] || net.count(start)) continue;
    std::vector<Exit> exits;
    Cells todo{start}, seen;
    net[start] = static_cast<int>(out.size());
    while (!todo.empty()) {
      Cell a = todo.back();
      todo.pop_back();
      seen.push_back(a);
      for (auto [arm, d] : steps) {
        if (!(f.arms[a.r * 4 + a.c] & arm)) continue;
        Cell b{a.c + d.c, a.r + d.r};
        if (!Holds(cells, b)) exits.push_back({a, b});
        else if (!net.count(b)) net[b] = static_cast<int>(out.size()), todo.push_back(b);
      }
    }
    out.push_back(exits);
    if (members) members->push_back(seen);
  }
  return out;
}

TEST(WickoryArt, FireColoursStandOnlyOnFusesAndCharges) {
  auto sp = Cut(kWickory);
  Codes k = Sampled(*sp);
  std::set<uint16_t> five = {fuse_trace::kBurnt, k.c.fuse1, k.c.fuse2, k.c.charge1, k.c.charge2};
  EXPECT_EQ(five.size(), 5u) << "the five codes must differ";
  EXPECT_EQ(five.count(0), 0u) << "black cannot be a fire colour";

  Image sheet1 = Load("piecefuse1.bmp");
  EXPECT_EQ(sheet1.at(406, 505), k.c.fuse1);
  EXPECT_EQ(sheet1.at(407, 505), k.c.fuse2);
  EXPECT_EQ(sheet1.at(408, 505), k.c.charge1);

  // Glow tiles, drawn keyed into the field over every charge on every frame of
  // a detonation: the charge colours and nothing else the fire could take.
  for (int i = 0; i < 8; ++i) {
    const Image& g = sp->glow[i];
    EXPECT_EQ(g.at(9, 9), k.c.charge1) << "glow tile " << i;
    EXPECT_EQ(g.at(10, 10), k.c.charge2) << "glow tile " << i;
    for (int t = 0; t < 20; ++t)
      for (int m : {9, 10}) {
        if (t == m) continue;  // the charge colours, checked above
        EXPECT_EQ(g.at(t, m), 0) << "glow tile " << i << " at " << t << "," << m;
        EXPECT_EQ(g.at(m, t), 0) << "glow tile " << i << " at " << m << "," << t;
      }
    EXPECT_EQ(CountCodes(g, k), 2) << "glow tile " << i;
  }

  // Every fuse sprite: arms two pixels wide in the two shades, joined across
  // cell edges, every network reaching the piece's edge at least twice, the
  // three sets different, and the charge in the middle of kind 9's set 1.
  for (int kind = 0; kind < 12; ++kind) {
    std::set<std::array<uint8_t, 16>> sets;
    for (int set = 0; set < 3; ++set)
      for (int r = 0; r < 4; ++r) {
        std::string where = "kind " + std::to_string(kind) + " set " + std::to_string(set) + " rotation " + std::to_string(r);
        const Image& s = sp->s[kind][r][set];
        PieceFuse f = ReadSprite(s, k, where);
        if (r == 0) sets.insert(f.arms);
        int arms = 0;
        for (uint8_t a : f.arms) arms += a != 0;
        EXPECT_GE(arms, 3) << where << ": too little fuse";
        for (auto& exits : Networks(s, f)) EXPECT_GE(exits.size(), 2u) << where << ": a fuse that leads nowhere";
        for (int c = 0; c < 16; ++c)
          EXPECT_EQ(f.charge[c], kind == 9 && set == 1 && c == 1 * 4 + 2) << where << " cell " << c % 4 << "," << c / 4;
      }
    EXPECT_EQ(sets.size(), 3u) << "kind " << kind << ": the three fuse sets must differ";
  }
  // The charge, in the sheet and in every frame of its strip; the detonator.
  PieceFuse charge = ReadSprite(sp->s[12][0][0], k, "kind 12");
  EXPECT_TRUE(charge.charge[1 * 4 + 2]);
  Image charges = Load("bombs.bmp");
  for (int i = 0; i < 13; ++i) {
    uint8_t arms;
    bool isCharge;
    EXPECT_EQ(ReadCell(charges, 20 * i, 0, k, arms, isCharge), "") << "charge frame " << i;
    EXPECT_TRUE(isCharge) << "charge frame " << i;
  }
  EXPECT_EQ(CountCodes(sp->s[13][0][0], k), 0) << "the detonator";

  // Nowhere else: no stray code on the sheets outside the pieces' boxes, the
  // glow tiles and the reference pixels, and none in the other pictures.
  for (const char* name : {"piecefuse1.bmp", "piecefuse2.bmp", "piecefuse3.bmp"}) {
    Image sheet = Load(name);
    for (int y = 0; y < sheet.height; ++y)
      for (int x = 0; x < sheet.width; ++x) {
        if (!k.IsCode(sheet.at(x, y)) || y < 480) continue;  // the boxes of kinds 0..11 are read above
        bool box = x < 80 && y < 560;                        // kind 12 (the detonator box has none)
        bool glow = x >= 208 && x < 368 && y >= 500 && y < 520;
        bool ref = y == 505 && x >= 406 && x <= 408;
        EXPECT_TRUE(box || glow || ref) << name << " has a fire colour at " << x << "," << y;
      }
  }
  for (const char* name : {"fusefill.bmp", "detonators.bmp", "rocksmall.bmp", "rockmedium.bmp", "rocklarge.bmp",
                           "cracked.bmp", "fuseStatus.bmp"})
    EXPECT_EQ(CountCodes(Load(name), k), 0) << name;
}

// ---------------------------------------------------------------------------
// The fire itself.

struct Field {
  Image px = Blank(260, 420);
  void Stamp(const Image& sprite, int x, int y) { Blit(px, sprite, 0, 0, 80, 80, x, y, true); }
  bool Burnt(Cell field) const { return px.at(20 * field.c + 9, 20 * field.r + 9) == fuse_trace::kBurnt; }
};

Image ChargeSprite(const Sprites& sp, const Image& strip, int frame) {
  Image s = sp.s[12][0][0];
  Blit(s, strip, 20 * frame, 0, 20, 20, 40, 20, false);
  return s;
}

TEST(WickoryArt, FireRunsFromADetonatorThroughEveryFusePieceIntoACharge) {
  auto sp = Cut(kWickory);
  Codes k = Sampled(*sp);
  Image strip = Load("bombs.bmp");
  int runs = 0;
  const int bx = 80, by = 160;  // the piece's box: field columns 4..7, rows 8..11
  for (int kind = 0; kind < 12; ++kind)
    for (int set = 0; set < 3; ++set)
      for (int r = 0; r < 4; ++r) {
        const Image& s = sp->s[kind][r][set];
        std::string where = "kind " + std::to_string(kind) + " set " + std::to_string(set) + " rotation " + std::to_string(r);
        PieceFuse f = ReadSprite(s, k, where);
        std::vector<Cells> members;
        auto nets = Networks(s, f, &members);
        for (size_t n = 0; n < nets.size(); ++n)
          for (const Exit& at : nets[n])
            for (const Exit& from : nets[n]) {
              if (at.outside == from.outside) continue;
              Field field;
              field.Stamp(s, bx, by);
              Cell charge{bx / 20 + at.outside.c, by / 20 + at.outside.r};
              field.Stamp(ChargeSprite(*sp, strip, runs % 13), 20 * charge.c - 40, 20 * charge.r - 20);
              Cell det{bx / 20 + from.outside.c, by / 20 + from.outside.r};
              auto result = fuse_trace::Burn(field.px, k.c, 20 * det.c, 20 * det.r);
              ++runs;
              EXPECT_TRUE(field.Burnt(charge)) << where << ": the fire from " << det.c << "," << det.r
                                               << " does not reach the charge at " << charge.c << "," << charge.r;
              for (Cell m : members[n])
                EXPECT_TRUE(field.Burnt({bx / 20 + m.c, by / 20 + m.r})) << where << ": cell " << m.c << "," << m.r
                                                                         << " does not burn";
              EXPECT_LT(result.maxHeads, 500) << where;
            }
      }
  EXPECT_GT(runs, 300);
}

TEST(WickoryArt, FusesOfNeighbouringPiecesTouch) {
  auto sp = Cut(kWickory);
  Codes k = Sampled(*sp);
  Image strip = Load("bombs.bmp");
  // Two bars end to end along the bottom row, a charge at the far end, the
  // detonator at the near end.
  Field field;
  field.Stamp(sp->s[0][0][0], 20, 380);   // columns 1..4 of row 20
  field.Stamp(sp->s[0][0][0], 100, 380);  // columns 5..8
  field.Stamp(ChargeSprite(*sp, strip, 12), 140, 380);  // column 9
  auto result = fuse_trace::Burn(field.px, k.c, 0, 400);
  for (int c = 1; c <= 9; ++c) EXPECT_TRUE(field.Burnt({c, 20})) << "column " << c;
  // The fire steps onto the centre of every bar cell, so each one scores (at
  // the charge's crossing it may step past the centre diagonally).
  EXPECT_GE(result.scoredCentres, 8);

  // A charge inside kind 9 of set 1 lights from any arm, in every rotation.
  for (int r = 0; r < 4; ++r) {
    Field f9;
    Image nine = sp->s[9][r][1];
    if (r == 0) Blit(nine, strip, 20 * 5, 0, 20, 20, 40, 20, false);
    f9.Stamp(nine, 80, 200);  // charge cell at field column 6, row 11
    PieceFuse pf = ReadSprite(nine, k, "kind 9 set 1 rotation " + std::to_string(r));
    auto nets = Networks(nine, pf);
    ASSERT_EQ(nets.size(), 1u);
    Cell det = nets[0][r].outside;
    fuse_trace::Burn(f9.px, k.c, 80 + 20 * det.c, 200 + 20 * det.r);
    EXPECT_TRUE(f9.Burnt({6, 11})) << "rotation " << r;
  }

  // A detonator beside a side without a fuse end lights nothing.
  Field quiet;
  quiet.Stamp(sp->s[0][0][0], 80, 380);  // bar in columns 4..7, fuse ends left and right
  Image before = quiet.px;
  auto none = fuse_trace::Burn(quiet.px, k.c, 100, 380);  // above column 5
  EXPECT_EQ(none.scoredCentres, 0);
  EXPECT_EQ(quiet.px.pixels, before.pixels);
}

}  // namespace

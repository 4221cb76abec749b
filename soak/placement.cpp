#include "soak/placement.h"

#include <cstdlib>

#include "display/assets.h"
#include "game/field.h"
#include "game/game_state.h"

namespace soak {

namespace {

// The probe reads the pixel at a cell's centre; outside the field it reads empty.
bool Occupied(const Grid& g, int x, int y) {
  if (x < 0 || y < 0 || x >= game::kFieldWidth || y >= game::kFieldHeight) return false;
  return g.cell[static_cast<size_t>(y / 20)][static_cast<size_t>(x / 20)];
}

// The landing and what it leaves: rows cleared, then the classic measures of
// a stack (height, holes, roughness).
double Evaluate(Grid g, const Piece& p, bool rowsClear) {
  int above = 0;
  for (int i = 0; i <= 4; ++i) {
    const int x = p.x + p.cells[p.rot][i][0], y = p.y + p.cells[p.rot][i][1];
    if (y < 0) {
      ++above;
      continue;
    }
    g.cell[static_cast<size_t>(y / 20)][static_cast<size_t>(x / 20)] = true;
  }
  int cleared = 0;
  if (rowsClear) {
    Grid kept;
    int to = kRows - 1;
    for (int r = kRows - 1; r >= 0; --r) {
      bool full = true;
      for (int c = 0; c < kColumns; ++c) full = full && g.cell[r][c];
      if (full) {
        ++cleared;
        continue;
      }
      kept.cell[static_cast<size_t>(to--)] = g.cell[static_cast<size_t>(r)];
    }
    g = kept;
  }
  int heights[kColumns] = {};
  int holes = 0;
  for (int c = 0; c < kColumns; ++c) {
    int top = kRows;
    for (int r = 0; r < kRows; ++r)
      if (g.cell[r][c]) {
        top = r;
        break;
      }
    heights[c] = kRows - top;
    for (int r = top + 1; r < kRows; ++r) holes += g.cell[r][c] ? 0 : 1;
  }
  int total = 0, rough = 0, highest = 0;
  for (int c = 0; c < kColumns; ++c) {
    total += heights[c];
    if (heights[c] > highest) highest = heights[c];
    if (c > 0) rough += std::abs(heights[c] - heights[c - 1]);
  }
  // A stack near the top ends the game: keep clear of it while there is a choice.
  const double danger = highest > kRows - 6 ? 4.0 * (highest - (kRows - 6)) : 0;
  return -0.51 * total + 0.76 * cleared - 0.36 * holes - 0.18 * rough - danger - 20.0 * above;
}

template <class Visit>
void ForEachLanding(const Grid& g, const Piece& from, Visit visit) {
  for (int turns = 0; turns < 4; ++turns) {
    Piece p = from;
    bool turned = true;
    for (int k = 0; k < turns && turned; ++k) {
      const int next = (p.rot + 1) % 4;
      turned = FlipFits(g, p, next);
      if (turned) p.rot = next;
    }
    if (!turned) continue;
    for (int dir : {0, -20, 20}) {
      Piece q = p;
      for (;;) {
        if (dir != 0) {
          if (!SlideFits(g, q, dir)) break;
          q.x += dir;
        }
        Piece landed = q;
        while (FallFits(g, landed)) landed.y += 20;
        visit(landed);
        if (dir == 0) break;
      }
    }
  }
}

}  // namespace

Grid ReadField(bool withBomb) {
  Grid g;
  const display::Surface& field = display::Assets.FieldSurfaces[0];
  if (field.Width < game::kFieldWidth || field.Height < game::kFieldHeight) return g;
  for (int r = 0; r < kRows; ++r)
    for (int c = 0; c < kColumns; ++c) g.cell[r][c] = field.Row(20 * r + 10)[20 * c + 10] != 0;
  if (withBomb) {
    const game::GameState& s = game::Game;
    for (int r = 0; r < kRows; ++r)
      for (int c = 0; c < kColumns; ++c) {
        const int x = 20 * c + 10, y = 20 * r + 10;
        if (x >= s.BombX && x < s.BombX + 40 && y >= s.BombY && y < s.BombY + 40) g.cell[r][c] = true;
      }
  }
  return g;
}

Piece ReadPiece() {
  const game::GameState& s = game::Game;
  Piece p;
  for (int r = 0; r < 4; ++r)
    for (int i = 0; i <= 4; ++i)
      for (int k = 0; k < 2; ++k) p.cells[r][i][k] = s.PieceCells[r][i][k];
  p.x = s.PieceX;
  p.y = s.PieceY;
  p.rot = s.PieceRot;
  return p;
}

bool FlipFits(const Grid& g, const Piece& p, int rot) {
  for (int i = 0; i <= 4; ++i) {
    const int x = p.x + p.cells[rot][i][0], y = p.y + p.cells[rot][i][1];
    if (y > game::kFieldHeight || x < 0 || x > game::kFieldWidth) return false;
    if (Occupied(g, x, y) && y > 0) return false;
  }
  return true;
}

bool SlideFits(const Grid& g, const Piece& p, int dx) {
  for (int i = 0; i <= 4; ++i) {
    const int x = p.x + p.cells[p.rot][i][0] + dx, y = p.y + p.cells[p.rot][i][1];
    if (dx < 0 ? x < 0 : x > game::kFieldWidth) return false;
    if (Occupied(g, x, y) && y > 0) return false;
  }
  return true;
}

bool FallFits(const Grid& g, const Piece& p) {
  for (int i = 0; i <= 4; ++i) {
    const int x = p.x + p.cells[p.rot][i][0], y = p.y + p.cells[p.rot][i][1];
    if (y + 20 > game::kFieldHeight || Occupied(g, x, y + 20)) return false;
  }
  return true;
}

Target BestTarget(const Grid& g, const Piece& p, bool rowsClear) {
  Target best;
  double bestScore = 0;
  ForEachLanding(g, p, [&](const Piece& landed) {
    const double score = Evaluate(g, landed, rowsClear);
    if (!best.valid || score > bestScore) {
      best = Target{landed.rot, landed.x, true};
      bestScore = score;
    }
  });
  return best;
}

int Reachable(const Grid& g, const Piece& p, std::array<Target, 52>& out) {
  int n = 0;
  ForEachLanding(g, p, [&](const Piece& landed) {
    if (n < static_cast<int>(out.size())) out[static_cast<size_t>(n++)] = Target{landed.rot, landed.x, true};
  });
  return n;
}

}  // namespace soak

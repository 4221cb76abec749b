// Where the soak's player puts a piece: the field as cells read from the
// field surface, the moves a piece could still make from where it hangs, and
// a score for the stack each landing would leave.
#pragma once
#include <array>
#include <cstdint>

namespace soak {

inline constexpr int kColumns = 13, kRows = 21;

struct Grid {
  std::array<std::array<bool, kColumns>, kRows> cell{};  // [row][column], row 0 at the top
};

// The field as the game's probe sees it, plus the Type C bomb's square,
// which blocks a piece like a block does.
Grid ReadField(bool withBomb);

// The falling piece as the game holds it: its cells' pixel offsets per
// rotation (five entries, repeats allowed) and where its box stands.
struct Piece {
  std::array<std::array<std::array<int, 2>, 5>, 4> cells{};
  int x = 0, y = 0, rot = 0;
};
Piece ReadPiece();

// The game's own collision tests, on the grid.
bool FlipFits(const Grid& g, const Piece& p, int rot);
bool SlideFits(const Grid& g, const Piece& p, int dx);
bool FallFits(const Grid& g, const Piece& p);

struct Target {
  int rot = 0;
  int x = 0;  // the box's x
  bool valid = false;
};

// The best landing reachable by turning first, then sliding, then dropping;
// rowsClear false for Wickory, where rows never clear.
Target BestTarget(const Grid& g, const Piece& p, bool rowsClear);
// Every reachable landing, for a careless choice: up to 4 x 13.
int Reachable(const Grid& g, const Piece& p, std::array<Target, 52>& out);

}  // namespace soak

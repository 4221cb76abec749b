// The piece grid: which box cells every kind fills in each rotation, the fuse
// paths painted on the Wickory pieces, and the exact pixel codes of the fire.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

namespace assetgen::pieces {

// Exact RGB565 codes the Wickory fire compares with. They are painted last,
// over everything else, and nowhere but on fuse lines and charge centres.
constexpr uint16_t kBurnt = 60000;    // written by the fire (0xEA60); never painted
constexpr uint16_t kFuse1 = 0xFF48;   // (255, 235, 66) fuse pixel rows/columns 9
constexpr uint16_t kFuse2 = 0xFD84;   // (255, 178, 33) fuse pixel rows/columns 10
constexpr uint16_t kCharge1 = 0xF904; // (255, 32, 33)  charge pixel (9, 9)
constexpr uint16_t kCharge2 = 0xFFFC; // (255, 255, 231) charge pixel (10, 10)
constexpr std::array<uint16_t, 5> kFireCodes = {kBurnt, kFuse1, kFuse2, kCharge1, kCharge2};

enum class Variant { Classic, Bonus, Fuse };

constexpr int kCell = 20;  // cell size in pixels
constexpr int kBox = 80;   // piece box

struct Cell {
  int c, r;  // box column and row, 0..3
  bool operator==(const Cell&) const = default;
};

// Fuse arms of a cell: from its centre to the middle of an edge.
enum Arm : uint8_t { kLeft = 1, kRight = 2, kUp = 4, kDown = 8 };
using ArmGrid = std::array<uint8_t, 16>;  // [row * 4 + column]

// Box cells of kind 0..15 in rotation 0..3, in the game's scan order
// (column by column, top to bottom). Kinds 12..15 are the single cell (2, 1).
std::vector<Cell> Cells(int kind, int rot);

// Fuse arms of Wickory kinds 0..11 in fuse set 0..2 (turned with the piece).
// Fuse set 1 of kind 9 carries a charge in its middle cell (2, 1).
ArmGrid FuseArms(int kind, int rot, int set);

// The charge cell of kind 9, fuse set 1, in every rotation.
constexpr Cell kChargeCell{2, 1};

}  // namespace assetgen::pieces

// The two settings files the game ships with: the high-score tables and the
// menu settings. Both are plain text, one value a line, CR LF endings.
#include <cctype>
#include <fstream>
#include <string>
#include <vector>

#include "tools/assetgen/registry.h"

namespace assetgen {
namespace {

struct Score {
  const char* name;
  int score, lines, level;
};

// Seven tables of five, in file order: Classic A, B, C, Bonus A, B, C, Wickory.
// The fifth places are low enough for a first game to beat. Type B shows the
// lines still to clear (0 when the 30 were done); Type C's level rose with bombs.
const Score kTables[7][5] = {
    {{"ACE", 30000, 64, 6}, {"NOVA", 18500, 45, 4}, {"PIXIE", 9200, 28, 2}, {"TANGO", 4100, 14, 1},
     {"BLIP", 1500, 6, 0}},
    {{"MAVERICK", 22000, 0, 5}, {"JUNO", 12000, 0, 3}, {"ORBIT", 7400, 0, 2}, {"KIWI", 3300, 8, 0},
     {"WREN", 1200, 19, 0}},
    {{"COMET", 26000, 41, 3}, {"ZIGGY", 15500, 30, 2}, {"RUBY", 8800, 22, 1}, {"ECHO", 3900, 12, 0},
     {"PEBBLE", 1400, 5, 0}},
    {{"GIZMO", 42000, 70, 7}, {"HALO", 24000, 48, 4}, {"INDIGO", 12500, 31, 3}, {"MOXIE", 5200, 16, 1},
     {"OPAL", 1800, 7, 0}},
    {{"SPROCKET", 28000, 0, 5}, {"LUMEN", 15000, 0, 3}, {"QUILL", 8600, 0, 2}, {"FABLE", 3800, 6, 0},
     {"TOPAZ", 1500, 17, 0}},
    {{"NIMBUS", 33000, 44, 3}, {"VIOLET", 19000, 33, 2}, {"ZEPHYR", 10200, 24, 1}, {"JOLT", 4600, 13, 0},
     {"YUKON", 1600, 6, 0}},
    {{"CINDER", 20000, 240, 4}, {"FLINT", 11000, 150, 3}, {"SPARKY", 6500, 95, 1}, {"BRAMBLE", 2800, 40, 0},
     {"EMBER", 1000, 15, 0}},
};

// The characters a name can be typed with (the keyboard's keys, upper case),
// less the double quote, which a quoted field cannot hold.
bool TypeableName(const std::string& n) {
  static const std::string kKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789&!?/+-:'. ";
  if (n.empty() || n.size() > 8) return false;
  for (char ch : n)
    if (kKeys.find(ch) == std::string::npos) return false;
  return true;
}

void WriteLines(const Context& ctx, const Entry& e, const std::vector<std::string>& lines) {
  std::ofstream out(ctx.Out(e.path), std::ios::binary | std::ios::trunc);
  for (const auto& l : lines) out << l << "\r\n";
  if (!out) Fail(e, "cannot write");
}

}  // namespace

ASSETGEN_GENERATOR(ui_highscores) {
  std::vector<std::string> lines;
  for (const auto& table : kTables) {
    for (int r = 0; r < 5; ++r) {
      const Score& s = table[r];
      if (!TypeableName(s.name)) Fail(entry, std::string("name cannot be typed: ") + s.name);
      if (r > 0 && table[r - 1].score < s.score) Fail(entry, std::string("table out of order at ") + s.name);
      lines.push_back('"' + std::string(s.name) + '"');
      lines.push_back(std::to_string(s.score));
      lines.push_back(std::to_string(s.lines));
      lines.push_back(std::to_string(s.level));
    }
  }
  WriteLines(ctx, entry, lines);
}

// Classic, type A, level 0, height 0, easy, field darkened by half, music,
// effects and voices on, a random track.
ASSETGEN_GENERATOR(ui_settings) {
  WriteLines(ctx, entry, {"0", "0", "0", "0", "0", "5", "1", "1", "1", "0"});
}

}  // namespace assetgen

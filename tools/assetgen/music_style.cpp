#include "tools/assetgen/music_style.h"

#include <map>
#include <sstream>

namespace music {
namespace {

struct PatternDef {
  const char* name;
  const char* meter;  // "*" fits any meter
  int step;
  const char* steps;
};

constexpr int E = kPpq / 2;   // eighth
constexpr int S = kPpq / 4;   // sixteenth

// Harmony and bass figures. Bar-anchored, so a chord change on a beat picks the
// figure up where the bar is, which keeps the pulse even through changes.
const PatternDef kPatterns[] = {
    // chords
    {"strum", "4/4", E, "c - c - c - c -"},
    {"strum", "3/4", E, "c - c - c -"},
    {"strum", "6/8", E, "c - - c - -"},
    {"arp", "4/4", E, "1 3 5 8 10 8 5 3"},
    {"arp", "3/4", E, "1 5 8 10 8 5"},
    {"arp", "6/8", E, "1 5 8 10 8 5"},
    {"arp16", "*", S, "1 3 5 8 10 8 5 3"},
    {"alberti", "*", E, "1 5 3 5"},
    {"alberti", "6/8", E, "1 5 3 5 3 5"},
    {"broken", "4/4", E, "1 5 10 5 8 5 10 5"},
    {"broken", "3/4", E, "1 5 10 5 8 5"},
    {"broken", "6/8", E, "1 5 10 8 5 3"},
    {"offbeat", "4/4", E, ". c . c . c . c"},
    {"offbeat", "3/4", E, ". c . c . c"},
    {"offbeat", "6/8", E, ". c c . c c"},
    {"waltz", "3/4", E, ". . c - c -"},
    {"waltz", "6/8", E, ". c c . c c"},
    {"waltz", "4/4", E, ". . c - . . c -"},
    {"stabs", "4/4", E, "c - - c - - c -"},
    {"stabs", "3/4", E, "c - - c - -"},
    {"stabs", "6/8", E, "c - . c - ."},
    {"pulse", "*", E, "c"},
    {"hymn", "4/4", E, "c - - - c - - -"},
    {"hymn", "3/4", E, "c - - - - -"},
    {"hymn", "6/8", E, "c - - c - -"},
    {"pop", "4/4", E, "c - c c . c c -"},
    {"pop", "6/8", E, "c - c c - c"},
    {"charleston", "4/4", E, "c - - c - - . ."},
    {"tremolo", "*", S, "c"},
    // bass
    {"half", "4/4", E, "1 - - - 5, - - -"},
    {"half", "3/4", E, "1 - - - 5, -"},
    {"half", "6/8", E, "1 - - 5, - -"},
    {"root4", "4/4", E, "1 - 1 - 1 - 1 -"},
    {"root4", "3/4", E, "1 - 1 - 1 -"},
    {"root4", "6/8", E, "1 - - 1 - -"},
    {"root8", "*", E, "1"},
    {"octave", "*", E, "1 8"},
    {"rootfifth", "4/4", E, "1 - 5, - 1 - 5, -"},
    {"rootfifth", "3/4", E, "1 - 5, - 5, -"},
    {"rootfifth", "6/8", E, "1 - 5, 1 - 5,"},
    {"poprock", "4/4", E, "1 - - 1 - - 5 -"},
    {"oompah", "3/4", E, "1 - . . . ."},
    {"oompah", "6/8", E, "1 - . 5, - ."},
    {"oompah", "4/4", E, "1 - . . 5, - . ."},
    {"reel", "4/4", E, "1 - 5 - 8 - 5 -"},
    {"reel", "6/8", E, "1 - 5 8 - 5"},
    {"gallop", "6/8", E, "1 - 1 5, - 5,"},
    {"boogie", "4/4", E, "1 3 5 6 8 6 5 3"},
    {"funk", "4/4", S, "1 - . 1 . . 8 . 1 - . . 5 . 8 ."},
    {"pedal", "*", E, "1 1 1 1 1 1 1 8"},
};

const std::map<std::string, std::map<std::string, std::vector<DrumLine>>>& Grooves() {
  static const std::map<std::string, std::map<std::string, std::vector<DrumLine>>> g = {
      {"4/4",
       {{"rock", {{36, "X.......X.x....."}, {38, "....X.......X..."}, {42, "x.x.x.x.x.x.x.x."}}},
        {"pop", {{36, "X.....x.X......."}, {38, "....X.......X..."}, {42, "xoxoxoxoxoxoxoxo"}}},
        {"disco", {{36, "X...X...X...X..."}, {38, "....X.......X..."}, {42, "x...x...x...x..."},
                   {46, "..x...x...x...x."}}},
        {"electro", {{36, "X...X...X...X..."}, {39, "....X.......X..."}, {42, "xoxxxoxxxoxxxoxx"},
                     {82, "..x...x...x...x."}}},
        {"half", {{36, "X.........x....."}, {38, "........X......."}, {42, "x.x.x.x.x.x.x.x."}}},
        {"shuffle", {{36, "X.......X.x....."}, {38, "....X.......X..."}, {51, "x.x.x.x.x.x.x.x."}}},
        {"jazz", {{51, "X...x.x.X...x.x."}, {44, "....x.......x..."}, {36, "o.......o......."}}},
        {"march", {{38, "X..xx.x.X..xx.x."}, {36, "X.......X......."}}},
        {"bossa", {{36, "X..xX..xX..xX..x"}, {37, "x..x..x...x..x.."}, {42, "xoxoxoxoxoxoxoxo"}}},
        {"reel", {{36, "X...x...X...x..."}, {38, "....X.......X..."}, {42, "x.x.x.x.x.x.x.x."},
                  {54, "..x...x...x...x."}}},
        {"ballad", {{36, "X.......x.x....."}, {37, "....x.......x..."}, {42, "x.o.x.o.x.o.x.o."}}},
        {"funk", {{36, "X..x..x...x..x.."}, {38, "....X..o.o..X..o"}, {42, "xoxoxoxoxoxoxoxo"}}},
        {"train", {{36, "X.......X......."}, {38, "o.x.o.X.o.x.o.X."}, {82, "xoxoxoxoxoxoxoxo"}}},
        {"tribal", {{36, "X..x..x.X..x..x."}, {45, "....x.......x..."}, {50, "..x.....x.x....."},
                    {70, "x.x.x.x.x.x.x.x."}}},
        {"soft", {{42, "x.o.x.o.x.o.x.o."}, {37, "....x.......x..."}}},
        {"hit", {{36, "X..............."}, {49, "X..............."}}}}},
      {"3/4",
       {{"waltz", {{36, "X..........."}, {37, "....x...x..."}, {42, "x.x.x.x.x.x."}}},
        {"rock", {{36, "X.......x..."}, {38, "....X...X..."}, {42, "x.x.x.x.x.x."}}},
        {"soft", {{42, "x.o.x.o.x.o."}, {37, "....x...x..."}}},
        {"hit", {{36, "X..........."}, {49, "X..........."}}}}},
      {"6/8",
       {{"jig", {{36, "X.....x....."}, {38, "......X....."}, {42, "x.x.x.x.x.x."}}},
        {"bodhran", {{36, "X.....X....."}, {45, "x.o.o.x.o.o."}, {42, "..x.x...x.x."}, {38, "......x....."}}},
        {"rock", {{36, "X.....x.x..."}, {38, "......X....."}, {42, "x.x.x.x.x.x."}}},
        {"soft", {{42, "x.o.o.x.o.o."}, {37, "......x....."}}},
        {"hit", {{36, "X..........."}, {49, "X..........."}}}}},
  };
  return g;
}

}  // namespace

bool FindPattern(const std::string& name, const Meter& meter, Pattern& out) {
  const PatternDef* any = nullptr;
  for (const auto& p : kPatterns) {
    if (name != p.name) continue;
    if (meter.Name() == p.meter) { any = &p; break; }
    if (std::string(p.meter) == "*" && !any) any = &p;
  }
  if (!any) return false;
  out.step = any->step;
  out.steps.clear();
  std::istringstream in(any->steps);
  for (std::string t; in >> t;) out.steps.push_back(t);
  return true;
}

bool FindGroove(const std::string& name, const Meter& meter, std::vector<DrumLine>& out) {
  out.clear();
  if (name == "none") return true;
  auto m = Grooves().find(meter.Name());
  if (m == Grooves().end()) return false;
  auto g = m->second.find(name);
  if (g == m->second.end()) return false;
  out = g->second;
  return true;
}

std::vector<DrumLine> Fill(const Meter& meter) {
  if (meter.Name() == "4/4")
    return {{38, "........X.xx...."}, {50, "............x..."}, {47, ".............x.."},
            {45, "..............x."}, {41, "...............x"}, {36, "........x......."}};
  return {{38, "......X.xx.."}, {47, "..........x."}, {43, "...........x"}, {36, "......x....."}};
}

}  // namespace music

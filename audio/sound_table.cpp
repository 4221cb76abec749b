#include <array>
#include <string>

#include "audio/sound_effects.h"

namespace audio {
namespace {

using Names = std::array<std::string, kSoundSlotCount>;

void Series(Names& t, int first, const std::string& stem, int from, int to) {
  for (int n = from; n <= to; ++n) t[static_cast<size_t>(first + n - from)] = stem + std::to_string(n) + ".wav";
}

Names Build() {
  Names t;
  const char* effects[] = {"menuexplode", "land",     "move",       "flip",     "lineout",
                           "downland",    "",         "lhchoose",   "checkbox", "closed1",
                           "closed2",     "riteland", "quakeland",  "glass",    "levelsound",
                           "pause",       "pause2",   "slide",      "blip",     "bubble",
                           "pop",         "hiss",     "zap",        "click",    "finalscreen2"};
  for (size_t i = 0; i < std::size(effects); ++i)
    if (*effects[i]) t[i] = std::string(effects[i]) + ".wav";
  t[101] = "classic.wav";
  t[102] = "bonus.wav";
  t[103] = "wickory.wav";
  t[104] = "typea.wav";
  t[105] = "typeb.wav";
  t[106] = "typec.wav";
  Series(t, 107, "single", 1, 5);
  Series(t, 112, "double", 1, 5);
  Series(t, 117, "triple", 1, 5);
  Series(t, 122, "vorrel", 1, 5);
  Series(t, 127, "megavorrel", 1, 3);
  t[130] = "linesweeper.wav";
  t[131] = "columnclear.wav";
  Series(t, 132, "quake", 1, 3);
  Series(t, 135, "bomb", 1, 3);
  Series(t, 138, "levelup", 1, 3);
  t[141] = "detonator.wav";
  t[142] = "letsplay.wav";
  // The third "what to do" line came late and sits after the gap.
  t[143] = "whattodo1.wav";
  t[144] = "whattodo2.wav";
  t[145] = "whattodo4.wav";
  Series(t, 147, "finally", 1, 4);
  Series(t, 151, "recovery", 1, 4);
  Series(t, 155, "yuck", 1, 4);
  t[159] = "whattodo3.wav";
  Series(t, 160, "youwin", 1, 3);
  Series(t, 163, "gameover", 1, 5);
  return t;
}

const Names& Table() {
  static const Names table = Build();
  return table;
}

}  // namespace

const std::string& SoundFileName(int index) {
  static const std::string none;
  if (index < 0 || index >= kSoundSlotCount) return none;
  return Table()[static_cast<size_t>(index)];
}

}  // namespace audio

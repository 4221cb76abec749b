// Accompaniment patterns and drum grooves that turn chord symbols into parts.
#pragma once
#include <string>
#include <vector>

#include "tools/assetgen/music_score.h"

namespace music {

// Steps of `step` ticks from the bar's start, cycling through `steps`:
// "1 3 5 7 8 10 12" chord tones (',' an octave lower), "c" the whole chord,
// "-" holds the step before, "." rests.
struct Pattern {
  int step = kPpq / 2;
  std::vector<std::string> steps;
};

// Special styles handled by the arranger: "pad", "whole", "walk", "none".
bool FindPattern(const std::string& name, const Meter& meter, Pattern& out);

// One drum per line: a note of the General MIDI kit and one character per
// sixteenth of the bar: 'X' accent, 'x' hit, 'o' ghost, '.' nothing.
struct DrumLine {
  int note;
  std::string hits;
};

// "none" gives an empty groove. The fill replaces the second half of a bar.
bool FindGroove(const std::string& name, const Meter& meter, std::vector<DrumLine>& out);
std::vector<DrumLine> Fill(const Meter& meter);

}  // namespace music

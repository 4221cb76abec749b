// Turns a score into MIDI tracks: written parts as they stand, pattern voices
// from the chord symbols, drums from the groove names.
#pragma once
#include <vector>

#include "tools/assetgen/music_midi.h"
#include "tools/assetgen/music_score.h"

namespace music {

struct Arrangement {
  std::vector<MidiTrack> tracks;  // tempo map first, then one per voice
  int endTick = 0;                // always a bar line
  double seconds = 0;
};

// Throws std::runtime_error on an unknown pattern or groove.
Arrangement Arrange(const Score& score);

}  // namespace music

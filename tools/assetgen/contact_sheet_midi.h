// Just enough of a standard MIDI file reader to tell how long a track plays.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace assetgen {

struct MidiSummary {
  int format = 0;
  int tracks = 0;
  int division = 0;        // ticks per quarter note (or the raw SMPTE word)
  int64_t endTick = 0;     // the latest event of any track
  int tempoChanges = 0;
  double seconds = 0;      // playing time by the tempo map
};

bool SummariseMidi(const std::vector<uint8_t>& data, MidiSummary& out, std::string& error);
bool SummariseMidiFile(const std::string& path, MidiSummary& out, std::string& error);

}  // namespace assetgen

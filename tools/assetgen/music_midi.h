// Standard MIDI files (format 1): track 0 carries the tempo map, every further
// track one channel. No running status, so every event stands on its own.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace music {

struct MidiNote {
  int tick = 0;
  int dur = 0;
  int pitch = 0;
  int velocity = 0;
};

class MidiTrack {
 public:
  void Name(const std::string& name) { Meta(0, 0x03, {name.begin(), name.end()}); }
  void Tempo(int tick, int microsPerQuarter);
  void TimeSignature(int num, int den);
  void Program(int channel, int program);
  void Controller(int channel, int number, int value);
  // Notes may overlap; a repeated pitch on one channel cuts the sounding one short
  // so that every note-on is closed by its own note-off.
  void Note(int channel, const MidiNote& n) { notes_.push_back({channel, n}); }

  // Chunk bytes; every event after `endTick` is an error, the end-of-track sits at endTick.
  std::vector<uint8_t> Encode(int endTick) const;

 private:
  struct Event {
    int tick;
    int order;  // meta 0, controller 1, note-off 2, note-on 3
    std::vector<uint8_t> bytes;
  };
  void Meta(int tick, int type, const std::vector<uint8_t>& data);
  std::vector<Event> events_;
  std::vector<std::pair<int, MidiNote>> notes_;
};

std::vector<uint8_t> EncodeMidiFile(int ticksPerQuarter, const std::vector<MidiTrack>& tracks, int endTick);

}  // namespace music

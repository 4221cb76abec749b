// Our score format for the music (assets/music/*.score; the format is described
// in assets/music/README.md). A score names its voices, writes sections as bars
// of chord symbols and melody notes, and strings the sections into a form.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace music {

constexpr int kPpq = 480;  // ticks per quarter note

struct Meter {
  int num = 4;
  int den = 4;
  int BarTicks() const { return num * kPpq * 4 / den; }
  bool Compound() const { return den == 8 && num % 3 == 0; }
  // A beat is a dotted quarter in 6/8, otherwise the denominator's note.
  int BeatTicks() const { return Compound() ? kPpq * 3 / 2 : kPpq * 4 / den; }
  std::string Name() const { return std::to_string(num) + "/" + std::to_string(den); }
};

// root < 0 is "no chord": pattern voices rest.
struct Chord {
  int root = -1;             // pitch class
  int bass = -1;             // pitch class of a slash bass, or -1
  std::vector<int> tones;    // semitones above the root, tones[0] == 0
  bool operator==(const Chord&) const = default;
};

struct ChordSlot {
  int start = 0;  // ticks from the bar's start
  int dur = 0;
  Chord chord;
  bool hold = false;  // '.': the previous chord goes on
};

struct WrittenNote {
  int start = 0;  // ticks from the bar's start
  int dur = 0;
  int pitch = 0;  // MIDI note number
};

using Bar = std::vector<WrittenNote>;

struct Section {
  std::string name;
  std::vector<std::vector<ChordSlot>> chords;  // one entry per bar
  std::map<std::string, std::vector<Bar>> parts;  // voice name -> bars
  int Bars() const;
};

struct Voice {
  std::string name;
  int program = 0;   // General MIDI program 0..127 (drum kit on the drum channel)
  int channel = 0;
  bool drums = false;
  int volume = 100;  // controller 7
  int pan = 64;
  int reverb = 40;
  int chorus = 0;
  int velocity = 90;
  std::string style;  // accompaniment pattern or drum groove; empty: written parts only
  int low = 48;       // lowest note of the register a pattern voice plays in
  int octave = 0;     // shifts everything the voice plays
  double legato = 0.9;
};

// One step of the form: a section with this pass's changes.
struct FormEntry {
  std::string section;
  std::map<std::string, std::vector<std::string>> route;  // part -> voices playing it
  std::map<std::string, std::string> styles;              // voice -> style for this pass
  std::vector<std::string> mute;
  int transpose = 0;   // semitones, everything
  int octave = 0;      // octaves, written parts only
  double bpm = 0;      // new tempo from here, 0: unchanged
  double ritTo = 0;    // slow down (or speed up) to this tempo over the pass
  bool fill = true;    // drum fill in the last bar
};

struct Score {
  std::string title;
  double bpm = 120;  // beats per minute
  Meter meter;
  double swing = 0;  // where the off-beat eighth falls, as a fraction of the beat (0: straight)
  bool loop = true;  // loops end on a bar line; one-shot cues end on their cadence
  std::vector<Voice> voices;
  std::map<std::string, Section> sections;
  std::vector<FormEntry> form;
  const Voice* FindVoice(const std::string& name) const;
};

// Throws std::runtime_error naming `where` and the line on any fault.
Score ParseScore(const std::string& text, const std::string& where);

// Chord symbol such as "F#m7", "Bb/D", "Csus4"; false if it is not one.
bool ParseChord(const std::string& symbol, Chord& out);

}  // namespace music

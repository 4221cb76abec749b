// The General MIDI synthesiser behind the music: a FluidSynth synth with one
// player per piece, rendered on demand into 16-bit stereo. The mixer's music
// stream pulls from it; the tests render it offline without any device.
#pragma once
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

typedef struct _fluid_hashtable_t fluid_settings_t;
typedef struct _fluid_synth_t fluid_synth_t;
typedef struct _fluid_player_t fluid_player_t;

namespace platform {

// The soundfonts tried in turn: those of SDL_SOUNDFONTS (separated by : or ;)
// when it is set, otherwise FluidSynth's own default soundfont setting, then
// the full GM set, the small one and the system's default link.
std::vector<std::string> DefaultSoundFonts();

// Reads a standard MIDI file whole and checks its structure (header, track
// chunks, every event within its track). False with the reason otherwise.
bool ReadMidiFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& why);

class MidiSynth {
 public:
  MidiSynth() = default;
  ~MidiSynth();
  MidiSynth(const MidiSynth&) = delete;
  MidiSynth& operator=(const MidiSynth&) = delete;

  // Creates the synth at the sample rate with the first soundfont that loads.
  // Loading a full soundfont takes a while, so it may run on another thread
  // while the rest is already used: until it is done, Render gives silence
  // and a started piece waits to begin.
  bool Open(int sampleRate, const std::vector<std::string>& soundFonts, std::string& why);
  std::string SoundFont();

  // Starts a checked MIDI file, stopping the piece before it at once.
  // plays: how many times it plays in a row.
  void Start(const std::vector<uint8_t>& midi, int plays);
  void Stop();
  // The tempo factor (1.0 normal) and the gain belong to the synth and carry
  // over from piece to piece.
  void SetTempo(double factor);
  void SetGain(double gain);
  // True while a started piece has not yet played out.
  bool Playing();

  // Interleaved stereo; may run on the audio thread while the game thread
  // starts and stops pieces.
  void Render(int16_t* stereo, int frames);

 private:
  // With the lock held.
  void DropPlayer();
  void BeginPiece();

  std::mutex lock_;
  fluid_settings_t* settings_ = nullptr;
  fluid_synth_t* synth_ = nullptr;
  fluid_player_t* player_ = nullptr;
  std::string soundFont_;
  double tempo_ = 1.0, gain_ = 0.2;
  std::vector<uint8_t> piece_;  // the piece started before the synth was ready
  int plays_ = 0;
};

}  // namespace platform

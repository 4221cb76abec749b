// The music device: MIDI files synthesised into the sound mixer's music
// stream. With no mixer (headless, no audio device) or no soundfont, the
// silent music device stands in: it checks every file as the real one does
// and remembers what it was asked to play.
#pragma once
#include <string>

namespace platform {

// After OpenSoundDevice: synthesises when the mixer plays, otherwise silent.
// The soundfont loads in the background; none found: one line on stderr,
// and the music stays silent.
void OpenMusicDevice();
void CloseMusicDevice();
// True when the music goes to the mixer (the soundfont may still be loading).
bool MusicDeviceAudible();

// Stops the piece before at once, then starts the file; plays: how many
// times it plays in a row. A missing file or one that is not a sound standard
// MIDI file throws core::GameFault naming it (the old piece stays stopped).
void StartMidiFile(const std::string& path, int plays);
// The same check of a file without playing it.
void CheckMidiFile(const std::string& path);
void StopMidiFile();
// Tempo factor (1.0 normal) and gain: the synth keeps them for every piece.
void SetMidiTempo(double factor);
void SetMidiGain(double gain);

// The tempo factor and gain last given, as they reach the synth (the silent
// device keeps them too, so the tests can read what the music would do).
double MidiTempo();
double MidiGain();

// The file last started and not stopped since ("" when none), and how many
// plays it was given.
const std::string& MidiFileStarted();
int MidiFilePlays();

}  // namespace platform

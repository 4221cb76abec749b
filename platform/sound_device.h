// The sound effect mixer: one slot per sound index, each slot on its own
// mixer channel, so replaying a slot restarts it while different slots mix.
// Without an audio device the silent mixer stands in: it checks every file
// as the real one would and counts what the game asks of it.
#pragma once
#include <cstdint>
#include <string>

namespace platform {

inline constexpr int kSoundSlots = 201;

// silent: no output wanted (headless). Otherwise opens the audio device and,
// when that fails, says so in one line on stderr and goes silent.
void OpenSoundDevice(bool silent);
void CloseSoundDevice();
// True while the real mixer runs (the music is rendered into its stream).
bool SoundDeviceAudible();
// A short chime on a channel of its own; false when nothing can sound.
bool PlaySystemBeep();

// Loads a WAV file into a slot. A missing or unreadable file throws
// core::GameFault naming it.
void LoadSoundSlot(int slot, const std::string& path);
bool SoundSlotLoaded(int slot);
int SoundSlotsLoaded();
// Stop, rewind, play once. Stop: stop and rewind.
void PlaySoundSlot(int slot);
void StopSoundSlot(int slot);
// How many times a slot was started since it was loaded (both mixers).
uint32_t SoundSlotStarts(int slot);
// A slot's one voice by the game clock, as both mixers play it: a replay
// restarts it from the beginning, it plays once and then falls silent, a
// stop silences it. atMs: how far into the sound it is.
struct SlotVoice {
  bool playing = false;
  uint32_t atMs = 0;
};
SlotVoice SoundSlotVoice(int slot);

// A WAV file's structure: RIFF/WAVE, a usable fmt chunk, a data chunk.
// False with the reason when the file is missing or not such a file.
// lengthMs, when given, receives the sound's length.
bool CheckWaveFile(const std::string& path, std::string& why, uint32_t* lengthMs = nullptr);

}  // namespace platform

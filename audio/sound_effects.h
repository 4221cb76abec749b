// Sound effects (indexes 0..99) and voices (100..200): one buffer per slot,
// loaded once by CreateSound, played from the start every time.
#pragma once
#include <cstdint>
#include <string>

#include "core/table.h"

namespace audio {

inline constexpr int kSoundSlotCount = 201;
inline constexpr int kFirstVoice = 100;

// Which slots hold a buffer (1) and which are empty (0).
extern core::Table<int16_t, 0, 200> SoundBuffers;

// The file of a slot below "\sounds\", "" for an empty slot or an index
// outside the table. 90 slots have one.
const std::string& SoundFileName(int index);

// Loads the slot from the game path ("\sounds\flip.wav"). A missing or
// unreadable file throws core::GameFault naming it.
void LoadSoundBuffer(int index, const std::string& gamePath);

// Effects obey SoundOn, voices VoiceOn, read at each call. Stops the slot,
// rewinds it and plays it once; an empty slot plays nothing. The sounds log
// counts a call as played when its switch is on and its slot holds a sound.
void PlaySoundEffect(int16_t index);
// Stops and rewinds the slot whatever the switches.
void StopSoundEffect(int16_t index);

}  // namespace audio

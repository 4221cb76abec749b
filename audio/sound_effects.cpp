#include "audio/sound_effects.h"

#include "core/hooks.h"
#include "platform/paths.h"
#include "core/settings.h"
#include "platform/sound_device.h"

namespace audio {

core::Table<int16_t, 0, 200> SoundBuffers = [] {
  core::Table<int16_t, 0, 200> t;
  t.name = "SoundBuffers";
  return t;
}();

void LoadSoundBuffer(int index, const std::string& gamePath) {
  SoundBuffers[index];  // an index outside the table is a fault before any file is touched
  platform::LoadSoundSlot(index, platform::DataPath(gamePath));
  SoundBuffers[index] = 1;
}

void PlaySoundEffect(int16_t index) {
  // An index with no sound asks nothing of the mixer: it is not logged, so
  // a logged "not played" always means a switch silenced the sound.
  if (SoundBuffers[index] == 0) return;
  const auto& s = core::Settings;
  const bool played = index <= 99 ? s.SoundOn == 1 : s.VoiceOn == 1;
  core::NoteSound(index, played);
  if (played) platform::PlaySoundSlot(index);
}

void StopSoundEffect(int16_t index) {
  SoundBuffers[index];
  core::NoteSoundStop(index);
  platform::StopSoundSlot(index);
}

}  // namespace audio

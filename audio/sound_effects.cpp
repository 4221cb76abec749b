#include "audio/sound_effects.h"

#include "frame/automation.h"
#include "frame/paths.h"
#include "frontend/settings.h"
#include "platform/sound_device.h"

namespace audio {

frame::Table<int16_t, 0, 200> SoundBuffers = [] {
  frame::Table<int16_t, 0, 200> t;
  t.name = "SoundBuffers";
  return t;
}();

void LoadSoundBuffer(int index, const std::string& gamePath) {
  SoundBuffers[index];  // an index outside the table is a fault before any file is touched
  platform::LoadSoundSlot(index, frame::DataPath(gamePath));
  SoundBuffers[index] = 1;
}

void PlaySoundEffect(int16_t index) {
  const auto& s = frontend::Settings;
  const bool allowed = index <= 99 ? s.SoundOn == 1 : s.VoiceOn == 1;
  const bool played = allowed && SoundBuffers[index] != 0;
  automation::NoteSound(index, played);
  if (played) platform::PlaySoundSlot(index);
}

void StopSoundEffect(int16_t index) {
  SoundBuffers[index];
  automation::NoteSoundStop(index);
  platform::StopSoundSlot(index);
}

}  // namespace audio

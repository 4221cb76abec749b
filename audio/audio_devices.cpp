#include "audio/audio_devices.h"

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/variables.h"
#include "platform/sound_device.h"

namespace audio {

void OpenAudioDevices(bool silent) { platform::OpenSoundDevice(silent); }

void ExposeAudioState() {
  vars::Expose("SoundBuffers", SoundBuffers);
  vars::Expose("TrackTitles", TrackTitles);
  vars::Expose("MusicVolume", MusicVolume);
  vars::Expose("MusicPath", MusicPath);
  vars::Expose("MusicSegment", MusicSegment);
  vars::Expose("MusicTempo", MusicTempo);
}

}  // namespace audio

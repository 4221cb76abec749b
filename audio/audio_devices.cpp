#include "audio/audio_devices.h"

#include "audio/music.h"
#include "platform/sound_device.h"

namespace audio {

void OpenAudioDevices(bool silent) {
  platform::OpenSoundDevice(silent);
  InitAudio();
}

void CloseAudioDevices() {
  ShutdownAudio();  // the music hangs on the mixer: it goes first
  platform::CloseSoundDevice();
}

void ExposeAudioState() {
  // Waits for the variables registry: SoundBuffers, TrackTitles, MusicVolume,
  // MusicPath, MusicSegment, MusicTempo.
}

}  // namespace audio

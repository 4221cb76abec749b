// The audio devices as a whole, for the start-up handler.
#pragma once

namespace audio {

// Opens the sound mixer; InitAudio then opens the music on it. silent: no
// output wanted (a back end without sound output), and no notice. Otherwise a missing audio
// device is one line on stderr and the game runs silent, still checking and
// counting every file. ShutdownAudio closes both.
void OpenAudioDevices(bool silent);

// The audio layer's state for dumps and `set`.
void ExposeAudioState();

}  // namespace audio

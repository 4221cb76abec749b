// Opening and closing the audio layer as a whole, for the start-up handler
// and ExitProgram.
#pragma once

namespace audio {

// silent: the headless back end, no output and no notice. Otherwise a
// missing audio device or soundfont is one line on stderr and the game runs
// silent (or without music), still checking and counting every file.
// Opens the sound mixer, then InitAudio for the music.
void OpenAudioDevices(bool silent);
// ShutdownAudio, then the sound mixer.
void CloseAudioDevices();

// The audio layer's state for dumps and `set`.
void ExposeAudioState();

}  // namespace audio

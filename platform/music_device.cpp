#include "platform/music_device.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

#include "core/errors.h"
#include "platform/music_device_synth.h"
#include "platform/sound_device.h"

namespace platform {
namespace {

std::unique_ptr<MidiSynth> synth;  // only while the mixer plays
std::thread soundFontLoader;
bool hooked = false;
std::string started;
int startedPlays = 0;
double tempo = 1.0, gain = 0.2;

void RenderHook(void*, Uint8* stream, int len) {
  // The mixer opened 16-bit stereo and converts for the device.
  synth->Render(reinterpret_cast<int16_t*>(stream), len / 4);
}

}  // namespace

void OpenMusicDevice() {
  if (synth || !SoundDeviceAudible()) return;
  int rate = 44100, channels = 2;
  Uint16 format = AUDIO_S16SYS;
  Mix_QuerySpec(&rate, &format, &channels);
  synth = std::make_unique<MidiSynth>();
  synth->SetTempo(tempo);
  synth->SetGain(gain);
  Mix_HookMusic(RenderHook, nullptr);
  hooked = true;
  // The full soundfont takes a second or more to load: the start-up goes on
  // meanwhile, and the music starts as soon as the synth is ready.
  soundFontLoader = std::thread([rate] {
    std::string why;
    if (!synth->Open(rate, DefaultSoundFonts(), why))
      std::fprintf(stderr, "vorrel: %s; the game runs without music\n", why.c_str());
    else
      std::fprintf(stderr, "vorrel: the music plays through %s\n", synth->SoundFont().c_str());
  });
}

void CloseMusicDevice() {
  if (soundFontLoader.joinable()) soundFontLoader.join();
  if (hooked) Mix_HookMusic(nullptr, nullptr);  // waits out a running callback
  hooked = false;
  synth.reset();
  started.clear();
  startedPlays = 0;
}

bool MusicDeviceAudible() { return synth != nullptr; }

void CheckMidiFile(const std::string& path) {
  std::vector<uint8_t> bytes;
  std::string why;
  if (!ReadMidiFile(path, bytes, why)) core::Fail(path + ": " + why);
}

void StartMidiFile(const std::string& path, int plays) {
  StopMidiFile();
  std::vector<uint8_t> bytes;
  std::string why;
  if (!ReadMidiFile(path, bytes, why)) core::Fail(path + ": " + why);
  if (synth) synth->Start(bytes, plays);
  started = path;
  startedPlays = plays;
}

void StopMidiFile() {
  if (synth) synth->Stop();
  started.clear();
  startedPlays = 0;
}

void SetMidiTempo(double factor) {
  tempo = factor;
  if (synth) synth->SetTempo(factor);
}

void SetMidiGain(double g) {
  gain = g;
  if (synth) synth->SetGain(g);
}

double MidiTempo() { return tempo; }
double MidiGain() { return gain; }

const std::string& MidiFileStarted() { return started; }
int MidiFilePlays() { return startedPlays; }

}  // namespace platform

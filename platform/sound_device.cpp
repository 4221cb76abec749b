#include "platform/sound_device.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>
#include <cstdio>

#include "core/errors.h"
#include "platform/clock.h"

namespace platform {
namespace {

// The slot's voice as the mixer is asked to play it; the silent mixer has
// only this.
struct Voice {
  bool on = false;
  uint32_t startTick = 0;
  int loops = 0;  // as Mix_PlayChannel takes it: 0 plays once, -1 for ever
};

struct Slot {
  bool loaded = false;
  Mix_Chunk* chunk = nullptr;  // only with the real mixer
  uint32_t starts = 0;
  uint32_t lengthMs = 0;
  Voice voice;
};

std::array<Slot, kSoundSlots> slots;
bool mixerOpen = false;

Slot& At(int slot) {
  if (slot < 0 || slot >= kSoundSlots) core::Fail("sound slot " + std::to_string(slot));
  return slots[static_cast<size_t>(slot)];
}

void Halt(int slot, Slot& s) {
  s.voice.on = false;
  if (s.chunk) Mix_HaltChannel(slot);
}

void PlayFromStart(int slot, Slot& s, int loops) {
  s.voice = Voice{true, TickMs(), loops};
  if (s.chunk && Mix_PlayChannel(slot, s.chunk, loops) < 0)
    core::Fail(std::string("Mix_PlayChannel: ") + Mix_GetError());
}

// The sound libraries below SDL (ALSA above all) print their own complaints
// when there is no device; the game says it in one line instead.
class QuietStderr {
 public:
  QuietStderr() {
    std::fflush(stderr);
    saved_ = dup(2);
    const int null = open("/dev/null", O_WRONLY);
    if (saved_ >= 0 && null >= 0) dup2(null, 2);
    if (null >= 0) close(null);
  }
  ~QuietStderr() {
    std::fflush(stderr);
    if (saved_ >= 0) dup2(saved_, 2), close(saved_);
  }

 private:
  int saved_;
};

bool OpenMixer(std::string& why) {
  QuietStderr quiet;
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return why = SDL_GetError(), false;
  // No format changes allowed: SDL converts, so the music renderer can rely on
  // 44.1 kHz stereo 16-bit.
  if (Mix_OpenAudioDevice(44100, AUDIO_S16SYS, 2, 1024, nullptr, 0) != 0) {
    why = Mix_GetError();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
  }
  // Channel = sound index: a slot never overlaps itself, different slots mix.
  // One more channel for the system beep.
  Mix_AllocateChannels(kSoundSlots + 1);
  return true;
}

}  // namespace

void OpenSoundDevice(bool silent) {
  if (mixerOpen || silent) return;
  std::string why;
  mixerOpen = OpenMixer(why);
  if (!mixerOpen) std::fprintf(stderr, "vorrel: no audio device (%s); the game runs silent\n", why.c_str());
}

void CloseSoundDevice() {
  for (Slot& s : slots) {
    if (s.chunk) {
      if (mixerOpen) Mix_HaltChannel(static_cast<int>(&s - slots.data()));
      Mix_FreeChunk(s.chunk);
    }
    s = Slot{};
  }
  if (mixerOpen) {
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    mixerOpen = false;
  }
}

bool SoundDeviceAudible() { return mixerOpen; }

bool PlaySystemBeep() {
  if (!mixerOpen) return false;
  // A short two-tone chime, made once: the desktop has no beep of its own.
  static std::vector<int16_t> samples;
  static Mix_Chunk* chunk = nullptr;
  if (!chunk) {
    const int rate = 44100, n = rate * 14 / 100;
    samples.resize(static_cast<size_t>(n) * 2);
    for (int i = 0; i < n; ++i) {
      double t = double(i) / rate, f = i < n / 2 ? 880.0 : 660.0;
      double env = std::min(1.0, std::min(i, n - i) / 220.0);
      auto v = static_cast<int16_t>(6000.0 * env * std::sin(2 * 3.14159265358979 * f * t));
      samples[2 * i] = samples[2 * i + 1] = v;
    }
    chunk = Mix_QuickLoad_RAW(reinterpret_cast<Uint8*>(samples.data()), static_cast<Uint32>(samples.size() * 2));
    if (!chunk) return false;
  }
  return Mix_PlayChannel(kSoundSlots, chunk, 0) >= 0;
}

void LoadSoundSlot(int slot, const std::string& path) {
  Slot& s = At(slot);
  // Both mixers check the file the same way, so headless and windowed runs
  // accept and refuse the same files.
  std::string why;
  uint32_t lengthMs = 0;
  if (!CheckWaveFile(path, why, &lengthMs)) core::Fail(path + ": " + why);
  Mix_Chunk* chunk = nullptr;
  if (mixerOpen) {
    chunk = Mix_LoadWAV(path.c_str());
    if (!chunk) core::Fail(path + ": " + Mix_GetError());
  }
  if (s.chunk) {
    Mix_HaltChannel(slot);
    Mix_FreeChunk(s.chunk);
  }
  s = Slot{true, chunk, 0, lengthMs, Voice{}};
}

bool SoundSlotLoaded(int slot) { return At(slot).loaded; }

int SoundSlotsLoaded() {
  int n = 0;
  for (const Slot& s : slots) n += s.loaded ? 1 : 0;
  return n;
}

void PlaySoundSlot(int slot) {
  Slot& s = At(slot);
  if (!s.loaded) return;
  ++s.starts;
  // One voice a slot: the playing one stops and the sound starts over, once.
  Halt(slot, s);
  PlayFromStart(slot, s, 0);
}

void StopSoundSlot(int slot) {
  Slot& s = At(slot);
  // A halted chunk restarts from its beginning: that is the rewind.
  Halt(slot, s);
}

uint32_t SoundSlotStarts(int slot) { return At(slot).starts; }

SlotVoice SoundSlotVoice(int slot) {
  const Slot& s = At(slot);
  if (!s.voice.on || s.lengthMs == 0) return {};
  const uint32_t elapsed = TickMs() - s.voice.startTick;
  if (s.voice.loops < 0) return {true, elapsed % s.lengthMs};
  const uint64_t total = uint64_t{s.lengthMs} * (static_cast<uint64_t>(s.voice.loops) + 1);
  if (elapsed >= total) return {};
  return {true, elapsed % s.lengthMs};
}

}  // namespace platform

#include "platform/music_device_synth.h"

#include <fluidsynth.h>

#include <algorithm>

namespace platform {

std::vector<std::string> DefaultSoundFonts() {
  return {"/usr/share/sounds/sf2/FluidR3_GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
          "/usr/share/sounds/sf2/default-GM.sf2"};
}

MidiSynth::~MidiSynth() {
  {
    std::lock_guard<std::mutex> g(lock_);
    DropPlayer();
  }
  if (synth_) delete_fluid_synth(synth_);
  if (settings_) delete_fluid_settings(settings_);
}

bool MidiSynth::Open(int sampleRate, const std::vector<std::string>& soundFonts, std::string& why) {
  // The synthesiser's own chatter would break the one-line notices; our
  // callers report what matters.
  for (int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) fluid_set_log_function(level, nullptr, nullptr);
  settings_ = new_fluid_settings();
  if (!settings_) return why = "new_fluid_settings failed", false;
  fluid_settings_setnum(settings_, "synth.sample-rate", sampleRate);
  // The player runs on rendered samples, so its timing follows the audio
  // stream exactly, offline as well as live.
  fluid_settings_setstr(settings_, "player.timing-source", "sample");
  synth_ = new_fluid_synth(settings_);
  if (!synth_) return why = "new_fluid_synth failed", false;
  for (const std::string& sf : soundFonts) {
    if (fluid_synth_sfload(synth_, sf.c_str(), 1) != FLUID_FAILED) {
      soundFont_ = sf;
      return true;
    }
  }
  why = "no General MIDI soundfont (looked for " + soundFonts.front() + " and others)";
  return false;
}

void MidiSynth::DropPlayer() {
  if (!player_) return;
  fluid_player_stop(player_);
  delete_fluid_player(player_);
  player_ = nullptr;
  // Stopping a player leaves its notes hanging; the piece stops at once.
  fluid_synth_all_sounds_off(synth_, -1);
}

void MidiSynth::Start(const std::vector<uint8_t>& midi, int plays) {
  std::lock_guard<std::mutex> g(lock_);
  if (!synth_) return;
  DropPlayer();
  player_ = new_fluid_player(synth_);
  if (!player_) return;
  fluid_player_add_mem(player_, midi.data(), midi.size());
  // The count is the number of passes through the playlist: 1 plays once.
  fluid_player_set_loop(player_, plays);
  fluid_player_set_tempo(player_, FLUID_PLAYER_TEMPO_INTERNAL, tempo_);
  fluid_player_play(player_);
}

void MidiSynth::Stop() {
  std::lock_guard<std::mutex> g(lock_);
  DropPlayer();
}

void MidiSynth::SetTempo(double factor) {
  std::lock_guard<std::mutex> g(lock_);
  tempo_ = factor;
  if (player_) fluid_player_set_tempo(player_, FLUID_PLAYER_TEMPO_INTERNAL, factor);
}

void MidiSynth::SetGain(double gain) {
  std::lock_guard<std::mutex> g(lock_);
  if (synth_) fluid_synth_set_gain(synth_, static_cast<float>(gain));
}

bool MidiSynth::Playing() {
  std::lock_guard<std::mutex> g(lock_);
  return player_ && fluid_player_get_status(player_) == FLUID_PLAYER_PLAYING;
}

void MidiSynth::Render(int16_t* stereo, int frames) {
  std::lock_guard<std::mutex> g(lock_);
  if (!synth_) {
    std::fill(stereo, stereo + 2 * frames, int16_t{0});
    return;
  }
  fluid_synth_write_s16(synth_, frames, stereo, 0, 2, stereo, 1, 2);
}

}  // namespace platform

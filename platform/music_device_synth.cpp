#include "platform/music_device_synth.h"

#include <fluidsynth.h>

#include <algorithm>
#include <cstdlib>

namespace platform {

std::vector<std::string> DefaultSoundFonts() {
  std::vector<std::string> fonts;
  // SDL_mixer's variable: the player's list replaces ours, as it does there.
  if (const char* list = std::getenv("SDL_SOUNDFONTS"); list && *list) {
    std::string all = list;
    for (size_t at = 0; at <= all.size();) {
      size_t end = all.find_first_of(":;", at);
      if (end == std::string::npos) end = all.size();
      if (end > at) fonts.push_back(all.substr(at, end - at));
      at = end + 1;
    }
    if (!fonts.empty()) return fonts;
  }
  // FluidSynth's own default first: where the system or the player put it.
  if (fluid_settings_t* settings = new_fluid_settings()) {
    char* path = nullptr;
    if (fluid_settings_dupstr(settings, "synth.default-soundfont", &path) == FLUID_OK && path && *path)
      fonts.emplace_back(path);
    fluid_free(path);
    delete_fluid_settings(settings);
  }
  for (const char* fixed : {"/usr/share/sounds/sf2/FluidR3_GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
                            "/usr/share/sounds/sf2/default-GM.sf2"})
    if (std::find(fonts.begin(), fonts.end(), fixed) == fonts.end()) fonts.emplace_back(fixed);
  return fonts;
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
  fluid_settings_t* settings = new_fluid_settings();
  if (!settings) return why = "new_fluid_settings failed", false;
  fluid_settings_setnum(settings, "synth.sample-rate", sampleRate);
  // The player runs on rendered samples, so its timing follows the audio
  // stream exactly, offline as well as live.
  fluid_settings_setstr(settings, "player.timing-source", "sample");
  fluid_synth_t* synth = new_fluid_synth(settings);
  if (!synth) {
    delete_fluid_settings(settings);
    return why = "new_fluid_synth failed", false;
  }
  std::string loaded;
  for (const std::string& sf : soundFonts) {
    if (fluid_synth_sfload(synth, sf.c_str(), 1) != FLUID_FAILED) {
      loaded = sf;
      break;
    }
  }
  if (loaded.empty()) {
    delete_fluid_synth(synth);
    delete_fluid_settings(settings);
    why = "no General MIDI soundfont (looked for";
    for (const std::string& sf : soundFonts) why += " " + sf;
    why += ")";
    return false;
  }
  std::lock_guard<std::mutex> g(lock_);
  settings_ = settings;
  synth_ = synth;
  soundFont_ = loaded;
  fluid_synth_set_gain(synth_, static_cast<float>(gain_));
  if (!piece_.empty()) BeginPiece();
  return true;
}

std::string MidiSynth::SoundFont() {
  std::lock_guard<std::mutex> g(lock_);
  return soundFont_;
}

void MidiSynth::DropPlayer() {
  piece_.clear();
  if (!player_) return;
  fluid_player_stop(player_);
  delete_fluid_player(player_);
  player_ = nullptr;
  // Stopping a player leaves its notes hanging; the piece stops at once.
  fluid_synth_all_sounds_off(synth_, -1);
}

void MidiSynth::BeginPiece() {
  player_ = new_fluid_player(synth_);
  if (player_) {
    fluid_player_add_mem(player_, piece_.data(), piece_.size());
    // The count is the number of passes through the playlist: 1 plays once.
    fluid_player_set_loop(player_, plays_);
    fluid_player_set_tempo(player_, FLUID_PLAYER_TEMPO_INTERNAL, tempo_);
    fluid_player_play(player_);
  }
  piece_.clear();
}

void MidiSynth::Start(const std::vector<uint8_t>& midi, int plays) {
  std::lock_guard<std::mutex> g(lock_);
  DropPlayer();
  piece_ = midi;
  plays_ = plays;
  if (synth_) BeginPiece();
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
  gain_ = gain;
  if (synth_) fluid_synth_set_gain(synth_, static_cast<float>(gain));
}

bool MidiSynth::Playing() {
  std::lock_guard<std::mutex> g(lock_);
  return !piece_.empty() || (player_ && fluid_player_get_status(player_) == FLUID_PLAYER_PLAYING);
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

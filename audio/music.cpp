#include "audio/music.h"

#include <cmath>
#include <optional>

#include "core/hooks.h"
#include "platform/paths.h"
#include "core/random.h"
#include "core/settings.h"
#include "platform/music_device.h"
#include "platform/settings_store.h"
#include "platform/sound_device.h"

namespace audio {

core::Table<std::string, 0, 50> TrackTitles = [] {
  core::Table<std::string, 0, 50> t;
  t.name = "TrackTitles";
  return t;
}();
int32_t MusicVolume = 500;
std::string MusicPath;
std::string MusicSegment;
int16_t MusicTempo = 100;

namespace {

// The synth gain at 0 dB. At the stored default of +5 dB the pieces sit about
// ten decibels under the effects and voices and never reach full scale, so
// a voice over the music stays clear and nothing clips.
constexpr double kBaseGain = 0.2;

std::string BaseName(const std::string& path) {
  const size_t slash = path.find_last_of("/\\");
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  const size_t dot = name.find_last_of('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

}  // namespace

void FillTrackTable() {
  static const char* const pieces[] = {
      "** Random Music **", "Amber Sky",    "Brass Lantern",   "Cobalt Drift",    "Copper Kettle",
      "Dawn Patrol",        "Ember Waltz",  "Falling Stars",   "Glass Harbour",   "Granite Steps",
      "Harvest Moon",       "Iron Bridge",  "Jade Garden",     "Juniper Lane",    "Kite Festival",
      "Lantern Parade",     "Marble Hall",  "Midnight Rail",   "Neon Tide",       "Northern Lights",
      "Old Mill Reel",      "Paper Boats",  "Quartz Canyon",   "Rain on Tin",     "Red Balloon",
      "Saffron Road",       "Silver Fjord", "Tin Soldiers",    "Twilight Market", "Velvet Night",
      "Willow Creek"};
  TrackTitles.Fill("");
  for (int i = 0; i <= 30; ++i) TrackTitles[i] = pieces[i];
  TrackTitles[34] = "Liftoff";
  TrackTitles[35] = "TypeBWin";
  TrackTitles[36] = "Works";
  TrackTitles[37] = "Champions";
  TrackTitles[38] = "Intro";
  TrackTitles[39] = "Over";
  TrackTitles[40] = "Vorrel Theme";
}

void CheckMusicFiles() {
  // Entry 0 is the menu's random choice, not a file.
  for (int i = 1; i <= 50; ++i)
    if (!TrackTitles[i].empty()) platform::CheckMidiFile(platform::DataPath("\\music\\" + TrackTitles[i] + ".mid"));
}

double MusicGain(int32_t volume) { return kBaseGain * std::pow(10.0, volume / 2000.0); }

int32_t MusicVolumeFromText(const std::string* text) {
  return text ? platform::NumericPrefixToInt(*text) : 500;
}

void InitAudio() {
  const std::optional<std::string> text = platform::ReadSettingsValue("Settings", "MusicVolume");
  MusicVolume = MusicVolumeFromText(text ? &*text : nullptr);
  platform::OpenMusicDevice();
  platform::SetMidiGain(MusicGain(MusicVolume));
}

void PlayMidi(const std::string& fileName, bool loop) {
  const std::string title = BaseName(fileName);
  core::NoteMusicPlay(title, loop);
  // A repeat count of 100: the piece plays 101 times and then stops.
  platform::StartMidiFile(fileName, loop ? 101 : 1);
  MusicSegment = title;
}

void StopMidi() {
  core::NoteMusicStop();
  if (MusicSegment.empty()) return;
  platform::StopMidiFile();
}

void SetMusicTempo(int16_t percent) {
  core::NoteMusicTempo(percent);
  MusicTempo = percent;
  platform::SetMidiTempo(percent / 100.0);
}

void ShutdownAudio() {
  // Release, not a request of the game: the music log keeps no entry for it.
  // The sound buffers and the mixer go with the music at exit.
  platform::StopMidiFile();
  platform::CloseMusicDevice();
  platform::CloseSoundDevice();
}

void StopMusic() { StopMidi(); }

void PlayMusic(int16_t& track, bool loop) {
  StopMusic();
  if (core::Settings.MusicOn != 1) return;
  if (track == 0) track = static_cast<int16_t>(core::RandomInt(30, 1));
  MusicPath = "\\music\\" + TrackTitles[track] + ".mid";
  PlayMidi(platform::DataPath(MusicPath), loop);
}

}  // namespace audio

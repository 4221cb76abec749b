#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "audio/music.h"
#include "audio_test_files.h"
#include "core/errors.h"
#include "platform/paths.h"
#include "core/random.h"
#include "core/settings.h"
#include "platform/music_device.h"
#include "platform/settings_store.h"

namespace {

using audiotest::WriteBytes;

std::vector<uint8_t> Tune() { return audiotest::MidiBytes({{0, 240, 60}, {480, 240, 64}}, 500000, 960); }

class Music : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = audiotest::FreshFolder("music");
    platform::SetDataFolder((dir / "data").string());
    platform::SetHomeFolder((dir / "home").string());
    audio::FillTrackTable();
    for (int i = 1; i <= 40; ++i)
      if (!audio::TrackTitles[i].empty()) WriteBytes(dir / "data" / "music" / (audio::TrackTitles[i] + ".mid"), Tune());
    core::Settings.MusicOn = 1;
    audio::InitAudio();  // no mixer open: the silent music device
  }
  void TearDown() override {
    audio::ShutdownAudio();
    audio::MusicSegment.clear();
    core::Settings = core::MenuSettings{};
    std::filesystem::remove_all(dir);
  }
  std::string Started() {
    std::string s = platform::MidiFileStarted();
    return s.empty() ? s : std::filesystem::path(s).stem().string();
  }
  std::filesystem::path dir;
};

TEST_F(Music, RandomTrackIsWrittenBackAndPlayed) {
  std::set<int> seen;
  for (uint32_t seed = 1; seed <= 40; ++seed) {
    core::Randomize(seed);
    int16_t track = 0;
    audio::PlayMusic(track, true);
    ASSERT_GE(track, 1);
    ASSERT_LE(track, 30);
    EXPECT_EQ(Started(), audio::TrackTitles[track]);
    EXPECT_EQ(platform::MidiFilePlays(), 101);  // repeat count 100
    seen.insert(track);
  }
  EXPECT_GT(seen.size(), 10u);  // a pick, not one fixed title

  int16_t theme = 40;
  audio::PlayMusic(theme, false);
  EXPECT_EQ(theme, 40);
  EXPECT_EQ(Started(), "Vorrel Theme");
  EXPECT_EQ(platform::MidiFilePlays(), 1);
}

TEST_F(Music, MusicOffStopsThePieceAndStartsNothing) {
  int16_t theme = 40;
  audio::PlayMusic(theme, true);
  ASSERT_EQ(Started(), "Vorrel Theme");

  core::Settings.MusicOn = 0;
  int16_t track = 0;
  audio::PlayMusic(track, true);
  EXPECT_EQ(Started(), "");
  EXPECT_EQ(track, 0);  // no pick is made when nothing plays

  // The tempo set meanwhile stays with the player for the next piece.
  audio::SetMusicTempo(125);
  core::Settings.MusicOn = 1;
  audio::PlayMusic(theme, true);
  EXPECT_EQ(Started(), "Vorrel Theme");
  EXPECT_EQ(audio::MusicTempo, 125);
  audio::SetMusicTempo(100);
}

TEST_F(Music, MissingOrBrokenMidiFileFailsNamingIt) {
  std::filesystem::remove(dir / "data" / "music" / "Intro.mid");
  int16_t intro = 38;
  try {
    audio::PlayMusic(intro, false);
    FAIL() << "a missing file played";
  } catch (const core::GameFault& f) {
    EXPECT_NE(std::string(f.what()).find("Intro.mid"), std::string::npos) << f.what();
  }

  auto good = Tune();
  auto cutTrack = std::vector<uint8_t>(good.begin(), good.end() - 6);
  auto badHeader = good;
  badHeader[2] = 'x';
  auto badEvent = good;
  badEvent[good.size() - 8] = 0xF4;  // the last note-off's status byte made undefined
  for (const auto& bytes : {cutTrack, badHeader, badEvent}) {
    WriteBytes(dir / "data" / "music" / "Intro.mid", bytes);
    EXPECT_THROW(audio::PlayMusic(intro, false), core::GameFault);
    EXPECT_EQ(Started(), "");
  }
  // An empty slot of the table names no file either.
  int16_t empty = 33;
  EXPECT_THROW(audio::PlayMusic(empty, false), core::GameFault);
}

TEST_F(Music, VolumeFromTheSettingsStore) {
  auto store = dir / "home" / "settings.ini";
  auto volumeWith = [&](const std::string& content) {
    std::filesystem::create_directories(store.parent_path());
    std::ofstream(store, std::ios::binary) << content;
    audio::InitAudio();
    return audio::MusicVolume;
  };
  std::filesystem::remove(store);
  audio::InitAudio();
  EXPECT_EQ(audio::MusicVolume, 500);  // no store at all
  EXPECT_EQ(volumeWith("[Other]\nMusicVolume=20\n"), 500);  // not in its section
  EXPECT_EQ(volumeWith("[Settings]\r\nMusicVolume=-250\r\n"), -250);
  EXPECT_EQ(volumeWith("[settings]\nmusicvolume = 300 dB\n"), 300);
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=12.5e1x\n"), 125);
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=2.5\n"), 2);  // half to even
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=-7.5\n"), -8);
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=loud\n"), 0);
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=\n"), 0);
  EXPECT_EQ(volumeWith("[Settings]\nMusicVolume=99999999999\n"), 2147483647);
  // A broken line is passed over; what can be read still counts.
  EXPECT_EQ(volumeWith("garbage line\n[Settings\n[Settings]\nno equals sign\nMusicVolume=42\n"), 42);
  EXPECT_EQ(volumeWith(std::string("\xff\xfe\x00[", 4)), 500);
}

TEST_F(Music, TempoAndGainReachTheSynth) {
  int16_t theme = 40;
  audio::PlayMusic(theme, true);
  audio::SetMusicTempo(125);
  EXPECT_DOUBLE_EQ(platform::MidiTempo(), 1.25) << "the danger zone plays 25 % faster";
  audio::SetMusicTempo(100);
  EXPECT_DOUBLE_EQ(platform::MidiTempo(), 1.0);

  // The stored volume in hundredths of a decibel, relative to 0 dB.
  auto store = dir / "home" / "settings.ini";
  auto gainAt = [&](int volume) {
    std::filesystem::create_directories(store.parent_path());
    std::ofstream(store, std::ios::binary) << "[Settings]\nMusicVolume=" << volume << "\n";
    audio::InitAudio();
    return platform::MidiGain();
  };
  const double g0 = gainAt(0), g500 = gainAt(500), gm600 = gainAt(-600);
  ASSERT_GT(g0, 0.0);
  EXPECT_NEAR(g500 / g0, 1.7782794, 1e-6) << "+5 dB";
  EXPECT_NEAR(gm600 / g0, 0.5011872, 1e-6) << "-6 dB";
}

TEST(TrackTable, FixedTitlesEmptySlotsAndMenuOrder) {
  audio::FillTrackTable();
  const auto& t = audio::TrackTitles;
  EXPECT_EQ(t[0], "** Random Music **");
  EXPECT_EQ(t[35], "TypeBWin");
  EXPECT_EQ(t[36], "Works");
  EXPECT_EQ(t[38], "Intro");
  EXPECT_EQ(t[39], "Over");
  for (int i : {34, 37, 40}) EXPECT_FALSE(t[i].empty()) << "special piece " << i;
  for (int i = 31; i <= 50; ++i) {
    if (i < 34 || i > 40) {
      EXPECT_EQ(t[i], "") << i;
    }
  }
  // The menu's choices: 30 titles in alphabetical order, none twice.
  for (int i = 1; i <= 30; ++i) EXPECT_FALSE(t[i].empty()) << i;
  for (int i = 1; i < 30; ++i) EXPECT_LT(t[i], t[i + 1]) << i;
}

}  // namespace

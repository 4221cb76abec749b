#include <gtest/gtest.h>

#include "audio/sound_effects.h"
#include "audio_test_files.h"
#include "core/errors.h"
#include "core/hooks.h"
#include "platform/clock.h"
#include "platform/paths.h"
#include "core/settings.h"
#include "platform/sound_device.h"

namespace {

using audiotest::WaveBytes;
using audiotest::WriteBytes;

class SoundEffects : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = audiotest::FreshFolder("sfx");
    platform::SetDataFolder(dir.string());
    platform::OpenSoundDevice(true);
    core::Settings.SoundOn = 1;
    core::Settings.VoiceOn = 1;
  }
  void TearDown() override {
    platform::CloseSoundDevice();
    audio::SoundBuffers.Fill(0);
    core::Settings = core::MenuSettings{};
    std::filesystem::remove_all(dir);
  }
  void Load(int index) {
    WriteBytes(dir / "sounds" / audio::SoundFileName(index), WaveBytes());
    audio::LoadSoundBuffer(index, "\\sounds\\" + audio::SoundFileName(index));
  }
  std::filesystem::path dir;
};

TEST_F(SoundEffects, SwitchesChooseByIndexAndAreReadAtEachCall) {
  Load(3);
  Load(101);
  Load(24);
  Load(100 + 63);  // gameover1, the last group of voices

  core::Settings.VoiceOn = 0;
  audio::PlaySoundEffect(101);
  audio::PlaySoundEffect(3);
  EXPECT_EQ(platform::SoundSlotStarts(101), 0u);
  EXPECT_EQ(platform::SoundSlotStarts(3), 1u);

  // Switched in the menu between two calls: the next call obeys at once.
  core::Settings.SoundOn = 0;
  core::Settings.VoiceOn = 1;
  audio::PlaySoundEffect(3);
  audio::PlaySoundEffect(24);
  audio::PlaySoundEffect(101);
  audio::PlaySoundEffect(163);
  EXPECT_EQ(platform::SoundSlotStarts(3), 1u);
  EXPECT_EQ(platform::SoundSlotStarts(24), 0u);
  EXPECT_EQ(platform::SoundSlotStarts(101), 1u);
  EXPECT_EQ(platform::SoundSlotStarts(163), 1u);

  // Replaying restarts the same slot: every request is one start of it.
  core::Settings.SoundOn = 1;
  audio::PlaySoundEffect(3);
  audio::PlaySoundEffect(3);
  EXPECT_EQ(platform::SoundSlotStarts(3), 3u);

  // A stop is honoured whatever the switches, and an empty slot is ignored.
  core::Settings.SoundOn = 0;
  EXPECT_NO_THROW(audio::StopSoundEffect(3));
  core::Settings.SoundOn = 1;
  EXPECT_NO_THROW(audio::PlaySoundEffect(6));
  EXPECT_NO_THROW(audio::PlaySoundEffect(200));
  EXPECT_FALSE(platform::SoundSlotLoaded(6));
  EXPECT_EQ(platform::SoundSlotStarts(6), 0u);

  // An index outside the table is a fault, not a quiet no-op.
  EXPECT_THROW(audio::PlaySoundEffect(201), core::GameFault);
  EXPECT_THROW(audio::PlaySoundEffect(-1), core::GameFault);
}

TEST_F(SoundEffects, MissingOrBrokenWaveFileFailsNamingIt) {
  try {
    audio::LoadSoundBuffer(1, "\\sounds\\land.wav");
    FAIL() << "a missing file loaded";
  } catch (const core::GameFault& f) {
    EXPECT_NE(std::string(f.what()).find("land.wav"), std::string::npos) << f.what();
  }

  auto wave = WaveBytes();
  auto noData = std::vector<uint8_t>(wave.begin(), wave.begin() + 36);  // header and fmt only
  auto cut = std::vector<uint8_t>(wave.begin(), wave.end() - 10);       // data shorter than it says
  auto notWave = wave;
  notWave[8] = 'X';
  auto badFormat = wave;
  badFormat[20] = 0x55;  // a compressed format the mixer cannot decode
  for (const auto& bytes : {noData, cut, notWave, badFormat}) {
    WriteBytes(dir / "sounds" / "move.wav", bytes);
    EXPECT_THROW(audio::LoadSoundBuffer(2, "\\sounds\\move.wav"), core::GameFault);
  }
  EXPECT_EQ(audio::SoundBuffers[2], 0);
  EXPECT_EQ(platform::SoundSlotsLoaded(), 0);

  // A chunk the mixer does not need (here before fmt) is skipped, not refused.
  std::vector<uint8_t> withList(wave.begin(), wave.begin() + 12);
  withList.insert(withList.end(), {'L', 'I', 'S', 'T', 3, 0, 0, 0, 'a', 'b', 'c', 0});
  withList.insert(withList.end(), wave.begin() + 12, wave.end());
  WriteBytes(dir / "sounds" / "move.wav", withList);
  EXPECT_NO_THROW(audio::LoadSoundBuffer(2, "\\sounds\\move.wav"));
  EXPECT_EQ(platform::SoundSlotsLoaded(), 1);
}

TEST_F(SoundEffects, ASlotRestartsFromTheStartAndPlaysOnce) {
  // 2205 samples at 22050 Hz: 100 ms.
  WriteBytes(dir / "sounds" / audio::SoundFileName(3), WaveBytes(2205));
  audio::LoadSoundBuffer(3, "\\sounds\\" + audio::SoundFileName(3));
  Load(4);
  auto at = [](int slot) { return platform::SoundSlotVoice(slot); };
  auto wait = [](uint32_t ms) { platform::AdvanceClock(ms * platform::kUnitsPerPass); };
  EXPECT_FALSE(at(3).playing);
  audio::PlaySoundEffect(3);
  wait(40);
  EXPECT_TRUE(at(3).playing);
  EXPECT_EQ(at(3).atMs, 40u);
  audio::PlaySoundEffect(3);
  EXPECT_TRUE(at(3).playing);
  EXPECT_EQ(at(3).atMs, 0u) << "a replay starts over: one voice, not a second one";
  audio::PlaySoundEffect(4);
  EXPECT_TRUE(at(4).playing) << "other slots mix";
  EXPECT_EQ(at(3).atMs, 0u) << "and leave this one alone";
  wait(99);
  EXPECT_EQ(at(3).atMs, 99u);
  wait(1);
  EXPECT_FALSE(at(3).playing) << "it plays once, then falls silent";
  wait(1000);
  EXPECT_FALSE(at(3).playing);
  audio::PlaySoundEffect(3);
  wait(10);
  audio::StopSoundEffect(3);
  EXPECT_FALSE(at(3).playing) << "a stop silences it";
  core::Settings.SoundOn = 0;
  audio::PlaySoundEffect(3);
  EXPECT_FALSE(at(3).playing) << "switched off: not started";
}

TEST_F(SoundEffects, TheLogSaysPlayedOrSilencedByASwitch) {
  std::vector<std::pair<int, bool>> log;
  auto saved = core::Hooks.Sound;
  core::Hooks.Sound = [&](int index, bool played) { log.emplace_back(index, played); };
  Load(3);
  Load(101);
  audio::PlaySoundEffect(3);
  audio::PlaySoundEffect(6);    // an empty slot, its switch on: nothing asked of the mixer
  audio::PlaySoundEffect(200);  // likewise a voice
  core::Settings.SoundOn = 0;
  core::Settings.VoiceOn = 0;
  audio::PlaySoundEffect(3);
  audio::PlaySoundEffect(101);
  audio::PlaySoundEffect(6);
  core::Hooks.Sound = saved;
  EXPECT_EQ(log, (std::vector<std::pair<int, bool>>{{3, true}, {3, false}, {101, false}}));
}

}  // namespace

// The music synthesiser rendered offline with the small soundfont: the same
// set-up the game hooks into the mixer, without any audio device.
#include <gtest/gtest.h>

#include <fluidsynth.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "audio_test_files.h"
#include "platform/music_device_synth.h"

namespace {

constexpr int kRate = 44100;
constexpr int kWindow = kRate / 200;  // 5 ms
const char* const kSmallFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";
constexpr int kKeys[] = {72, 76, 79, 81};  // C5 E5 G5 A5: no one a harmonic of another

// Four short organ notes a quarter note apart at 120 bpm: one second a round.
std::vector<uint8_t> FourNotes() {
  std::vector<audiotest::Note> notes;
  for (int i = 0; i < 4; ++i) notes.push_back({static_cast<uint32_t>(240 * i), 100, static_cast<uint8_t>(kKeys[i])});
  return audiotest::MidiBytes(notes, 500000, 960, 16);
}

// The left channel.
std::vector<int16_t> Render(platform::MidiSynth& synth, double seconds) {
  const int frames = static_cast<int>(seconds * kRate);
  std::vector<int16_t> stereo(2 * static_cast<size_t>(frames));
  synth.Render(stereo.data(), frames);
  std::vector<int16_t> left(static_cast<size_t>(frames));
  for (int i = 0; i < frames; ++i) left[static_cast<size_t>(i)] = stereo[2 * static_cast<size_t>(i)];
  return left;
}

double Rms(const std::vector<int16_t>& s, size_t from, size_t n) {
  double e = 0;
  for (size_t i = from; i < from + n && i < s.size(); ++i) e += double(s[i]) * s[i];
  return std::sqrt(e / double(n));
}

// A note starts where the signal first rises above a level after it had
// died away; times in milliseconds.
std::vector<double> Onsets(const std::vector<int16_t>& s) {
  std::vector<double> out;
  bool armed = true;
  for (size_t w = 0; w + kWindow <= s.size(); w += kWindow) {
    if (armed) {
      for (size_t i = w; i < w + kWindow; ++i)
        if (std::abs(s[i]) > 400) {
          out.push_back(1000.0 * double(i) / kRate);
          armed = false;
          break;
        }
    } else if (Rms(s, w, kWindow) < 60) {
      armed = true;
    }
  }
  return out;
}

// Which of the four keys sounds loudest 10..40 ms after an onset.
int KeyAt(const std::vector<int16_t>& s, double onsetMs) {
  const size_t from = static_cast<size_t>((onsetMs + 10) * kRate / 1000), n = kRate * 30 / 1000;
  int best = -1;
  double bestPower = -1;
  for (int key : kKeys) {
    const double w = 2 * M_PI * 440.0 * std::pow(2.0, (key - 69) / 12.0) / kRate;
    double re = 0, im = 0;
    for (size_t i = 0; i < n; ++i) re += s[from + i] * std::cos(w * double(i)), im += s[from + i] * std::sin(w * double(i));
    if (re * re + im * im > bestPower) bestPower = re * re + im * im, best = key;
  }
  return best;
}

class SynthRender : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(kSmallFont)) GTEST_SKIP() << "no " << kSmallFont;
    std::string why;
    ASSERT_TRUE(synth.Open(kRate, {"/nonexistent/first-choice.sf2", kSmallFont}, why)) << why;
    EXPECT_EQ(synth.SoundFont(), kSmallFont);  // fell back past the missing one
  }
  platform::MidiSynth synth;
};

TEST_F(SynthRender, FasterTempoPlaysTheSameNotesInFourFifthsOfTheTime) {
  synth.Start(FourNotes(), 1);
  const auto normal = Render(synth, 1.5);

  // The tempo is set before the piece starts: it carries over to it.
  synth.SetTempo(1.25);
  synth.Start(FourNotes(), 1);
  const auto fast = Render(synth, 1.5);

  const auto a = Onsets(normal), b = Onsets(fast);
  ASSERT_EQ(a.size(), 4u);
  ASSERT_EQ(b.size(), 4u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(a[i] - a[0], 250.0 * double(i), 3.0) << i;
    EXPECT_NEAR(b[i] - b[0], 0.8 * (a[i] - a[0]), 3.0) << i;
    EXPECT_EQ(KeyAt(normal, a[i]), kKeys[i]) << i;
    EXPECT_EQ(KeyAt(fast, b[i]), kKeys[i]) << i;
  }
}

TEST_F(SynthRender, TempoChangeTakesHoldOfThePlayingPiece) {
  synth.Start(FourNotes(), 1);
  auto sound = Render(synth, 0.6);
  // At 600 ms the piece stands at tick 576; the last note, 144 ticks on,
  // comes after 120 ms at 1.25 instead of 150 ms.
  synth.SetTempo(1.25);
  const auto rest = Render(synth, 0.6);
  sound.insert(sound.end(), rest.begin(), rest.end());
  const auto on = Onsets(sound);
  ASSERT_EQ(on.size(), 4u);
  EXPECT_NEAR(on[2] - on[0], 500.0, 3.0);
  EXPECT_NEAR(on[3] - on[0], 720.0, 4.0);
}

TEST_F(SynthRender, RepeatedPieceComesRoundThenStopsAndStopIsImmediate) {
  synth.Start(FourNotes(), 3);
  // The player lingers two seconds after the last round before it reports done.
  const auto sound = Render(synth, 5.5);
  const auto on = Onsets(sound);
  ASSERT_EQ(on.size(), 12u);
  for (size_t i = 0; i < 12; ++i) {
    EXPECT_NEAR(on[i] - on[0], 1000.0 * double(i / 4) + 250.0 * double(i % 4), 3.0) << i;
    EXPECT_EQ(KeyAt(sound, on[i]), kKeys[i % 4]) << i;
  }
  EXPECT_LT(Rms(sound, kRate * 7 / 2, kRate / 2), 20.0);  // played three times, then silence
  EXPECT_FALSE(synth.Playing());

  synth.Start(FourNotes(), 101);
  auto held = Render(synth, 0.05);
  EXPECT_TRUE(synth.Playing());
  EXPECT_GT(Rms(held, 0, held.size()), 150.0);
  synth.Stop();
  held = Render(synth, 0.1);
  EXPECT_LT(Rms(held, kRate * 3 / 100, kRate * 7 / 100), 40.0);  // cut off, not left to ring
  EXPECT_FALSE(synth.Playing());
}

}  // namespace

TEST(SoundFonts, FluidSynthsOwnDefaultComesFirst) {
  fluid_settings_t* settings = new_fluid_settings();
  ASSERT_NE(settings, nullptr);
  char* own = nullptr;
  std::string expected;
  if (fluid_settings_dupstr(settings, "synth.default-soundfont", &own) == FLUID_OK && own) expected = own;
  fluid_free(own);
  delete_fluid_settings(settings);

  const std::vector<std::string> fonts = platform::DefaultSoundFonts();
  ASSERT_FALSE(fonts.empty());
  if (!expected.empty()) {
    EXPECT_EQ(fonts.front(), expected);
  }
  for (const char* fixed : {"/usr/share/sounds/sf2/FluidR3_GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
                            "/usr/share/sounds/sf2/default-GM.sf2"})
    EXPECT_EQ(std::count(fonts.begin(), fonts.end(), fixed), 1) << fixed << " tried once";
}

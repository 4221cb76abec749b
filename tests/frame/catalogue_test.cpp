// The catalogue loaded from the real data, in process: counts, glyph
// cutting, and the bitmap text rules drawn with the cut glyphs.
#include <gtest/gtest.h>

#include "audio/audio_devices.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "automation/automation.h"
#include "frame/catalogue.h"
#include "frame/frame_state.h"
#include "automation/options.h"
#include "display/passes.h"
#include "platform/paths.h"
#include "platform/backend.h"
#include "tests/support/run_game.h"

using namespace display;

namespace {

class Catalogue : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (testsupport::TestData().empty()) return;
    platform::SetCurrent(platform::MakeHeadlessBackend());
    automation::Options none;
    automation::Configure(none);
    platform::SetDataFolder(testsupport::TestData());
    std::string failed;
    ASSERT_TRUE(InitDisplay(failed));
    CreateBlankSurface(Display.Backdrop, 800, 600);
    Display.ScreenRect = {0, 0, 800, 600};  // as GameMain sets it
    audio::OpenAudioDevices(true);
    Text.GlyphOrder = MakeGlyphOrder();
    framesBefore = display::FramesPresented();
    frame::CreateGraphics();
    frame::CreateSound();
    loaded = true;
  }
  void SetUp() override {
    if (!loaded) GTEST_SKIP() << "no generated data folder";
  }
  static inline bool loaded = false;
  static inline uint64_t framesBefore = 0;
};

Surface Canvas(int w, int h) {
  Surface s;
  CreateBlankSurface(s, w, h);
  return s;
}

}  // namespace

TEST_F(Catalogue, EverySurfaceAndSoundCounted) {
  EXPECT_EQ(frame::Frame.LoadStep, frame::kFinalLoadStep);
  EXPECT_EQ(display::FramesPresented() - framesBefore, 43u) << "the bar is redrawn every 20 steps";
  EXPECT_TRUE(display::Assets.FieldSurfaces[2].HasClipper);
  EXPECT_EQ(display::Assets.FieldSurfaces[0].ClipRect.Right, 260);
  EXPECT_EQ(display::Assets.PieceSprites[15][3][2].Width, 80);
  EXPECT_EQ(display::Assets.SmallExplosionFrames[14].Width, 64);
}

TEST_F(Catalogue, GlyphsAreCutFromTheirSheets) {
  for (int g = 0; g < 48; ++g) {
    const Surface& big = Text.BigGlyphs[g];
    const Surface& small = Text.SmallGlyphs[g];
    ASSERT_EQ(small.Width, 25);
    int differ = 0;
    for (int y = 0; y < 25; ++y)
      for (int x = 0; x < 25; ++x) differ += small.Row(y)[x] != big.Row(2 * y)[2 * x];
    EXPECT_EQ(differ, 0) << "small glyph " << g << " is the big one at half size";
  }
  for (int d = 0; d <= 10; ++d) {
    const Surface& digit = Text.BigDigits[d];
    for (int y = 0; y < 36; ++y) EXPECT_EQ(digit.Row(y)[28], 0) << "digit " << d << " keeps its last column black";
  }
  for (uint16_t p : Text.BigDigits[10].Pixels) ASSERT_EQ(p, 0) << "the eleventh sign erases: all black";
  for (uint16_t p : Text.BigGlyphs[46].Pixels) ASSERT_EQ(p, 0) << "the space is blank";
}

TEST_F(Catalogue, CharacterAndNumberText) {
  Surface spaced = Canvas(200, 50), tight = Canvas(200, 50), skipped = Canvas(200, 50);
  DrawGlyphText(spaced, 0, 0, "a b", Text.BigGlyphs, 50, 50);
  DrawGlyphText(tight, 0, 0, "ab", Text.BigGlyphs, 50, 50);
  DrawGlyphText(skipped, 0, 0, "aQ~b", Text.BigGlyphs, 50, 50);
  EXPECT_EQ(skipped.Pixels, tight.Pixels) << "characters outside the glyph order take no room";
  int same = 0, blankMiddle = 1;
  for (int y = 0; y < 50; ++y)
    for (int x = 0; x < 50; ++x) {
      same += spaced.Row(y)[100 + x] == tight.Row(y)[50 + x];
      if (spaced.Row(y)[50 + x] != 0) blankMiddle = 0;
    }
  EXPECT_EQ(same, 2500) << "the space is a glyph: b lands on the third cell";
  EXPECT_EQ(blankMiddle, 1);

  // Counters: right to left from the units digit, glyphs 27 apart.
  Surface left = Canvas(200, 36), right = Canvas(200, 36);
  DrawNumberText(left, 0, 0, 305, Text.BigDigits, 27, false);
  DrawNumberText(right, 54, 0, 305, Text.BigDigits, 27, true);
  EXPECT_EQ(left.Pixels, right.Pixels) << "both directions put 305 in the same place";
  Surface five = Canvas(200, 36);
  DrawNumberText(five, 54, 0, 5, Text.BigDigits, 27, true);
  for (int y = 0; y < 36; ++y)
    for (int x = 54; x < 54 + 28; ++x) {
      if (five.Row(y)[x] != 0) {
        ASSERT_EQ(five.Row(y)[x], left.Row(y)[x]) << "units digit at the pen";
      }
    }
}

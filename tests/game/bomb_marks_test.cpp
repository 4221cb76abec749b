// The Type C bomb in process: painted into the field only for the row scan,
// each cleared half shown on the on-screen bomb picture, and a whole picture
// again after the detonation.
#include <gtest/gtest.h>

#include <string>

#include "audio/audio_devices.h"
#include "automation/automation.h"
#include "automation/options.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/line_check.h"
#include "platform/backend.h"
#include "platform/paths.h"
#include "tests/support/run_game.h"

using display::Assets;
using display::Surface;

namespace {

class BombMarks : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (testsupport::TestData().empty()) return;
    platform::SetCurrent(platform::MakeHeadlessBackend());
    automation::Options none;
    automation::Configure(none);
    platform::SetDataFolder(testsupport::TestData());
    std::string failed;
    ASSERT_TRUE(display::InitDisplay(failed));
    display::CreateBlankSurface(display::Display.Backdrop, 800, 600);
    audio::OpenAudioDevices(true);
    display::Text.GlyphOrder = display::MakeGlyphOrder();
    frame::CreateGraphics();
    frame::CreateSound();
    loaded = true;
  }
  void SetUp() override {
    if (!loaded) GTEST_SKIP() << "no generated data folder";
    core::Settings.GameVariant = 0;
    core::Settings.PlayType = 2;
    core::Settings.Level = 1;
    core::Settings.Difficulty = 0;
    core::Settings.MusicOn = 0;
    game::PrepareGame();
    display::FillSurface(Assets.FieldSurfaces[0], display::Display.WholeRect, 0);
    game::Game.PieceKind = 0;
    game::Game.GarbageCounter = 1;
    game::Game.BombRowsCleared[0] = game::Game.BombRowsCleared[1] = 0;
  }
  static inline bool loaded = false;
};

// Row row full but for the bomb's two columns.
void RowAroundBomb(int row) {
  for (int c = 0; c < 13; ++c)
    if (c != 6 && c != 7) display::BltOpaque(Assets.FieldSurfaces[0], 20 * c, 20 * row, 20, 20, Assets.FillTiles[0], 0, 0, 20, 20);
}

bool SameRows(const Surface& a, const Surface& b, int top, int bottom) {
  for (int y = top; y < bottom; ++y)
    for (int x = 0; x < 40; ++x)
      if (a.Row(y)[x] != b.Row(y)[x]) return false;
  return true;
}

bool BombSquareBlack() {
  const Surface& field = Assets.FieldSurfaces[0];
  for (int y = game::Game.BombY; y < game::Game.BombY + 40; ++y)
    for (int x = game::Game.BombX; x < game::Game.BombX + 40; ++x)
      if (field.Row(y)[x] != 0) return false;
  return true;
}

}  // namespace

TEST_F(BombMarks, ClearedHalvesShowUntilTheBombGoesOff) {
  Surface whole;
  display::LoadSurface(whole, "\\graphics\\megabomb1.bmp", 40, 40);
  const Surface& cleared = Assets.BombImages[0];
  ASSERT_FALSE(SameRows(whole, cleared, 0, 40)) << "the two looks must differ for this test";

  RowAroundBomb(20);
  game::CheckLine();
  EXPECT_EQ(game::Game.FullRowCount, 1);
  EXPECT_EQ(game::Game.BombRowsCleared[0], 0);
  EXPECT_EQ(game::Game.BombRowsCleared[1], 1);
  EXPECT_TRUE(SameRows(Assets.BombImages[1], whole, 0, 20)) << "upper half untouched";
  EXPECT_TRUE(SameRows(Assets.BombImages[1], cleared, 20, 40)) << "lower half in the cleared look";
  EXPECT_TRUE(BombSquareBlack()) << "the bomb is never left in the field";
  EXPECT_EQ(core::Settings.StartHeight, 0);

  // The upper row on a later clear completes it: the bomb goes off.
  RowAroundBomb(19);
  game::CheckLine();
  EXPECT_EQ(core::Settings.StartHeight, 1);
  EXPECT_EQ(game::Game.BombRowsCleared[0], 0);
  EXPECT_EQ(game::Game.BombRowsCleared[1], 0);
  EXPECT_TRUE(SameRows(Assets.BombImages[1], whole, 0, 40)) << "a fresh bomb after the detonation";
  EXPECT_EQ(game::Game.BombX, 120);
  EXPECT_EQ(game::Game.BombY, 380);
  EXPECT_TRUE(BombSquareBlack());
  EXPECT_EQ(game::Game.HideBomb, 0);
}

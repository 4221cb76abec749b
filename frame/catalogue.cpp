// The asset catalogue: every surface of the game in its fixed order, with one
// progress step after each creation.
#include "frame/catalogue.h"

#include <cstdio>
#include <string>

#include "audio/sound_effects.h"
#include "display/bitmap_text.h"
#include "frame/frame_state.h"

namespace frame {


using display::BltOpaque;
using display::CreateBlankSurface;
using display::Display;
using display::Text;

namespace {

void Load(Surface& s, const std::string& file, int w, int h) {
  display::LoadSurface(s, "\\graphics\\" + file, w, h, 0);
  UpdateLoadStatus();
}

void Blank(Surface& s, int w, int h) {
  CreateBlankSurface(s, w, h, 0);
  display::FillSurface(s, Display.WholeRect, 0);
  UpdateLoadStatus();
}

// Glyph i of a sheet: a black surface with the sheet's cell copied opaque.
void Cut(Surface& glyph, const Surface& sheet, int i, int stride, int copyW, int copyH, int w, int h) {
  CreateBlankSurface(glyph, w, h, 0);
  display::FillSurface(glyph, Display.WholeRect, 0);
  BltOpaque(glyph, 0, 0, copyW, copyH, sheet, i * stride, 0, copyW, copyH);
  UpdateLoadStatus();
}

template <class T>
void LoadPair(T& pair, const char* plain, const char* lit, int w, int h) {
  Load(pair[0], plain, w, h);
  Load(pair[1], lit, w, h);
}

}  // namespace

void DrawLoadingTexts() {
  Surface& b = Display.BackBuffer;
  display::SetForeColour(b, 255, 0, 0);
  display::DrawText(b, 291, 286, kMakersLine);
  display::SetForeColour(b, 255, 255, 255);
  display::DrawText(b, 290, 285, kMakersLine);
  display::SetForeColour(b, 0, 0, 255);
  display::DrawText(b, 281, 311, kLoadingText);
  display::SetForeColour(b, 255, 255, 255);
  display::DrawText(b, 280, 310, kLoadingText);
}

void UpdateLoadStatus() {
  ++Frame.LoadStep;
  if (Frame.LoadStep % 20 != 0) return;
  // Full at step 815; later steps run past the right edge into the clipper.
  const int w = Frame.LoadStep * 800 / 815;
  static constexpr int kBands[10][3] = {{255, 255, 255}, {200, 255, 200}, {150, 255, 150}, {100, 255, 100},
                                        {50, 255, 50},   {0, 255, 0},     {0, 200, 0},     {0, 150, 0},
                                        {0, 100, 0},     {0, 50, 0}};
  Surface& b = Display.BackBuffer;
  for (int n = 0; n < 10; ++n) {
    display::SetForeColour(b, kBands[n][0], kBands[n][1], kBands[n][2]);
    display::SetFillColour(b, kBands[n][0], kBands[n][1], kBands[n][2]);
    display::DrawBox(b, 0, 280 + 5 * n, w - 5 * n, 285 + 5 * n);
  }
  DrawLoadingTexts();
  display::PresentFrame(1);
}

void CreateGraphics() {
  AssetSurfaces& a = Assets;
  Frame.LoadStep = 2;
  Load(a.PieceStatsImage, "piecestats.bmp", 70, 20);
  Load(a.BombStripImage, "bombs.bmp", 260, 20);
  Load(a.DetonatorStripImage, "detonators.bmp", 160, 20);
  Load(a.LineArrowImage, "linearrow.bmp", 220, 20);
  Load(a.ColumnArrowImage, "columnarrow.bmp", 220, 20);
  Load(a.EarthImage, "earth.bmp", 800, 40);
  LoadPair(a.EasyButton, "easy0.bmp", "easy.bmp", 82, 28);
  LoadPair(a.MediumButton, "medium0.bmp", "medium.bmp", 82, 28);
  LoadPair(a.HardButton, "hard0.bmp", "hard.bmp", 82, 28);
  LoadPair(a.HelpTab, "help0.bmp", "help1.bmp", 40, 40);
  LoadPair(a.MenuTab, "menu0.bmp", "menu1.bmp", 40, 40);
  LoadPair(a.HighTab, "high0.bmp", "high1.bmp", 40, 40);
  LoadPair(a.ExitTab, "exit0.bmp", "exit1.bmp", 40, 40);
  Load(a.MenuHighImage, "menuhigh.bmp", 225, 75);
  Load(a.MenuHelpImage, "menuhelp.bmp", 225, 75);
  Blank(a.PieceSheet, 640, 560);
  Blank(a.FillSheet, 120, 20);
  Blank(a.SurfPlayVariant, 275, 116);
  Blank(a.SurfPlayType, 125, 40);
  Load(a.CursorImage, "cursor.bmp", 20, 20);
  Load(a.Cursor2Image, "cursor2.bmp", 20, 20);
  Load(a.IntroImage, "intro.bmp", 640, 480);
  Load(a.StarImage, "star.bmp", 11, 11);
  for (int i = 0; i <= 9; ++i) Load(a.SparkImages[i], "work" + std::to_string(i + 1) + ".bmp", 11, 11);
  for (int i = 0; i <= 312; ++i) Blank(a.TileSurfaces[i], 50, 50);

  Load(Text.StatDigits[10], "statnumbers.bmp", 100, 10);
  for (int i = 0; i <= 9; ++i) Cut(Text.StatDigits[i], Text.StatDigits[10], i, 10, 10, 10, 10, 10);
  Load(Text.ScoreDigits[10], "scorenumbers.bmp", 200, 20);
  for (int i = 0; i <= 9; ++i) Cut(Text.ScoreDigits[i], Text.ScoreDigits[10], i, 20, 20, 20, 20, 20);
  Load(Text.BigGlyphs[48], "characterset.bmp", 2400, 50);
  for (int i = 0; i <= 47; ++i) Cut(Text.BigGlyphs[i], Text.BigGlyphs[48], i, 50, 50, 50, 50, 50);
  Load(Text.BigGlyphs[49], "select.bmp", 50, 50);
  Load(Text.SmallGlyphs[48], "characterset.bmp", 1200, 25);
  for (int i = 0; i <= 47; ++i) Cut(Text.SmallGlyphs[i], Text.SmallGlyphs[48], i, 25, 25, 25, 25, 25);

  Load(a.RockImages[2], "rocklarge.bmp", 60, 60);
  Load(a.RockImages[1], "rockmedium.bmp", 40, 40);
  Load(a.RockImages[0], "rocksmall.bmp", 20, 20);
  Load(a.CrackedImage, "cracked.bmp", 20, 20);
  Load(a.BombImages[0], "megabomb0.bmp", 40, 40);
  Blank(a.FlashSurface, 220, 40);
  Load(a.FaultBanner, "fault.bmp", 220, 40);
  Load(a.KaboomBanner, "kaboom.bmp", 220, 40);
  Load(a.SingleBanner, "single.bmp", 220, 40);
  Load(a.DoubleBanner, "double.bmp", 220, 40);
  Load(a.TripleBanner, "triple.bmp", 220, 40);
  Load(a.VorrelBanner, "vorrel.bmp", 220, 40);
  Load(a.MegaVorrelBanner, "megavorrel.bmp", 220, 40);
  Blank(a.LineStrip, 260, 20);
  LoadPair(a.ClassicButton, "classic1.bmp", "classic2.bmp", 130, 45);
  LoadPair(a.BonusButton, "bonus1.bmp", "bonus2.bmp", 130, 45);
  LoadPair(a.WickoryButton, "wickory1.bmp", "wickory2.bmp", 130, 45);
  LoadPair(a.TypeAButton, "a2.bmp", "a.bmp", 50, 50);
  LoadPair(a.TypeBButton, "b2.bmp", "b.bmp", 50, 50);
  LoadPair(a.TypeCButton, "c2.bmp", "c.bmp", 50, 50);
  Load(a.BarImage, "bar.bmp", 250, 20);
  Load(a.ColorBarImage, "colorbar.bmp", 250, 20);
  Load(a.HighlightImage, "highlight.bmp", 25, 20);
  Load(a.LevelLabel, "level.bmp", 50, 19);
  Load(a.HeightLabel, "height.bmp", 60, 22);
  Load(a.TransBarImage, "transbar.bmp", 250, 20);
  Load(a.TransparencyLabel, "transparency.bmp", 120, 22);
  Load(a.MusicLabel, "music.bmp", 92, 15);
  Load(a.SoundFxLabel, "soundfx.bmp", 92, 15);
  Load(a.VoiceLabel, "voice.bmp", 92, 15);
  Load(a.CheckImage, "check.bmp", 19, 15);
  Load(a.BoxHighlightImage, "boxhighlight.bmp", 19, 15);
  LoadPair(a.LeftArrow, "leftarrow1.bmp", "leftarrow2.bmp", 15, 15);
  LoadPair(a.RightArrow, "rightarrow1.bmp", "rightarrow2.bmp", 15, 15);
  LoadPair(a.StartButton, "start1.bmp", "start2.bmp", 120, 37);
  Load(a.FieldFrames[0], "classicframe.bmp", 304, 581);
  Load(a.FieldFrames[1], "bonusframe.bmp", 308, 593);
  Load(a.FieldFrames[2], "wickoryframe.bmp", 299, 571);
  for (int i = 0; i <= 2; ++i) {
    CreateBlankSurface(a.FieldSurfaces[i], 260, 420, 0);
    UpdateLoadStatus();
  }
  Load(a.BLinesLabel, "blines.bmp", 111, 36);
  Load(a.BLevelLabel, "blevel.bmp", 106, 34);
  Load(a.BHeightLabel, "bheight.bmp", 123, 47);
  Load(a.BBricksLabel, "bbricks.bmp", 125, 34);
  Load(a.BScoreLabel, "bscore.bmp", 95, 35);
  for (int k = 0; k <= 15; ++k)
    for (int r = 0; r <= 3; ++r)
      for (int f = 0; f <= 2; ++f) Blank(a.PieceSprites[k][r][f], 80, 80);
  for (int i = 0; i <= 7; ++i) {
    Blank(a.BlockTiles[i], 20, 20);
    if (i < 6) Blank(a.FillTiles[i], 20, 20);
  }
  Load(Text.BigDigitSheet, "numbers.bmp", 317, 36);
  for (int i = 0; i <= 10; ++i) Cut(Text.BigDigits[i], Text.BigDigitSheet, i, 29, 28, 36, 29, 36);

  // The field clipper, now that its surfaces exist (not a counted step).
  for (int i = 0; i <= 2; ++i) {
    Surface& f = a.FieldSurfaces[i];
    f.HasClipper = true;
    f.ClipRect = {0, 0, 260, 420};
    display::SetForeColour(f, 0, 0, 0);
    display::SetFillStyle(f, 0);
    display::SetFillColour(f, 0, 0, 0);
  }

  char name[64];
  for (int i = 0; i <= 22; ++i) {
    std::snprintf(name, sizeof name, "explosion\\eexplo%03d.bmp", i + 2);
    Load(a.ExplosionFrames[i], name, 80, 80);
  }
  for (int i = 0; i <= 14; ++i) Load(a.SmallExplosionFrames[i], "explosion1\\" + std::to_string(12001 + i) + ".bmp", 64, 64);
}

void CreateSound() {
  for (int index = 0; index <= 200; ++index) {
    std::string file = audio::SoundFileName(index);
    if (file.empty()) continue;
    audio::LoadSoundBuffer(index, "\\sounds\\" + file);
    UpdateLoadStatus();
  }
}

}  // namespace frame

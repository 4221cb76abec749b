// Names for screenshots and dumps: "FieldSurfaces[0]", "PieceSprites[12][0][0]".
#include <string>
#include <type_traits>

#include "display/bitmap_text.h"
#include "frame/catalogue.h"

namespace frame {

namespace {
using display::NameSurface;

template <class T>
void NameAll(T& table, const std::string& base) {
  for (long long i = T::kLow; i <= T::kHigh; ++i) {
    auto& element = table[i];
    std::string name = base + "[" + std::to_string(i) + "]";
    if constexpr (std::is_same_v<std::decay_t<decltype(element)>, display::Surface>)
      NameSurface(element, name);
    else
      NameAll(element, name);
  }
}
}  // namespace

#define NAME(s) NameSurface(a.s, #s)
#define NAME_ALL(t) NameAll(a.t, #t)

void NameAssetSurfaces() {
  AssetSurfaces& a = Assets;
  NAME(PieceStatsImage); NAME(BombStripImage); NAME(DetonatorStripImage); NAME(LineArrowImage);
  NAME(ColumnArrowImage); NAME(EarthImage);
  NAME_ALL(EasyButton); NAME_ALL(MediumButton); NAME_ALL(HardButton);
  NAME_ALL(HelpTab); NAME_ALL(MenuTab); NAME_ALL(HighTab); NAME_ALL(ExitTab);
  NAME(MenuHighImage); NAME(MenuHelpImage); NAME(PieceSheet); NAME(FillSheet);
  NAME(SurfPlayVariant); NAME(SurfPlayType); NAME(CursorImage); NAME(Cursor2Image);
  NAME(IntroImage); NAME(StarImage); NAME_ALL(SparkImages); NAME_ALL(TileSurfaces);
  NAME_ALL(RockImages); NAME(CrackedImage); NAME_ALL(BombImages); NAME(FlashSurface);
  NAME(FaultBanner); NAME(KaboomBanner); NAME(SingleBanner); NAME(DoubleBanner); NAME(TripleBanner);
  NAME(VorrelBanner); NAME(MegaVorrelBanner); NAME(LineStrip);
  NAME_ALL(ClassicButton); NAME_ALL(BonusButton); NAME_ALL(WickoryButton);
  NAME_ALL(TypeAButton); NAME_ALL(TypeBButton); NAME_ALL(TypeCButton);
  NAME(BarImage); NAME(ColorBarImage); NAME(HighlightImage); NAME(LevelLabel); NAME(HeightLabel);
  NAME(TransBarImage); NAME(TransparencyLabel); NAME(MusicLabel); NAME(SoundFxLabel); NAME(VoiceLabel);
  NAME(CheckImage); NAME(BoxHighlightImage); NAME_ALL(LeftArrow); NAME_ALL(RightArrow); NAME_ALL(StartButton);
  NAME_ALL(FieldFrames); NAME_ALL(FieldSurfaces);
  NAME(BLinesLabel); NAME(BLevelLabel); NAME(BHeightLabel); NAME(BBricksLabel); NAME(BScoreLabel);
  NAME_ALL(PieceSprites); NAME_ALL(BlockTiles); NAME_ALL(FillTiles);
  NAME_ALL(ExplosionFrames); NAME_ALL(SmallExplosionFrames);
  NAME(StatusImage); NAME(BackgroundImage);

  display::TextState& t = display::Text;
  NameAll(t.BigGlyphs, "BigGlyphs");
  NameAll(t.SmallGlyphs, "SmallGlyphs");
  NameAll(t.StatDigits, "StatDigits");
  NameAll(t.ScoreDigits, "ScoreDigits");
  NameAll(t.BigDigits, "BigDigits");
  NameSurface(t.BigDigitSheet, "BigDigitSheet");
  NameSurface(display::Display.Backdrop, "Backdrop");
}

}  // namespace frame

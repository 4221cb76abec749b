// Every picture the game holds. The catalogue (frame/) creates them once at
// start-up, in a fixed order, behind the loading screen; a few are reloaded
// later by the screens that show them (menu banners, status panel, backdrops,
// bombs). Declared here so that every floor above the display can draw them.
#pragma once
#include "core/table.h"
#include "display/surface.h"

namespace display {

template <class T, long long N>
using Row0 = core::Table<T, 0, N - 1>;

struct AssetSurfaces {
  Surface PieceStatsImage, BombStripImage, DetonatorStripImage, LineArrowImage, ColumnArrowImage, EarthImage;
  Row0<Surface, 2> EasyButton, MediumButton, HardButton;
  Row0<Surface, 2> HelpTab, MenuTab, HighTab, ExitTab;
  Surface MenuHighImage, MenuHelpImage;
  Surface PieceSheet, FillSheet;
  Surface SurfPlayVariant, SurfPlayType;
  Surface CursorImage, Cursor2Image;
  Surface IntroImage, StarImage;
  Row0<Surface, 10> SparkImages;
  Row0<Surface, 313> TileSurfaces;
  Row0<Surface, 3> RockImages;  // 0 small, 1 medium, 2 large
  Surface CrackedImage;
  Row0<Surface, 6> BombImages;  // 0 the megabomb; 1..5 the Type C bomb, loaded by the menu
  Surface FlashSurface;
  Surface FaultBanner, KaboomBanner, SingleBanner, DoubleBanner, TripleBanner, VorrelBanner, MegaVorrelBanner;
  Surface LineStrip;
  Row0<Surface, 2> ClassicButton, BonusButton, WickoryButton;
  Row0<Surface, 2> TypeAButton, TypeBButton, TypeCButton;
  Surface BarImage, ColorBarImage, HighlightImage;
  Surface LevelLabel, HeightLabel, TransBarImage, TransparencyLabel;
  Surface MusicLabel, SoundFxLabel, VoiceLabel;
  Surface CheckImage, BoxHighlightImage;
  Row0<Surface, 2> LeftArrow, RightArrow, StartButton;
  Row0<Surface, 3> FieldFrames;
  Row0<Surface, 3> FieldSurfaces;  // 0 the playfield, 1 a working copy, 2 a picture in the field's place
  Surface BLinesLabel, BLevelLabel, BHeightLabel, BBricksLabel, BScoreLabel;
  Row0<Row0<Row0<Surface, 3>, 4>, 16> PieceSprites;  // [kind][rotation][fuse set]
  Row0<Surface, 8> BlockTiles;
  Row0<Surface, 6> FillTiles;
  Row0<Surface, 23> ExplosionFrames;
  Row0<Surface, 15> SmallExplosionFrames;
  // Loaded later by the screens that use them.
  Surface StatusImage, BackgroundImage;
};
extern AssetSurfaces Assets;

}  // namespace display

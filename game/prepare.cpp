// What the start button readies before a game: the pictures of the chosen
// variant and type, the background, the statistics, the frame, the Type C
// bomb, the piece sprites, and the music.
#include <string>

#include "audio/music.h"
#include "audio/sound_effects.h"
#include "core/settings.h"
#include "display/assets.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/pieces.h"
#include "game/playfield.h"

namespace game {

void PrepareGame() {
  GameState& g = Game;
  core::MenuSettings& s = core::Settings;
  display::AssetSurfaces& a = display::Assets;
  const int variant = s.GameVariant >= 0 && s.GameVariant <= 2 ? s.GameVariant : 0;

  static const char* const kStatus[3] = {"classicStatus", "BonusStatus", "fuseStatus"};
  static const char* const kBadge[3] = {"playclassic", "playbonus", "playfuse"};
  static constexpr int kShownKinds[3] = {7, 16, 14};
  display::LoadSurface(a.StatusImage, std::string("\\graphics\\") + kStatus[variant] + ".bmp", 70, 480);
  display::LoadSurface(a.SurfPlayVariant, std::string("\\graphics\\") + kBadge[variant] + ".bmp", 275, 116);
  const int shown = kShownKinds[variant];
  static const char* const kType[3] = {"playtypea", "playtypeb", "playtypec"};
  const int type = s.PlayType >= 0 && s.PlayType <= 2 ? s.PlayType : 0;
  display::LoadSurface(a.SurfPlayType, std::string("\\graphics\\") + kType[type] + ".bmp", 125, 40);
  if (variant == 2) display::FillSurface(a.SurfPlayType, display::Display.WholeRect, 0);  // Wickory shows no type
  if (variant != 2 && s.PlayType == 2) s.StartHeight = 0;
  MakeBackground();

  for (int k = 0; k < shown; ++k) {
    display::BltOpaque(a.StatusImage, 60, 10 + 30 * k, 10, 10, display::Text.StatDigits[0], 0, 0, 10, 10);
    g.PieceCounts[k] = 0;
  }

  static constexpr int16_t kFrames[3][4] = {{160, 7, 304, 581}, {158, 3, 308, 593}, {163, 20, 299, 571}};
  g.FrameX = kFrames[variant][0];
  g.FrameY = kFrames[variant][1];
  g.FrameW = kFrames[variant][2];
  g.FrameH = kFrames[variant][3];

  if (s.PlayType == 2) {
    g.BombY = 380;
    g.BombX = 120;
    for (int i = 1; i <= 5; ++i)
      display::LoadSurface(a.BombImages[i], "\\graphics\\megabomb" + std::to_string(i) + ".bmp", 40, 40);
  }

  CreatePieces();
  audio::PlaySoundEffect(0);
  int16_t track = s.MusicTrack;  // a random pick for track 0 stays out of the settings
  audio::PlayMusic(track, true);
}

}  // namespace game

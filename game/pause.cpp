// The pause: the field squeezes away behind the pause picture and comes back
// exactly as it was once the pause key is pressed and released again.
#include "audio/sound_effects.h"
#include "core/hooks.h"
#include "display/assets.h"
#include "core/settings.h"
#include "display/surface.h"
#include "fuse/fuse_field.h"
#include "fuse/fuse_state.h"
#include "game/game_loop.h"
#include "game/game_state.h"
#include "game/playfield.h"
#include "input/control_mapping.h"

namespace game {

namespace {

using display::Assets;

void ShowFrame() {
  if (core::Settings.GameVariant == 2)
    fuse::DrawFuseField();
  else
    DrawPlayfield();
  display::PresentFrame(0);
}

// One frame of the squeeze: `source` scaled into the middle 260 - 2x pixels.
void Squeeze(const display::Surface& source, int x) {
  display::Surface& field = Assets.FieldSurfaces[0];
  display::FillSurface(field, display::Display.WholeRect, 0);
  display::BltKeyed(field, x, 0, 260 - 2 * x, 420, source, 0, 0, 260, 420);
  ShowFrame();
}

void Close(const display::Surface& source) {
  for (int x = 0; x <= 130; x += 10) Squeeze(source, x);
}

void Open(const display::Surface& source) {
  for (int x = 130; x >= 0; x -= 10) Squeeze(source, x);
}

// Polls and draws until the pause key's state is `held` no longer.
void WaitWhile(bool held, bool clearFirst) {
  int16_t& request = input::Controls.PauseRequest;
  do {
    if (clearFirst) request = 0;
    input::ControlCheck();
    ShowFrame();
  } while ((request == 1) == held);
}

}  // namespace

void PauseScreen() {
  GameState& g = Game;
  display::Surface& field = Assets.FieldSurfaces[0];
  display::Surface& saved = Assets.FieldSurfaces[1];
  display::Surface& picture = Assets.FieldSurfaces[2];
  core::EnterScreen("pause");
  audio::PlaySoundEffect(15);
  display::LoadSurface(picture, "\\graphics\\pause.bmp", 260, 420);
  picture.HasClipper = true;  // loading made a new surface: the field's clipper again
  picture.ClipRect = {0, 0, 260, 420};
  display::BltOpaque(saved, 0, 0, 260, 420, field, 0, 0, 260, 420);
  g.HideBomb = 1;
  fuse::Fuse.BurnFlag = 1;  // the charges glow through the pause

  Close(saved);
  Open(picture);
  WaitWhile(true, true);    // the key that opened the pause is still held
  WaitWhile(false, false);  // until it is pressed again
  WaitWhile(true, true);    // and released
  audio::PlaySoundEffect(16);
  g.HideBomb = 0;
  Close(picture);
  Open(saved);
  display::BltOpaque(field, 0, 0, 260, 420, saved, 0, 0, 260, 420);
  fuse::Fuse.BurnFlag = 0;
  input::Controls.PauseRequest = 0;
  core::EnterScreen("play");
}

}  // namespace game

#include "frame/state_exposure.h"

#include "audio/audio_devices.h"
#include "bonus/bonus_state.h"
#include "fuse/fuse_state.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "frame/frame_state.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "core/settings.h"
#include "game/game_state.h"
#include "frontend/front_state.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"

// Records show as arrays in their field order.
VARS_RECORD(display::Rect, &display::Rect::Left, &display::Rect::Top, &display::Rect::Right, &display::Rect::Bottom);
VARS_RECORD(platform::MouseReading, &platform::MouseReading::dx, &platform::MouseReading::dy,
            &platform::MouseReading::dz, &platform::MouseReading::buttons);
VARS_RECORD(platform::JoystickReading, &platform::JoystickReading::x, &platform::JoystickReading::y,
            &platform::JoystickReading::buttons);

namespace frame {

void ExposeProgramState() {
  display::DisplayState& d = display::Display;
  vars::Expose("SrcRect", d.SrcRect);
  vars::Expose("DestRect", d.DestRect);
  vars::Expose("ScreenRect", d.ScreenRect);
  vars::Expose("WholeRect", d.WholeRect);
  vars::Expose("KeyboardState", input::Input.KeyboardState);
  vars::Expose("MouseState", input::Input.MouseState);
  vars::Expose("JoystickState", input::Input.JoystickState);
  vars::Expose("AppRunning", core::Run.AppRunning);
  vars::Expose("LoadStep", Frame.LoadStep);
  vars::Expose("PixelValue", display::Display.PixelValue);
  vars::Expose("GlyphOrder", display::Text.GlyphOrder);
  vars::Expose("JoystickOff", input::Input.JoystickOff);
  vars::Expose("KeyTable", input::Input.KeyTable);
  input::ControlState& c = input::Controls;
  vars::Expose("KeyLeft", c.KeyLeft);
  vars::Expose("KeyRight", c.KeyRight);
  vars::Expose("KeyDown", c.KeyDown);
  vars::Expose("KeyFlip", c.KeyFlip);
  vars::Expose("LatchLeft", c.LatchLeft);
  vars::Expose("LatchRight", c.LatchRight);
  vars::Expose("LatchDown", c.LatchDown);
  vars::Expose("LatchFlip", c.LatchFlip);
  vars::Expose("PauseRequest", c.PauseRequest);
  vars::Expose("MouseAccumX", c.MouseAccumX);
  vars::Expose("PointerX", c.PointerX);
  vars::Expose("PointerY", c.PointerY);
  vars::Expose("PointerButton", c.PointerButton);
  vars::Expose("PointerButton2", c.PointerButton2);
  vars::Expose("ClickLatch", c.ClickLatch);
  vars::Expose("ClickLatch2", c.ClickLatch2);
  vars::Expose("TypedGlyph", c.TypedGlyph);
  core::MenuSettings& s = core::Settings;
  vars::Expose("GameVariant", s.GameVariant);
  vars::Expose("PlayType", s.PlayType);
  vars::Expose("Level", s.Level);
  vars::Expose("StartHeight", s.StartHeight);
  vars::Expose("Difficulty", s.Difficulty);
  vars::Expose("Transparency", s.Transparency);
  vars::Expose("MusicOn", s.MusicOn);
  vars::Expose("SoundOn", s.SoundOn);
  vars::Expose("VoiceOn", s.VoiceOn);
  vars::Expose("MusicTrack", s.MusicTrack);
  game::ExposeGameState();
  bonus::ExposeBonusState();
  fuse::ExposeFuseState();
  frontend::ExposeFrontState();
  audio::ExposeAudioState();
  NameAssetSurfaces();
}

}  // namespace frame

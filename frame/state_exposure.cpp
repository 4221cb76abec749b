#include "frame/state_exposure.h"

#include "audio/audio_devices.h"
#include "display/bitmap_text.h"
#include "display/surface.h"
#include "frame/catalogue.h"
#include "frame/frame_state.h"
#include "frame/variables.h"
#include "frontend/settings.h"
#include "input/input_devices.h"

namespace frame {

void ExposeProgramState() {
  vars::Expose("AppRunning", Frame.AppRunning);
  vars::Expose("LoadStep", Frame.LoadStep);
  vars::Expose("PixelValue", display::Display.PixelValue);
  vars::Expose("GlyphOrder", display::Text.GlyphOrder);
  vars::Expose("JoystickOff", input::Input.JoystickOff);
  frontend::MenuSettings& s = frontend::Settings;
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
  audio::ExposeAudioState();
  NameAssetSurfaces();
}

}  // namespace frame

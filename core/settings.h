// The player's choices, set in the main menu and kept in VSys/maindata.inf;
// the game and the audio read them.
#pragma once
#include <cstdint>

namespace core {

struct MenuSettings {
  int16_t GameVariant = 1;  // 0 Classic, 1 Bonus, 2 Wickory
  int16_t PlayType = 0;     // 0 A, 1 B, 2 C
  int16_t Level = 0;
  double StartHeight = 0;
  int16_t Difficulty = 0;
  int16_t Transparency = 5;
  int16_t MusicOn = 1;
  int16_t SoundOn = 1;
  int16_t VoiceOn = 1;
  int16_t MusicTrack = 0;
};
extern MenuSettings Settings;

}  // namespace core

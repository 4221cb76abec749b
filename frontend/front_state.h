// The front end's state: the menu's page and requests, the click sparks'
// ring, the animated buttons, the high-score tables and the name being typed.
#pragma once
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "core/table.h"
#include "display/surface.h"

namespace frontend {

// One place of a high-score table.
struct HighScoreEntry {
  std::string Name;  // up to 8 characters, upper case
  int32_t Score = 0;
  int16_t Lines = 0;
  int16_t Level = 0;
  static constexpr auto VarFields() {
    return std::tuple(&HighScoreEntry::Name, &HighScoreEntry::Score, &HighScoreEntry::Lines, &HighScoreEntry::Level);
  }
};

// [variant 0..2][play type 0..2][rank 0..4]; Wickory uses play type 0 only.
using HighScoreTable = core::Table<core::Table<core::Table<HighScoreEntry, 0, 4>, 0, 2>, 0, 2>;

// A pulsing button: its deformation and the deformation's change per frame.
using Pulse = core::Table<double, 0, 1>;

struct FrontState {
  int16_t MenuPage = 0;      // 0 options, 1 high scores, 2 help
  int16_t StartRequest = 0;  // set by the start button
  int16_t SparkSlot = 0;     // first slot of the next click burst (or firework burst)
  // The seven pulsing buttons of the options page.
  Pulse ClassicPulse, BonusPulse, WickoryPulse, TypeAPulse, TypeBPulse, TypeCPulse, StartPulse;
  HighScoreTable HighScores;
  std::string EntryName;
  std::vector<std::string> CreditsText;  // 152 lines, filled at start-up
  // The rocket of the game-over show and its two flames.
  display::Surface RocketImage;
  core::Table<display::Surface, 0, 1> RocketFire;
};
extern FrontState Front;

// Every variable above in the dumps, by its own name.
void ExposeFrontState();

}  // namespace frontend

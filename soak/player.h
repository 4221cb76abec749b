// The soak's player: what it is doing on each screen, and the steps it
// takes at each poll. Everything it reads is what the game shows (the screen
// name, the menu page and choices, the falling piece, the field); everything
// it does goes through the scripted devices, as a script's lines would.
#pragma once
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "soak/dice.h"
#include "soak/placement.h"
#include "soak/soak.h"

namespace soak {

// A click at a point of the menu or the name entry, or a key.
struct Step {
  enum Kind { Click, Key, RightClick, Point } kind = Click;
  int x = 0, y = 0;  // Click, Point; the key code for Key
  int waitPolls = 1;  // polls to let pass before it
};

struct PlayState {
  // The game's way of being played, chosen at its start.
  int careless = 0;   // percent of pieces put anywhere reachable
  bool softDrop = true;
  bool mouse = false;  // sideways by motion, flip and drop by the buttons
  int pauseOdds = 3000;
  uint64_t giveUpAt = 0;  // polls into the game after which it plays to lose
  uint64_t polls = 0;
  // The piece being steered.
  int planned = -1;  // the draw count it was planned at
  Target target;
  bool bonusFlip = false;
  int bonusFlipRow = 0;
  int stuck = 0;
  int lastX = 0, lastRot = 0;
  bool tappedLast = false;
  bool downHeld = false;
  bool buttonHeld = false;
};

struct Player {
  Counts* shared = nullptr;
  Dice dice;
  std::string home;
  std::set<std::string> replaysSeen;

  std::string screen = "none";
  std::string previous = "none";
  uint64_t screenPolls = 0;  // polls since this screen was entered
  uint64_t runFrames = 0;
  uint64_t soakFrames = 0;  // the whole soak's length, for the memory figures
  uint64_t frameBase = 0;   // frames of the runs before this one

  // The menu, the name entry, the clicks away: the steps still to take.
  std::vector<Step> steps;
  size_t nextStep = 0;
  int waited = 0;
  bool menuPlanned = false;
  int wantVariant = 0, wantType = 0, wantLevel = 0, wantHeight = 0, wantDifficulty = 0;

  // Bonus effects and detonations: the kinds drawn this game, in order.
  std::vector<int> drawn;
  int variant = 0, type = 0;
  bool blastCheck = false;
  double heightBefore = 0;
  int levelBefore = 0;

  PlayState play;
  bool gameLog = false;
  uint64_t gameStartFrame = 0;
};

Player& ThePlayer();

// Steps at a poll of each screen (play.cpp holds the play).
void SteerMenu(Player& p);
void SteerPlay(Player& p);
void StartPlay(Player& p);
// Takes the next due step of p.steps; true while steps are left.
bool TakeSteps(Player& p);
// Names in HOME/replays/ not seen before (a file replaced counts again).
int ScanReplays(const std::string& home, std::set<std::string>& seen);

}  // namespace soak

// The main menu: options, high scores and help on three pages, the start
// button's sequence and the exit tab.
#pragma once
#include "core/hooks.h"

namespace frontend {

// Returns with AppRunning false (the exit tab), or with a game chosen,
// saved and prepared.
void MainMenu();
// One hit-test pass over the current page.
void CheckMenuButton1();
// One frame of the menu on the back buffer: the page, the tabs, the sparks
// and the pointer.
void DrawMenu();
// A game asked for at start-up: the menu's files and picture, then the start
// sequence without saving, as if the start button had been used.
void StartRequestedGame(const core::GameRequest& request);

// Wickory can be chosen (false shows it dimmed and a stored choice plays Classic).
inline constexpr bool kWickoryOpen = true;

// Click rectangles: a < x < b and c < y < d, or a <= x <= b, c <= y <= d.
struct HitRect {
  int a, b, c, d;
  bool inclusive = false;
};
bool PointerIn(const HitRect& r);

}  // namespace frontend

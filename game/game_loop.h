// A game from its start to its end: the preparation the menu's start button
// runs, the set-up, the falling-piece loop and the pause screen.
#pragma once

namespace game {

// Readies the chosen variant: status panel, badges, background, frame, the
// Type C bomb, the sprites, sound and music.
void PrepareGame();
void BeginGame();
void StandardGame();
void PauseScreen();

}  // namespace game

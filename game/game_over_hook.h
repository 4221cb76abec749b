// How a finished game reaches the show after it: the game-over sequence
// lives on the floor above the games, which fills this in at start-up.
#pragma once

namespace game {

// Called by the falling-piece loop once, when a new piece cannot enter the
// field; runs the whole game-over show and returns when the final screen
// has closed. Empty (nothing happens) until the front end fills it.
inline void (*GameOverHook)() = nullptr;

}  // namespace game

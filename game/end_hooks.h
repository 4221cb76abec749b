// The pieces of the front end's game-over show that the fuse game's own
// ending uses; the front end fills them in at start-up, as GameOverHook.
#pragma once

namespace game {

inline void (*RocketBlastHook)() = nullptr;
// True when ScoreShown beats the fifth place of the game's table.
inline bool (*QualifiesForTableHook)() = nullptr;
inline void (*NewHighScoreHook)() = nullptr;
inline void (*FinalScreenHook)() = nullptr;

}  // namespace game

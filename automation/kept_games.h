// The replays kept with the high scores: each game is recorded from its
// beginning; when its result is filed in a table the recording is kept in
// replays/ of the home folder, and recordings whose places were lost go.
#pragma once
#include <string>

#include "automation/options.h"

namespace automation {

// Fills the GameBegins and ResultStored hooks (part of InstallHooks).
void InstallKeptGames();
// Hashes the data folder on a thread of its own, so that the first kept
// game of a paced session does not stall a frame for it (not while a
// recording plays: nothing is kept then).
void HashDataSoon();
// The game that began is over: its recording, unless kept, is dropped.
void GameEnded();

// Sets options up to play the recording at path: its first game begins from
// the state kept in it. False with a message when it is no recording, or one
// of another version or data.
bool PrepareReplay(const std::string& path, Options& options, std::string& error);
// True while a recording plays: nothing of it is kept again.
bool Replaying();

// Prints the kept recordings, table by table; returns how many there are.
int ListReplays();
// The home folder's replays/ (made when missing).
std::string ReplayFolder();

}  // namespace automation

// The automation: scripted input, observing lines (dumps, screenshots), the
// logs of the dump, recording. The game calls these hooks at its moments; with
// no script, dump or record asked for they cost next to nothing.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "automation/options.h"
#include "core/hooks.h"

namespace automation {

// Fills the hooks of core/hooks.h with the functions below.
void InstallHooks();
// Reads the script (throws core::UsageError naming the line on a bad one).
void Configure(const automation::Options& options);
// Lines due at moment 0 that must act before the start-up handler (joy plug).
void BeforeStartup();
// Observing lines at moment 0: after the start-up handler, before the first frame.
void AfterStartup();
// Just after a frame was presented (frame moment).
void FrameMoment();
// Just before a control mapping reads its devices (poll moment).
void PollMoment();
// After a pass that presented nothing (the tick limit applies there too).
void IdleMoment();
// At the end of the run, however it ends: writes the --dump file, the recording.
void Finish(int exitStatus);

// Screen names of the frames ("loading", "intro", "menu", "play", ...).
void EnterScreen(const char* name);
const char* CurrentScreen();

// Logs of the dump.
void NoteSound(int index, bool played);
void NoteSoundStop(int index);
void NoteMusicPlay(const std::string& title, bool loop);
void NoteMusicStop();
void NoteMusicTempo(int percent);
void NoteDraw(int nextKind, int nextFuse, int chargeCount, bool forced);
void NoteFile(bool write, const std::string& name);
void NoteMessage(const std::string& title, const std::string& text);
void NoteBeep();

// The `game` command: true once, with the request, when a game is to start
// without the menu (at start-up) or from the menu.
using GameRequest = core::GameRequest;
bool TakeGameRequest(GameRequest& out);
// The `next` command's queue: true with the oldest queued piece.
bool TakeQueuedPiece(int& kind, int& fuse);

// The `field ROW CELLS` command paints through the game: set while a game can
// take it, cleared (an empty function) when the game is gone.
void SetFieldPainter(std::function<void(int row, const std::string& cells)> painter);
void SetFieldStamper(std::function<void(int kind, int rot, int fuse, int col, int row)> stamper);

// The seed the run uses (the recording's first line). Needed only when the
// command line gave none.
void NoteSeed(uint32_t seed);

// A program that steers the game from inside the process (the soak): at
// every poll, after the script's lines due there and before the devices are
// read, it may feed the scripted input; it also hears of frames, screens,
// sounds and piece draws. It outlives Configure, so it drives run after run;
// without one nothing changes.
struct Driver {
  std::function<void()> Poll;
  std::function<void()> Frame;
  std::function<void(const char* screen)> Screen;
  std::function<void(int index)> Sound;
  std::function<void()> Draw;
};
void SetDriver(Driver driver);

}  // namespace automation

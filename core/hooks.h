// How the lower floors tell the automation what happens: the moments of a
// run, the screen names of the frames, the logs of a dump, and the requests a
// script makes of the game. The automation fills these hooks at start-up;
// unfilled, each costs a test of an empty function.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace core {

// A `game` request: a game to start without the menu (at start-up) or from it.
struct GameRequest {
  int variant = 0, type = 0, level = 0, height = 0, difficulty = 0;
};

struct HookTable {
  std::function<void()> FrameMoment;  // just after a frame was presented
  std::function<void()> PollMoment;   // just before a control mapping reads
  std::function<void()> IdleMoment;   // after a pass that presented nothing
  std::function<void(const char*)> ScreenEntered;
  std::function<void(int index, bool played)> Sound;
  std::function<void(int index)> SoundStop;
  std::function<void(const std::string& title, bool loop)> MusicPlay;
  std::function<void()> MusicStop;
  std::function<void(int percent)> MusicTempo;
  std::function<void(int nextKind, int nextFuse, int chargeCount, bool forced)> Draw;
  std::function<void(bool write, const std::string& name)> File;
  std::function<void(const std::string& title, const std::string& text)> Message;
  std::function<void()> Beep;
  std::function<bool(GameRequest&)> TakeGameRequest;
  std::function<bool(int& kind, int& fuse)> TakeQueuedPiece;
  // The game offers (or, with an empty function, withdraws) its painter of
  // field rows for the `field` command.
  std::function<void(std::function<void(int row, const std::string& cells)>)> FieldPainter;
  // The fuse game offers its stamper of pieces for the `stamp` command.
  std::function<void(std::function<void(int kind, int rot, int fuse, int col, int row)>)> FieldStamper;
  // A game begins (before it touches anything), and a result was filed at
  // `rank` of table (variant, type) and saved: a kept game starts and ends there.
  std::function<void()> GameBegins;
  std::function<void(int variant, int type, int rank)> ResultStored;
};
extern HookTable Hooks;

void FrameMoment();
void PollMoment();
void IdleMoment();

// Screen names of the frames ("loading", "intro", "menu", "play", ...).
void EnterScreen(const char* name);
const char* CurrentScreen();

void NoteSound(int index, bool played);
void NoteSoundStop(int index);
void NoteMusicPlay(const std::string& title, bool loop);
void NoteMusicStop();
void NoteMusicTempo(int percent);
void NoteDraw(int nextKind, int nextFuse, int chargeCount, bool forced);
void NoteFile(bool write, const std::string& name);
void NoteMessage(const std::string& title, const std::string& text);
void NoteBeep();

// True once, with the request, when a `game` line asks for a game.
bool TakeGameRequest(GameRequest& out);
// True with the oldest piece of the `next` queue.
bool TakeQueuedPiece(int& kind, int& fuse);
void SetFieldPainter(std::function<void(int row, const std::string& cells)> painter);
void SetFieldStamper(std::function<void(int kind, int rot, int fuse, int col, int row)> stamper);
void NoteGameBegins();
void NoteResultStored(int variant, int type, int rank);

}  // namespace core

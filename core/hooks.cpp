#include "core/hooks.h"

namespace core {

HookTable Hooks;

namespace {
std::string screen = "none";
}

void FrameMoment() {
  if (Hooks.FrameMoment) Hooks.FrameMoment();
}
void PollMoment() {
  if (Hooks.PollMoment) Hooks.PollMoment();
}
void IdleMoment() {
  if (Hooks.IdleMoment) Hooks.IdleMoment();
}

void EnterScreen(const char* name) {
  screen = name;
  if (Hooks.ScreenEntered) Hooks.ScreenEntered(name);
}
const char* CurrentScreen() { return screen.c_str(); }

void NoteSound(int index, bool played) {
  if (Hooks.Sound) Hooks.Sound(index, played);
}
void NoteSoundStop(int index) {
  if (Hooks.SoundStop) Hooks.SoundStop(index);
}
void NoteMusicPlay(const std::string& title, bool loop) {
  if (Hooks.MusicPlay) Hooks.MusicPlay(title, loop);
}
void NoteMusicStop() {
  if (Hooks.MusicStop) Hooks.MusicStop();
}
void NoteMusicTempo(int percent) {
  if (Hooks.MusicTempo) Hooks.MusicTempo(percent);
}
void NoteDraw(int nextKind, int nextFuse, int chargeCount, bool forced) {
  if (Hooks.Draw) Hooks.Draw(nextKind, nextFuse, chargeCount, forced);
}
void NoteFile(bool write, const std::string& name) {
  if (Hooks.File) Hooks.File(write, name);
}
void NoteMessage(const std::string& title, const std::string& text) {
  if (Hooks.Message) Hooks.Message(title, text);
}
void NoteBeep() {
  if (Hooks.Beep) Hooks.Beep();
}

bool TakeGameRequest(GameRequest& out) { return Hooks.TakeGameRequest && Hooks.TakeGameRequest(out); }
bool TakeQueuedPiece(int& kind, int& fuse) { return Hooks.TakeQueuedPiece && Hooks.TakeQueuedPiece(kind, fuse); }
void SetFieldPainter(std::function<void(int row, const std::string& cells)> painter) {
  if (Hooks.FieldPainter) Hooks.FieldPainter(std::move(painter));
}
void SetFieldStamper(std::function<void(int kind, int rot, int fuse, int col, int row)> stamper) {
  if (Hooks.FieldStamper) Hooks.FieldStamper(std::move(stamper));
}
void NoteGameBegins() {
  if (Hooks.GameBegins) Hooks.GameBegins();
}
void NoteResultStored(int variant, int type, int rank) {
  if (Hooks.ResultStored) Hooks.ResultStored(variant, type, rank);
}

}  // namespace core

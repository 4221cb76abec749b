// When script lines run: moments, polls, the start-up, the end.
#include <algorithm>
#include <cstdio>

#include "automation/internal.h"
#include "automation/kept_games.h"
#include "automation/record.h"
#include "core/errors.h"
#include "core/json_writer.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/devices.h"
#include "platform/scripted_input.h"

namespace automation {
namespace {

// Lines at 0 that must act before the start-up handler sees the devices and
// the home files.
bool ActsBeforeStartup(Op op) {
  switch (op) {
    case Op::JoyPlug:
    case Op::JoyUnplug:
    case Op::Game:
    case Op::Next:
    case Op::FilePut:
    case Op::FileRemove:
      return true;
    default:
      return false;
  }
}

Point FramePoint(const Engine& e, uint64_t frame) { return Point{frame, 0, e.pollsAtFrame[frame]}; }
Point PollPoint(const Engine& e, uint64_t poll) { return Point{e.framesAtPoll[poll], 1, poll}; }

// Where the cursor line's moment lies, once the run has got there.
std::optional<Point> Reached(const Engine& e, const Moment& m) {
  uint64_t target = 0;
  switch (m.kind) {
    case Moment::Kind::Frames:
      target = static_cast<uint64_t>(m.count);
      break;
    case Moment::Kind::PlusFrames:
      if (m.count == 0) return e.anchor;
      target = e.anchor.frames + static_cast<uint64_t>(m.count);
      break;
    case Moment::Kind::PlusPolls: {
      // Reached at that poll, or at once if it has already been.
      uint64_t poll = e.anchor.poll + static_cast<uint64_t>(m.count);
      if (poll < e.pollsStarted) return PollPoint(e, poll);
      return std::nullopt;
    }
    case Moment::Kind::Screen: {
      auto it = e.visitStart.find(m.name);
      if (it != e.visitStart.end() && e.anchor < it->second) return it->second;
      return std::nullopt;
    }
    case Moment::Kind::Begin:
      if (e.gameBegan && e.anchor < *e.gameBegan) return *e.gameBegan;
      return std::nullopt;
    case Moment::Kind::Sound:
    case Moment::Kind::Music:
      if (e.triggered && e.where == Where::Frame) return CurrentPoint();
      return std::nullopt;
  }
  if (e.frames >= target) return FramePoint(e, target);
  return std::nullopt;
}

void Run(Engine& e, size_t index) {
  const ScriptLine& line = e.lines[index];
  RunCommand(line);
  if (e.recorder) e.recorder->Carry(line);
  // A game changed by a script keeps those changes in its replay.
  const Op op = line.command.op;
  if (e.gameRecorder && (op == Op::Set || op == Op::Field || op == Op::Stamp || op == Op::Next))
    e.gameRecorder->Carry(line);
}

// Takes every line whose moment has come: lines of the moment run, acting
// lines wait for a poll (or run now, at a poll).
void Advance(Engine& e) {
  while (e.cursor < e.lines.size()) {
    std::optional<Point> at = Reached(e, e.lines[e.cursor].when);
    if (!at) break;
    e.anchor = *at;
    e.triggered = false;
    size_t index = e.cursor++;
    if (e.ranEarly[index]) continue;
    if (RunsAtMoment(e.lines[index].command.op) || e.where == Where::Poll) {
      Run(e, index);
    } else {
      e.pending.push_back(index);
    }
  }
}

// The histories serve only lines still to come: a long session without a
// script keeps nothing.
bool Counting(const Engine& e) { return e.cursor < e.lines.size(); }

void QuitForLimit(Engine& e) {
  if (platform::QuitRequested()) return;
  platform::RequestQuit();
  if (e.recorder) e.recorder->Quit();
}

}  // namespace

Engine& State() {
  static Engine engine;
  return engine;
}

Driver& TheDriver() {
  static Driver driver;
  return driver;
}

void SetDriver(Driver driver) { TheDriver() = std::move(driver); }

Point CurrentPoint() {
  const Engine& e = State();
  switch (e.where) {
    case Where::Start: return Point{};
    case Where::Frame: return Point{e.frames, 0, e.pollsStarted};
    case Where::Poll: return Point{e.frames, 1, e.pollsStarted - 1};
  }
  return Point{};
}

void InstallHooks() {
  core::HookTable& h = core::Hooks;
  h.FrameMoment = FrameMoment;
  h.PollMoment = PollMoment;
  h.IdleMoment = IdleMoment;
  h.ScreenEntered = EnterScreen;
  h.Sound = NoteSound;
  h.SoundStop = NoteSoundStop;
  h.MusicPlay = NoteMusicPlay;
  h.MusicStop = NoteMusicStop;
  h.MusicTempo = NoteMusicTempo;
  h.Draw = NoteDraw;
  h.File = NoteFile;
  h.Message = NoteMessage;
  h.Beep = NoteBeep;
  h.TakeGameRequest = TakeGameRequest;
  h.TakeQueuedPiece = TakeQueuedPiece;
  h.FieldPainter = SetFieldPainter;
  h.FieldStamper = SetFieldStamper;
  InstallKeptGames();
}

void Configure(const automation::Options& options) {
  InstallHooks();
  Engine& e = State();
  e = Engine{};
  e.options = options;
  e.seed = options.seed;
  platform::scripted::Reset();
  platform::SetDeviceObserver(nullptr);
  if (!options.dumpPath.empty()) CheckOutputFolder(options.dumpPath, "--dump");
  if (options.game) e.request = *options.game;
  if (!options.scriptPath.empty()) e.lines = ReadScriptFile(options.scriptPath);
  e.ranEarly.assign(e.lines.size(), false);
  e.keepLogs = !options.dumpPath.empty() ||
               std::any_of(e.lines.begin(), e.lines.end(), [](const ScriptLine& l) { return l.command.op == Op::Dump; });
  if (!options.recordPath.empty()) e.recorder = std::make_unique<Recorder>(options.recordPath);
  e.listener = MakeDeviceListener();
  platform::SetDeviceObserver(e.listener.get());
}

void BeforeStartup() {
  Engine& e = State();
  if (e.recorder) e.recorder->CopyHome();
  // The lines at frame 0 at the head of the script.
  for (size_t i = e.cursor; i < e.lines.size(); ++i) {
    const Moment& m = e.lines[i].when;
    bool atZero = (m.kind == Moment::Kind::Frames || m.kind == Moment::Kind::PlusFrames) && m.count == 0;
    if (!atZero) break;
    if (ActsBeforeStartup(e.lines[i].command.op)) {
      Run(e, i);
      e.ranEarly[i] = true;
    }
  }
}

void AfterStartup() {
  Engine& e = State();
  e.where = Where::Start;
  Advance(e);
  if (e.options.maxFrames && *e.options.maxFrames == 0) QuitForLimit(e);
  if (e.options.maxTicks && platform::TickMs() >= *e.options.maxTicks) QuitForLimit(e);
}

void FrameMoment() {
  Engine& e = State();
  ++e.frames;
  if (Counting(e)) e.pollsAtFrame.push_back(e.pollsStarted);
  e.where = Where::Frame;
  if (e.screen != e.lastFrameScreen) {
    e.visitStart[e.screen] = CurrentPoint();
    e.lastFrameScreen = e.screen;
  }
  if (e.recorder) e.recorder->AtFrame(e.frames, e.pollsStarted);
  if (e.gameRecorder) e.gameRecorder->AtFrame(e.frames, e.pollsStarted);
  Advance(e);
  if (TheDriver().Frame) TheDriver().Frame();
  if (e.options.maxFrames && e.frames >= *e.options.maxFrames) QuitForLimit(e);
  if (e.options.maxTicks && platform::TickMs() >= *e.options.maxTicks) QuitForLimit(e);
}

void IdleMoment() {
  Engine& e = State();
  if (e.options.maxTicks && platform::TickMs() >= *e.options.maxTicks) QuitForLimit(e);
}

void PollMoment() {
  Engine& e = State();
  if (Counting(e)) e.framesAtPoll.push_back(e.frames);
  ++e.pollsStarted;
  e.where = Where::Poll;
  platform::scripted::BeginPoll();
  if (e.nojoystickFirstPoll && e.screen == "nojoystick") e.visitStart["nojoystick"] = CurrentPoint();
  e.nojoystickFirstPoll = false;
  if (e.recorder) e.recorder->AtPoll(e.pollsStarted - 1, e.frames);
  if (e.gameRecorder) e.gameRecorder->AtPoll(e.pollsStarted - 1, e.frames);
  std::vector<size_t> due;
  due.swap(e.pending);
  for (size_t index : due) Run(e, index);
  Advance(e);
  if (TheDriver().Poll) TheDriver().Poll();
  if (e.options.maxTicks && platform::TickMs() >= *e.options.maxTicks) QuitForLimit(e);
}

void Finish(int exitStatus) {
  Engine& e = State();
  if (e.finished) return;
  e.finished = true;
  // Lines that never ran are worth a word: a moment never reached, or
  // acting lines waiting for a poll that never came.
  size_t unrun = e.pending.size() + (e.lines.size() - std::min(e.cursor, e.lines.size()));
  if (unrun > 0 && !e.options.scriptPath.empty()) {
    int first = !e.pending.empty() ? e.lines[e.pending.front()].lineNumber
                                   : e.lines[std::min(e.cursor, e.lines.size() - 1)].lineNumber;
    std::fprintf(stderr, "vorrel: %s: %zu script line(s) never ran, the first at line %d\n",
                 e.options.scriptPath.c_str(), unrun, first);
  }
  if (!e.options.dumpPath.empty()) {
    std::string error;
    if (!WriteDump(e.options.dumpPath, error)) std::fprintf(stderr, "vorrel: dump: %s\n", error.c_str());
  }
  if (e.recorder) {
    platform::SetDeviceObserver(nullptr);
    e.recorder->Finish(platform::QuitRequested(), e.seed);
  }
}

void EnterScreen(const char* name) {
  Engine& e = State();
  if (e.screen == name) return;
  e.screen = name;
  if (e.keepLogs) e.logs.screens.push_back("[" + std::to_string(e.frames) + "," + core::JsonQuote(name) + "]");
  if (e.screen == "nojoystick") e.nojoystickFirstPoll = true;
  if (TheDriver().Screen) TheDriver().Screen(name);
}

const char* CurrentScreen() { return State().screen.c_str(); }

void SoundCalled(int index) {
  Engine& e = State();
  if (e.cursor < e.lines.size()) {
    const Moment& m = e.lines[e.cursor].when;
    if (m.kind == Moment::Kind::Sound && m.count == index) e.triggered = true;
  }
}

void MusicCalled(const std::string& title) {
  Engine& e = State();
  if (e.cursor < e.lines.size()) {
    const Moment& m = e.lines[e.cursor].when;
    if (m.kind == Moment::Kind::Music && m.name == title) e.triggered = true;
  }
}

bool TakeGameRequest(GameRequest& out) {
  Engine& e = State();
  if (!e.request) return false;
  out = *e.request;
  e.request.reset();
  return true;
}

bool TakeQueuedPiece(int& kind, int& fuse) {
  Engine& e = State();
  if (e.pieces.empty()) return false;
  kind = e.pieces.front().first;
  fuse = e.pieces.front().second;
  e.pieces.pop_front();
  return true;
}

void SetFieldPainter(std::function<void(int, const std::string&)> painter) { State().painter = std::move(painter); }
void SetFieldStamper(std::function<void(int, int, int, int, int)> stamper) { State().stamper = std::move(stamper); }

void BeginMoment() {
  Engine& e = State();
  // Strictly after whatever moment came before it, a frame's or a poll's.
  e.gameBegan = Point{e.frames, e.where == Where::Frame ? 0 : 1, e.pollsStarted};
  // Acting lines of this moment wait for the game's first poll, as they
  // would after a frame: the game has not set itself up yet.
  const Where where = e.where;
  e.where = Where::Frame;
  Advance(e);
  e.where = where;
}

void NoteSeed(uint32_t seed) { State().seed = seed; }

}  // namespace automation

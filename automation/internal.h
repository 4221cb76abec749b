// What the automation's parts share: the run's counters, the script's place,
// the logs. Not for the game; the game speaks core/hooks.h.
#pragma once
#include <compare>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/automation.h"
#include "automation/script.h"
#include "automation/options.h"
#include "platform/devices.h"

namespace automation {

class Recorder;

struct Logs {
  // Each entry already in its JSON form.
  std::vector<std::string> sounds, music, draws, screens, files, messages, beeps;
};

// A point of the run: frame moment F is (F, 0, the next poll's index); poll
// moment P is (frames before it, 1, P). Points order as the run meets them, and
// `poll` is always the first poll at or after the point.
struct Point {
  uint64_t frames = 0;
  int atPoll = 0;
  uint64_t poll = 0;
  auto operator<=>(const Point&) const = default;
};

enum class Where { Start, Frame, Poll };

struct Engine {
  automation::Options options;
  std::vector<ScriptLine> lines;
  std::vector<bool> ranEarly;  // lines at 0 that acted before the start-up handler
  size_t cursor = 0;           // the first line whose moment is not reached yet

  Where where = Where::Start;
  uint64_t frames = 0;
  uint64_t pollsStarted = 0;
  // Histories, so that a moment already passed still counts from where it was.
  std::vector<uint64_t> pollsAtFrame{0};  // by frame: polls started before its moment
  std::vector<uint64_t> framesAtPoll;     // by poll: frames presented before it

  Point anchor;            // the previous line's moment, which the cursor line counts from
  bool triggered = false;  // @sound / @music: the call came
  std::optional<Point> gameBegan;  // where the last game began (@begin)

  std::vector<size_t> pending;  // reached acting lines waiting for a poll

  std::string screen = "none";
  std::string lastFrameScreen = "none";
  std::map<std::string, Point> visitStart;  // screen -> where its last visit began
  bool nojoystickFirstPoll = false;

  Logs logs;
  // Only a run that can write a dump keeps the logs: a long session without
  // one would otherwise grow by every sound it plays.
  bool keepLogs = false;
  std::deque<std::pair<int, int>> pieces;
  std::optional<GameRequest> request;
  std::function<void(int, const std::string&)> painter;
  std::function<void(int, int, int, int, int)> stamper;
  std::optional<uint32_t> seed;
  std::unique_ptr<Recorder> recorder;
  // The game being kept for its replay, from its beginning; and the devices'
  // one listener, which feeds it and the session's recorder.
  std::unique_ptr<Recorder> gameRecorder;
  std::unique_ptr<platform::DeviceObserver> listener;
  bool finished = false;
};

Engine& State();
// The steering driver, kept apart from the engine so that Configure leaves it.
Driver& TheDriver();
Point CurrentPoint();

// The game called PlaySoundEffect / PlayMidi (for @sound and @music).
void SoundCalled(int index);
void MusicCalled(const std::string& title);

// A game begins: `@begin` lines come due (the engine's part of GameBegins).
void BeginMoment();
// The device listener of the run (installed by Configure).
std::unique_ptr<platform::DeviceObserver> MakeDeviceListener();

// Runs one line's command now (throws core::UsageError for a line that is bad here).
void RunCommand(const ScriptLine& line);
// "FILE:LINE: message" for a line of the script.
[[noreturn]] void BadLineNow(const ScriptLine& line, const std::string& message);

// Writes the dump (to a temporary name, then renamed). False with a message.
bool WriteDump(const std::string& path, std::string& error);
std::string DumpText();

// Writes data to path through a temporary file.
bool WriteFileAtomically(const std::string& path, const std::string& data, std::string& error);

}  // namespace automation

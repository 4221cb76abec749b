// The recording: the session written back as a script that replays it. It
// watches what the game read from its devices and the script lines that
// change the game, and places each at the moment a replay needs it.
#pragma once
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/internal.h"
#include "platform/devices.h"

namespace automation {

// An output file of the run (--record, --dump) must go into a folder that
// exists: throws core::UsageError naming the path otherwise. Nothing is created.
void CheckOutputFolder(const std::string& path, const char* option);

class Recorder final : public platform::DeviceObserver {
 public:
  // The recording's folder must exist (CheckOutputFolder).
  explicit Recorder(std::string path);
  // One game kept in memory (a high score's replay): its lines count from the
  // moment the game began, which a replay reaches with `@begin`.
  Recorder() = default;
  void StartAt(Where where, uint64_t frames, uint64_t pollsStarted);
  // A pad already open when the game began: a replay plugs it in at start-up.
  void AssumePad(bool open);
  // Ends the lines with a quit at the first frame after the moment now.
  void QuitAtNextFrame();
  const std::vector<std::string>& Lines() const { return lines_; }

  // Copies the home files beside the recording, as the session finds them.
  void CopyHome();
  // The moment the next readings and lines belong to.
  void AtFrame(uint64_t frame, uint64_t pollsStarted);
  void AtPoll(uint64_t poll, uint64_t frames);
  // A script line that changes the game (not input: that is recorded as read).
  void Carry(const ScriptLine& line);
  // The run is being ended by a limit.
  void Quit();
  // Writes the script; quitAsked: the run ended by the orderly quit.
  void Finish(bool quitAsked, std::optional<uint32_t> seed);

  void KeyboardRead(const uint8_t state[256]) override;
  void MouseRead(const platform::MouseReading& reading) override;
  void JoystickProbed(bool attached) override;
  void JoystickOpened(bool opened) override;
  void JoystickRead(bool ok, const platform::JoystickReading& reading) override;
  void JoystickClosed() override;

 private:
  // at: runs at its moment (a frame moment or before a poll reads) rather
  // than at the first poll at or after it.
  void Emit(const std::string& command, bool atMoment);

  std::string path_;
  std::vector<std::string> lines_;
  int copies_ = 0;
  bool quitWritten_ = false;

  // The moment now: the start, just after a frame, or just before a poll.
  Where where_ = Where::Start;
  uint64_t frames_ = 0, poll_ = 0, pollsStarted_ = 0;
  bool firstPollAfterFrame_ = false;
  // The last written line's moment.
  uint64_t anchorFrame_ = 0, anchorPoll_ = 0;

  // The devices as a replay of the lines so far would show them.
  std::bitset<256> keys_;
  std::bitset<4> buttons_;
  bool padPlugged_ = false, padOpen_ = false;
  int32_t padX_ = 0, padY_ = 0;
  std::bitset<33> padButtons_;
};

}  // namespace automation

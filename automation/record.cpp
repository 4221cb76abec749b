#include "core/key_names.h"
#include "automation/record.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/errors.h"
#include "platform/paths.h"

namespace automation {
namespace {

namespace fs = std::filesystem;

bool CopyFile(const fs::path& from, const fs::path& to, std::string& error) {
  std::ifstream in(from, std::ios::binary);
  if (!in) {
    error = "cannot read " + from.string();
    return false;
  }
  std::ostringstream data;
  data << in.rdbuf();
  std::error_code ec;
  fs::create_directories(to.parent_path(), ec);
  return WriteFileAtomically(to.string(), data.str(), error);
}

// A file name as a script word: quoted when it holds spaces or quotes.
std::string Word(const std::string& s) {
  if (!s.empty() && s.find_first_of(" \t\"\\#") == std::string::npos) return s;
  std::string out = "\"";
  for (char c : s) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

}  // namespace

void CheckOutputFolder(const std::string& path, const char* option) {
  std::error_code ec;
  const fs::path file(path);
  const fs::path folder = file.parent_path().empty() ? fs::path(".") : file.parent_path();
  if (!fs::is_directory(folder, ec))
    throw core::UsageError(std::string(option) + " " + path + ": the folder " + folder.string() + " does not exist");
  if (fs::is_directory(file, ec)) throw core::UsageError(std::string(option) + " " + path + ": is a folder");
}

Recorder::Recorder(std::string path) : path_(std::move(path)) { CheckOutputFolder(path_, "--record"); }

void Recorder::StartAt(Where where, uint64_t frames, uint64_t pollsStarted) {
  where_ = where == Where::Start ? Where::Frame : where;
  frames_ = anchorFrame_ = frames;
  pollsStarted_ = anchorPoll_ = pollsStarted;
  poll_ = pollsStarted > 0 ? pollsStarted - 1 : 0;
  firstPollAfterFrame_ = where_ == Where::Frame;
}

void Recorder::AssumePad(bool open) { padPlugged_ = padOpen_ = open; }

void Recorder::QuitAtNextFrame() {
  lines_.push_back("+" + std::to_string(frames_ + 1 - anchorFrame_) + " quit");
  quitWritten_ = true;
}

void Recorder::CopyHome() {
  const fs::path home = path_ + ".home";
  std::error_code ec;
  fs::remove_all(home, ec);
  std::string error;
  for (const char* name : {"VSys/hs.inf", "VSys/maindata.inf"}) {
    try {
      if (!CopyFile(platform::HomeFile(name), home / name, error))
        std::fprintf(stderr, "vorrel: record: %s\n", error.c_str());
    } catch (const std::exception& e) {
      std::fprintf(stderr, "vorrel: record: %s\n", e.what());
    }
  }
  // A missing store reads as the absent value; a missing copy keeps that so.
  const fs::path store = platform::SettingsStorePath();
  if (fs::is_regular_file(store, ec) && !CopyFile(store, home / "settings.ini", error))
    std::fprintf(stderr, "vorrel: record: %s\n", error.c_str());
}

void Recorder::AtFrame(uint64_t frame, uint64_t pollsStarted) {
  where_ = Where::Frame;
  frames_ = frame;
  pollsStarted_ = pollsStarted;
  firstPollAfterFrame_ = true;
}

void Recorder::AtPoll(uint64_t poll, uint64_t frames) {
  firstPollAfterFrame_ = where_ == Where::Frame;
  where_ = Where::Poll;
  poll_ = poll;
  pollsStarted_ = poll + 1;
  frames_ = frames;
}

void Recorder::Emit(const std::string& command, bool atMoment) {
  std::string when;
  switch (where_) {
    case Where::Start:
      when = "0";
      break;
    case Where::Frame:
      when = "+" + std::to_string(frames_ - anchorFrame_);
      anchorFrame_ = frames_;
      anchorPoll_ = pollsStarted_;
      break;
    case Where::Poll:
      // The first poll after a frame is that frame's moment for an acting
      // line; any other poll is counted in polls.
      if (!atMoment && firstPollAfterFrame_) {
        when = "+" + std::to_string(frames_ - anchorFrame_);
      } else {
        when = "+" + std::to_string(poll_ - anchorPoll_) + "p";
      }
      anchorFrame_ = frames_;
      anchorPoll_ = poll_;
      break;
  }
  lines_.push_back(when + " " + command);
}

void Recorder::Carry(const ScriptLine& line) {
  const Command& c = line.command;
  switch (c.op) {
    case Op::Game:
    case Op::Set:
    case Op::Field:
    case Op::Stamp:
    case Op::FileRemove:
      Emit(line.commandText, false);
      break;
    case Op::Next:
      Emit(line.commandText, true);
      break;
    case Op::FilePut: {
      // The source as it was then, kept beside the recording.
      fs::path copy = fs::absolute(path_ + ".files") / (std::to_string(++copies_) + "-" + fs::path(c.text2).filename().string());
      std::string error;
      if (!CopyFile(c.text2, copy, error)) std::fprintf(stderr, "vorrel: record: %s\n", error.c_str());
      Emit("file put " + c.text1 + " " + Word(copy.string()), true);
      break;
    }
    case Op::Quit:
    case Op::Close:
      if (!quitWritten_) Emit(c.op == Op::Quit ? "quit" : "close", true);
      quitWritten_ = true;
      break;
    default:
      break;  // input is recorded as the game reads it
  }
}

void Recorder::Quit() {
  if (!quitWritten_) Emit("quit", true);
  quitWritten_ = true;
}

void Recorder::Finish(bool quitAsked, std::optional<uint32_t> seed) {
  if (quitAsked) Quit();
  std::string text;
  if (seed) {
    text = "# seed " + std::to_string(*seed) + "\n";
  } else {
    text = "# seed unknown\n";
    std::fprintf(stderr, "vorrel: record: the seed is unknown; give --seed to make the recording replayable\n");
  }
  text += "# replay: vorrel --headless --seed " + (seed ? std::to_string(*seed) : std::string("N")) + " --home " + Word(fs::absolute(path_ + ".home").string()) +
          " --script " + Word(path_) + "\n";
  for (const std::string& line : lines_) text += line + "\n";
  std::string error;
  if (!WriteFileAtomically(path_, text, error)) std::fprintf(stderr, "vorrel: record: %s\n", error.c_str());
}

void Recorder::KeyboardRead(const uint8_t state[256]) {
  for (int k = 1; k < 256; ++k) {
    bool down = state[k] != 0;
    const char* name = core::KeyName(k);
    if (!name || down == keys_[k]) continue;
    keys_[k] = down;
    Emit(std::string("key ") + (down ? "down " : "up ") + name, false);
  }
}

void Recorder::MouseRead(const platform::MouseReading& r) {
  if (r.dx != 0 || r.dy != 0) Emit("mouse move " + std::to_string(r.dx) + " " + std::to_string(r.dy), false);
  for (int b = 1; b <= 3; ++b) {
    bool down = r.buttons[b - 1] != 0;
    if (down == buttons_[b]) continue;
    buttons_[b] = down;
    Emit(std::string("mouse ") + (down ? "down " : "up ") + std::to_string(b), false);
  }
}

void Recorder::JoystickProbed(bool attached) {
  if (attached == padPlugged_) return;
  padPlugged_ = attached;
  if (!attached) padOpen_ = false;
  Emit(attached ? "joy plug" : "joy unplug", false);
}

void Recorder::JoystickOpened(bool opened) {
  if (opened != padPlugged_) {
    // A real device that was there but would not open: to a replay, not there.
    padPlugged_ = opened;
    Emit(opened ? "joy plug" : "joy unplug", false);
  }
  padOpen_ = opened;
}

void Recorder::JoystickRead(bool ok, const platform::JoystickReading& r) {
  if (!ok) {
    if (padOpen_) {
      padOpen_ = padPlugged_ = false;
      Emit("joy unplug", false);
    }
    return;
  }
  if (r.x != padX_) Emit("joy axis x " + std::to_string(padX_ = r.x), false);
  if (r.y != padY_) Emit("joy axis y " + std::to_string(padY_ = r.y), false);
  for (int b = 1; b <= 32; ++b) {
    bool down = r.buttons[b - 1] != 0;
    if (down == padButtons_[b]) continue;
    padButtons_[b] = down;
    Emit(std::string("joy ") + (down ? "down " : "up ") + std::to_string(b), false);
  }
}

void Recorder::JoystickClosed() { padOpen_ = false; }

}  // namespace automation

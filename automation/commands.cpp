// What each script command does.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "display/surface.h"
#include "automation/internal.h"
#include "core/errors.h"
#include "platform/paths.h"
#include "platform/backend.h"
#include "platform/png_file.h"
#include "platform/scripted_input.h"

namespace automation {
namespace {

namespace in = platform::scripted;

in::Axis AxisOf(int a) { return a == 0 ? in::Axis::X : in::Axis::Y; }

// A home folder that cannot be made is this line's failure, not the game's.
std::string HomePath(const ScriptLine& line) {
  const std::string& name = line.command.text1;
  try {
    return name == "settings.ini" ? platform::SettingsStorePath() : platform::HomeFile(name);
  } catch (const std::exception& e) {
    BadLineNow(line, e.what());
  }
}

void PutFile(const ScriptLine& line) {
  const Command& c = line.command;
  std::ifstream src(c.text2, std::ios::binary);
  if (!src) BadLineNow(line, "cannot read \"" + c.text2 + "\"");
  std::ostringstream data;
  data << src.rdbuf();
  std::string target = HomePath(line);
  std::error_code ec;
  std::filesystem::create_directories(std::filesystem::path(target).parent_path(), ec);
  std::string error;
  if (!WriteFileAtomically(target, data.str(), error)) BadLineNow(line, error);
}

void RemoveFile(const ScriptLine& line) {
  std::error_code ec;
  std::filesystem::remove(HomePath(line), ec);
  if (ec) BadLineNow(line, "cannot remove " + line.command.text1 + ": " + ec.message());
}

// Observing: a failure to write is told and the run goes on unchanged.
void Shot(const ScriptLine& line) {
  const Command& c = line.command;
  std::string error;
  if (c.text2 == "window") {
    if (!platform::Current().SaveWindowShot(c.text1, error))
      std::fprintf(stderr, "vorrel: line %d: shot: %s\n", line.lineNumber, error.c_str());
    return;
  }
  const display::Surface* surface = nullptr;
  if (c.text2.empty()) {
    surface = &display::Display.PrimarySurface;
  } else {
    surface = display::FindSurface(c.text2);
    if (!surface) BadLineNow(line, "no surface is called \"" + c.text2 + "\"");
  }
  if (!surface->Exists()) {
    std::fprintf(stderr, "vorrel: line %d: shot: %s has no picture yet, %s not written\n", line.lineNumber,
                 c.text2.empty() ? "the screen" : c.text2.c_str(), c.text1.c_str());
    return;
  }
  if (!platform::WritePng565(c.text1, surface->Width, surface->Height, surface->Pixels.data(), error))
    std::fprintf(stderr, "vorrel: line %d: shot: %s\n", line.lineNumber, error.c_str());
}

void Game(const ScriptLine& line) {
  Engine& e = State();
  if (e.where != Where::Start && e.screen != "menu")
    BadLineNow(line, "game starts a game only at 0 or in the menu, not in \"" + e.screen + "\"");
  const Command& c = line.command;
  e.request = GameRequest{c.a, c.b, c.c, c.d, c.e};
}

void Field(const ScriptLine& line) {
  Engine& e = State();
  if (!e.painter || e.screen != "play") BadLineNow(line, "field needs a game in play, and the screen is \"" + e.screen + "\"");
  e.painter(line.command.a, line.command.text1);
}

void Stamp(const ScriptLine& line) {
  Engine& e = State();
  if (!e.stamper || e.screen != "play")
    BadLineNow(line, "stamp needs a Wickory game in play, and the screen is \"" + e.screen + "\"");
  const Command& c = line.command;
  e.stamper(c.a, c.b, c.c, c.d, c.e);
}

void Set(const ScriptLine& line) {
  const Command& c = line.command;
  std::string error;
  if (!vars::Assign(c.text1, c.indexes, c.value, error)) BadLineNow(line, error);
}

}  // namespace

[[noreturn]] void BadLineNow(const ScriptLine& line, const std::string& message) {
  throw core::UsageError(State().options.scriptPath + ":" + std::to_string(line.lineNumber) + ": " + message);
}

void RunCommand(const ScriptLine& line) {
  const Command& c = line.command;
  switch (c.op) {
    case Op::KeyDown: in::KeyDown(c.a); break;
    case Op::KeyUp: in::KeyUp(c.a); break;
    case Op::KeyTap: in::KeyTap(c.a); break;
    case Op::MouseMove: in::MouseMove(c.a, c.b); break;
    case Op::MouseDown: in::MouseDown(c.a); break;
    case Op::MouseUp: in::MouseUp(c.a); break;
    case Op::MouseClick: in::MouseClick(c.a); break;
    case Op::Pointer: in::PointTo(c.a, c.b); break;
    case Op::JoyPlug: in::PadPlug(); break;
    case Op::JoyUnplug: in::PadUnplug(); break;
    case Op::JoyAxis: in::PadAxis(AxisOf(c.a), c.b); break;
    case Op::JoyRaw: in::PadRaw(AxisOf(c.a), c.b); break;
    case Op::JoyDown: in::PadDown(c.a); break;
    case Op::JoyUp: in::PadUp(c.a); break;
    case Op::Mark: break;
    case Op::Close:
    case Op::Quit: platform::RequestQuit(); break;
    case Op::Game: Game(line); break;
    case Op::Set: Set(line); break;
    case Op::Field: Field(line); break;
    case Op::Stamp: Stamp(line); break;
    case Op::Next: State().pieces.emplace_back(c.a, c.b); break;
    case Op::FilePut: PutFile(line); break;
    case Op::FileRemove: RemoveFile(line); break;
    case Op::Dump: {
      std::string error;
      if (!WriteDump(c.text1, error)) std::fprintf(stderr, "vorrel: line %d: dump: %s\n", line.lineNumber, error.c_str());
      break;
    }
    case Op::Shot: Shot(line); break;
  }
}

}  // namespace automation

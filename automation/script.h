// A script as read from its file: one entry per command line, in file order.
#pragma once
#include <string>
#include <vector>

#include "core/variables.h"

namespace automation {

struct Moment {
  enum class Kind {
    Frames,       // N: once N frames have been presented
    PlusFrames,   // +N
    PlusPolls,    // +Np
    Screen,       // @SCREEN (and @nojoystick, a poll moment)
    Sound,        // @sound N
    Music,        // @music TITLE
    Begin,        // @begin: the next game begins
  };
  Kind kind = Kind::Frames;
  long long count = 0;
  std::string name;  // screen or music title
};

enum class Op {
  KeyDown, KeyUp, KeyTap,
  MouseMove, MouseDown, MouseUp, MouseClick,
  Pointer,
  JoyPlug, JoyUnplug, JoyAxis, JoyRaw, JoyDown, JoyUp,
  Mark, Close, Quit,
  Game, Set, Field, Stamp, Next, FilePut, FileRemove,
  Dump, Shot,
};

struct Command {
  Op op = Op::Mark;
  int a = 0, b = 0, c = 0, d = 0, e = 0;  // numbers in the order written (axis: 0 x, 1 y)
  bool hasFuse = false;                   // next KIND FUSE
  std::string text1, text2;               // names, file names, surfaces, field cells
  std::vector<long long> indexes;         // set NAME[I]...[K]
  vars::Literal value;                    // set ... VALUE
};

struct ScriptLine {
  int lineNumber = 0;
  Moment when;
  Command command;
  std::string commandText;  // the command as written, for the recording
};

// Lines that run at their moment; every other line acts at the first poll
// at or after its moment.
bool RunsAtMoment(Op op);
bool IsObserving(Op op);

// Throws core::UsageError "FILE:LINE: message" on a bad line.
std::vector<ScriptLine> ParseScript(const std::string& text, const std::string& fileName);
std::vector<ScriptLine> ReadScriptFile(const std::string& path);

// The screens a moment can name.
bool IsScreenName(const std::string& name);

}  // namespace automation

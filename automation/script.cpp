#include "core/key_names.h"
#include "automation/script.h"

#include <array>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "automation/automation.h"
#include "core/errors.h"

namespace automation {
namespace {

struct Token {
  std::string text;
  bool quoted = false;
  size_t end = 0;  // just past the token in its line
};

// Splits one line into words; "double quotes" keep spaces, \" and \\ inside
// them escape. A word starting with # begins a comment, except where a command
// reads raw cells (`field ROW CELLS`, where # is a tile).
class Lexer {
 public:
  explicit Lexer(const std::string& line) : line_(line) {}

  std::optional<Token> Next(std::string& error) { return Read(false, error); }
  std::optional<Token> NextRaw(std::string& error) { return Read(true, error); }
  size_t Position() const { return pos_; }

 private:
  std::optional<Token> Read(bool raw, std::string& error) {
    while (pos_ < line_.size() && std::isspace(static_cast<unsigned char>(line_[pos_]))) ++pos_;
    if (pos_ >= line_.size()) return std::nullopt;
    if (line_[pos_] == '#' && !raw) {
      pos_ = line_.size();
      return std::nullopt;
    }
    Token t;
    if (line_[pos_] == '"' && !raw) {
      t.quoted = true;
      ++pos_;
      while (true) {
        if (pos_ >= line_.size()) {
          error = "a quoted string has no closing quote";
          return std::nullopt;
        }
        char c = line_[pos_++];
        if (c == '"') break;
        if (c == '\\' && pos_ < line_.size() && (line_[pos_] == '"' || line_[pos_] == '\\')) c = line_[pos_++];
        t.text += c;
      }
    } else {
      while (pos_ < line_.size() && !std::isspace(static_cast<unsigned char>(line_[pos_]))) t.text += line_[pos_++];
    }
    t.end = pos_;
    return t;
  }

  const std::string& line_;
  size_t pos_ = 0;
};

struct BadLine {
  std::string message;
};

[[noreturn]] void Bad(const std::string& message) { throw BadLine{message}; }

bool ParseInteger(const std::string& s, long long& out) {
  if (s.empty()) return false;
  size_t i = (s[0] == '-' || s[0] == '+') ? 1 : 0;
  if (i == s.size()) return false;
  for (size_t k = i; k < s.size(); ++k) {
    if (!std::isdigit(static_cast<unsigned char>(s[k]))) return false;
  }
  errno = 0;
  char* end = nullptr;
  out = std::strtoll(s.c_str(), &end, 10);
  return errno == 0 && *end == '\0';
}

bool ParseDecimal(const std::string& s, double& out) {
  if (s.empty() || s.find_first_of("0123456789") == std::string::npos) return false;
  for (char c : s) {
    if (!std::isdigit(static_cast<unsigned char>(c)) && c != '.' && c != '-' && c != '+' && c != 'e' && c != 'E')
      return false;
  }
  errno = 0;
  char* end = nullptr;
  out = std::strtod(s.c_str(), &end);
  return errno == 0 && *end == '\0';
}

class LineParser {
 public:
  LineParser(const std::string& line, ScriptLine& out) : lex_(line), out_(out) {}

  // False for a blank or comment line.
  bool Parse(long long& frameFloor) {
    std::optional<Token> when = Take();
    if (!when) return false;
    ParseMoment(when->text, frameFloor);
    cmdStart_ = lex_.Position();
    std::optional<Token> word = Take();
    if (!word) Bad("a moment needs a command after it");
    ParseCommand(word->text);
    if (std::optional<Token> extra = Take()) Bad("unexpected \"" + extra->text + "\" after the command");
    return true;
  }

  size_t CommandStart() const { return cmdStart_; }
  size_t CommandEnd() const { return cmdEnd_; }

 private:
  std::optional<Token> Take(bool raw = false) {
    std::string error;
    std::optional<Token> t = raw ? lex_.NextRaw(error) : lex_.Next(error);
    if (!error.empty()) Bad(error);
    if (t) cmdEnd_ = t->end;
    return t;
  }

  std::string Word(const char* what) {
    std::optional<Token> t = Take();
    if (!t) Bad(std::string("missing ") + what);
    return t->text;
  }

  long long Number(const char* what, long long lo, long long hi) {
    std::string w = Word(what);
    long long v = 0;
    if (!ParseInteger(w, v) || v < lo || v > hi) {
      Bad(std::string(what) + " must be a whole number from " + std::to_string(lo) + " to " + std::to_string(hi) +
          ", not \"" + w + "\"");
    }
    return v;
  }

  int Choice(const char* what, std::initializer_list<const char*> words) {
    std::string w = Word(what);
    int i = 0;
    std::string list;
    for (const char* c : words) {
      if (w == c) return i;
      list += (i ? ", " : "") + std::string(c);
      ++i;
    }
    Bad(std::string(what) + " must be one of " + list + ", not \"" + w + "\"");
  }

  void ParseMoment(const std::string& w, long long& frameFloor) {
    Moment& m = out_.when;
    long long n = 0;
    if (w[0] == '@') {
      std::string name = w.substr(1);
      if (name == "sound") {
        m.kind = Moment::Kind::Sound;
        m.count = Number("the sound index", 0, 200);
      } else if (name == "begin") {
        m.kind = Moment::Kind::Begin;
      } else if (name == "music") {
        m.kind = Moment::Kind::Music;
        m.name = Word("the music title");
      } else if (IsScreenName(name) && name != "none") {
        m.kind = Moment::Kind::Screen;
        m.name = name;
      } else {
        Bad("no screen is called \"" + name + "\"");
      }
    } else if (w[0] == '+') {
      bool polls = w.size() > 1 && w.back() == 'p';
      std::string digits = w.substr(1, w.size() - 1 - (polls ? 1 : 0));
      if (digits.empty() || digits[0] == '-' || digits[0] == '+' || !ParseInteger(digits, n))
        Bad("a moment must be N, +N, +Np or @..., not \"" + w + "\"");
      m.kind = polls ? Moment::Kind::PlusPolls : Moment::Kind::PlusFrames;
      m.count = n;
      if (!polls) frameFloor += n;
    } else if (std::isdigit(static_cast<unsigned char>(w[0])) && ParseInteger(w, n)) {
      if (n < frameFloor)
        Bad("moment " + w + " comes before the previous line's moment (frame " + std::to_string(frameFloor) + ")");
      m.kind = Moment::Kind::Frames;
      m.count = n;
      frameFloor = n;
    } else {
      Bad("a moment must be N, +N, +Np or @..., not \"" + w + "\"");
    }
  }

  int Key() {
    std::string name = Word("the key name");
    int code = core::KeyCode(name);
    if (code < 0) Bad("no key is called \"" + name + "\"");
    return code;
  }

  void ParseCommand(const std::string& w) {
    Command& c = out_.command;
    if (w == "key") {
      c.op = std::array{Op::KeyDown, Op::KeyUp, Op::KeyTap}[Choice("the key action", {"down", "up", "tap"})];
      c.a = Key();
    } else if (w == "mouse") {
      int act = Choice("the mouse action", {"move", "down", "up", "click"});
      if (act == 0) {
        c.op = Op::MouseMove;
        c.a = static_cast<int>(Number("DX", -100000, 100000));
        c.b = static_cast<int>(Number("DY", -100000, 100000));
      } else {
        c.op = std::array{Op::MouseDown, Op::MouseUp, Op::MouseClick}[act - 1];
        c.a = static_cast<int>(Number("the mouse button", 1, 3));
      }
    } else if (w == "pointer") {
      c.op = Op::Pointer;
      c.a = static_cast<int>(Number("X", 0, 780));
      c.b = static_cast<int>(Number("Y", 0, 580));
    } else if (w == "joy") {
      int act = Choice("the pad action", {"plug", "unplug", "axis", "raw", "down", "up"});
      c.op = std::array{Op::JoyPlug, Op::JoyUnplug, Op::JoyAxis, Op::JoyRaw, Op::JoyDown, Op::JoyUp}[act];
      if (c.op == Op::JoyAxis || c.op == Op::JoyRaw) {
        c.a = Choice("the axis", {"x", "y"});
        c.b = c.op == Op::JoyAxis ? static_cast<int>(Number("the axis value", -1000, 1000))
                                  : static_cast<int>(Number("the raw axis value", -32768, 32767));
      } else if (c.op == Op::JoyDown || c.op == Op::JoyUp) {
        c.a = static_cast<int>(Number("the pad button", 1, 32));
      }
    } else if (w == "mark") {
      c.op = Op::Mark;
    } else if (w == "close") {
      c.op = Op::Close;
    } else if (w == "quit") {
      c.op = Op::Quit;
    } else if (w == "game") {
      c.op = Op::Game;
      c.a = Choice("the variant", {"classic", "bonus", "wickory"});
      c.b = Choice("the play type", {"a", "b", "c"});
      c.c = static_cast<int>(Number("LEVEL", 0, 20));
      c.d = static_cast<int>(Number("HEIGHT", 0, 9));
      c.e = static_cast<int>(Number("DIFFICULTY", 0, 2));
    } else if (w == "set") {
      ParseSet();
    } else if (w == "field") {
      c.op = Op::Field;
      c.a = static_cast<int>(Number("ROW", 0, 20));
      std::optional<Token> cells = Take(true);
      if (!cells) Bad("missing the 13 cells of the row");
      c.text1 = cells->text;
      if (c.text1.size() != 13 || c.text1.find_first_not_of(".01234#r") != std::string::npos)
        Bad("CELLS must be 13 of . 0 1 2 3 4 # r, not \"" + c.text1 + "\"");
    } else if (w == "stamp") {
      c.op = Op::Stamp;
      c.a = static_cast<int>(Number("KIND", 0, 13));
      c.b = static_cast<int>(Number("ROT", 0, 3));
      c.c = static_cast<int>(Number("FUSE", 0, 2));
      c.d = static_cast<int>(Number("COL", -3, 12));
      c.e = static_cast<int>(Number("ROW", -3, 20));
    } else if (w == "next") {
      c.op = Op::Next;
      c.a = static_cast<int>(Number("KIND", 0, 15));
      std::optional<Token> fuse = Take();
      if (fuse) {
        long long f = 0;
        if (!ParseInteger(fuse->text, f) || f < 0 || f > 2)
          Bad("FUSE must be a whole number from 0 to 2, not \"" + fuse->text + "\"");
        c.b = static_cast<int>(f);
        c.hasFuse = true;
      }
    } else if (w == "file") {
      ParseFile();
    } else if (w == "dump") {
      c.op = Op::Dump;
      c.text1 = Word("the dump's file name");
    } else if (w == "shot") {
      c.op = Op::Shot;
      c.text1 = Word("the picture's file name");
      if (std::optional<Token> s = Take()) c.text2 = s->text;
    } else {
      Bad("no command is called \"" + w + "\"");
    }
  }

  void ParseSet() {
    Command& c = out_.command;
    c.op = Op::Set;
    std::string target = Word("the variable");
    size_t i = 0;
    while (i < target.size() && (std::isalnum(static_cast<unsigned char>(target[i])) || target[i] == '_')) ++i;
    if (i == 0 || std::isdigit(static_cast<unsigned char>(target[0]))) Bad("\"" + target + "\" is not a variable name");
    c.text1 = target.substr(0, i);
    while (i < target.size()) {
      size_t close = target.find(']', i);
      long long index = 0;
      if (target[i] != '[' || close == std::string::npos || !ParseInteger(target.substr(i + 1, close - i - 1), index))
        Bad("\"" + target + "\" must be NAME or NAME[I]...[K] with whole-number indexes");
      c.indexes.push_back(index);
      i = close + 1;
    }
    std::optional<Token> v = Take();
    if (!v) Bad("missing the value for " + target);
    vars::Literal& lit = c.value;
    if (v->quoted) {
      lit.kind = vars::Literal::Kind::Text;
      lit.text = v->text;
    } else if (v->text == "true" || v->text == "false") {
      lit.kind = vars::Literal::Kind::Boolean;
      lit.boolean = v->text == "true";
    } else if (ParseInteger(v->text, lit.integer)) {
      lit.kind = vars::Literal::Kind::Integer;
    } else if (ParseDecimal(v->text, lit.decimal)) {
      lit.kind = vars::Literal::Kind::Decimal;
    } else {
      Bad("\"" + v->text + "\" is not a value: write a number, true, false or a \"double-quoted string\"");
    }
  }

  void ParseFile() {
    Command& c = out_.command;
    int act = Choice("the file action", {"put", "remove"});
    c.op = act == 0 ? Op::FilePut : Op::FileRemove;
    const std::string written = Word("the home file's name");
    std::string name = written;
    for (char& ch : name) {
      if (ch == '\\') ch = '/';
    }
    // A script names home files, never a place outside the home folder.
    if (!name.empty() && name[0] == '/') Bad("\"" + written + "\" is an absolute path: name a home file");
    if (name.find("..") != std::string::npos) Bad("\"" + written + "\" leaves the home folder: name a home file");
    if (name != "VSys/hs.inf" && name != "VSys/maindata.inf" && name != "settings.ini")
      Bad("the home files are VSys/hs.inf, VSys/maindata.inf and settings.ini, not \"" + name + "\"");
    c.text1 = name;
    if (c.op == Op::FilePut) {
      c.text2 = Word("the source file");
      std::error_code ec;
      if (!std::filesystem::is_regular_file(c.text2, ec)) Bad("no file to copy at \"" + c.text2 + "\"");
    }
  }

  Lexer lex_;
  ScriptLine& out_;
  size_t cmdStart_ = 0, cmdEnd_ = 0;
};

}  // namespace

bool RunsAtMoment(Op op) {
  switch (op) {
    case Op::Dump:
    case Op::Shot:
    case Op::Next:
    case Op::FilePut:
    case Op::FileRemove:
    case Op::Quit:
    case Op::Close:
      return true;
    default:
      return false;
  }
}

bool IsObserving(Op op) { return op == Op::Dump || op == Op::Shot; }

bool IsScreenName(const std::string& name) {
  for (const char* s : {"none", "loading", "intro", "menu", "play", "pause", "gameover", "highscore", "final",
                        "nojoystick"}) {
    if (name == s) return true;
  }
  return false;
}

std::vector<ScriptLine> ParseScript(const std::string& text, const std::string& fileName) {
  std::vector<ScriptLine> lines;
  std::istringstream in(text);
  std::string line;
  int number = 0;
  long long frameFloor = 0;
  while (std::getline(in, line)) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    ScriptLine parsed;
    parsed.lineNumber = number;
    LineParser parser(line, parsed);
    try {
      if (!parser.Parse(frameFloor)) continue;
    } catch (const BadLine& bad) {
      throw core::UsageError(fileName + ":" + std::to_string(number) + ": " + bad.message);
    }
    parsed.commandText = line.substr(parser.CommandStart(), parser.CommandEnd() - parser.CommandStart());
    size_t first = parsed.commandText.find_first_not_of(" \t");
    parsed.commandText.erase(0, first == std::string::npos ? parsed.commandText.size() : first);
    lines.push_back(std::move(parsed));
  }
  return lines;
}

std::vector<ScriptLine> ReadScriptFile(const std::string& path) {
  // Opening a folder succeeds on Linux and reads nothing: not an empty script.
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) throw core::UsageError(path + ": is a folder, not a script");
  std::ifstream in(path, std::ios::binary);
  if (!in) throw core::UsageError(path + ": cannot read the script");
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) throw core::UsageError(path + ": cannot read the script");
  return ParseScript(text.str(), path);
}

}  // namespace automation

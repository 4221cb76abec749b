#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <limits>
#include <string>

#include "frame/command_line.h"

namespace frame {
namespace {

constexpr const char* kUsage =
    "usage: vorrel [options]\n"
    "  --headless         no window, no sound, as fast as the machine runs\n"
    "  --windowed         a window instead of the full screen\n"
    "  --game VARIANT TYPE LEVEL HEIGHT DIFFICULTY\n"
    "                     start that game at once: classic, bonus or wickory, a b or c,\n"
    "                     level 0-20, height 0-9, difficulty 0-2\n"
    "  --seed N           the random generator's seed (default: the time of day)\n"
    "  --data DIR         the game's data folder\n"
    "  --home DIR         the player's files: DIR/VSys/*.inf and DIR/settings.ini\n"
    "  --script FILE      run the automation script FILE\n"
    "  --max-frames N     quit once N frames have been presented\n"
    "  --max-ticks MS     quit once the game's clock reaches MS milliseconds\n"
    "  --dump FILE        write the game's state to FILE when the program ends\n"
    "  --record FILE      write the session as a replayable script to FILE\n"
  "  --replay FILE      watch a game kept with a high score (see --replays)\n"
  "  --replays          list the games kept with the high scores, and quit\n"
    "  --help             this text\n";

bool ParseUnsigned(const std::string& text, unsigned long long max, unsigned long long& out) {
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return false;
  errno = 0;
  out = std::strtoull(text.c_str(), nullptr, 10);
  return errno == 0 && out <= max;
}

bool Complain(const std::string& message) {
  std::fprintf(stderr, "vorrel: %s\n(vorrel --help lists the options)\n", message.c_str());
  return false;
}

int IndexOf(const std::string& word, std::initializer_list<const char*> words) {
  int i = 0;
  for (const char* w : words) {
    if (word == w) return i;
    ++i;
  }
  return -1;
}

// The five words of --game, as a script's `game` line takes them.
bool ParseGame(char** words, core::GameRequest& out) {
  const std::string variant = words[0], type = words[1];
  out.variant = IndexOf(variant, {"classic", "bonus", "wickory"});
  if (out.variant < 0)
    return Complain("--game: the variant must be classic, bonus or wickory, not \"" + variant + "\"");
  out.type = IndexOf(type, {"a", "b", "c"});
  if (out.type < 0) return Complain("--game: the play type must be a, b or c, not \"" + type + "\"");
  struct Range {
    const char* name;
    unsigned long long max;
    int* target;
  };
  const Range ranges[3] = {{"LEVEL", 20, &out.level}, {"HEIGHT", 9, &out.height}, {"DIFFICULTY", 2, &out.difficulty}};
  for (int i = 0; i < 3; ++i) {
    unsigned long long n = 0;
    if (!ParseUnsigned(words[2 + i], ranges[i].max, n))
      return Complain(std::string("--game: ") + ranges[i].name + " must be a whole number from 0 to " +
                      std::to_string(ranges[i].max) + ", not \"" + words[2 + i] + "\"");
    *ranges[i].target = static_cast<int>(n);
  }
  return true;
}

}  // namespace

bool ParseCommandLine(int argc, char** argv, automation::Options& out, bool& help) {
  help = false;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    std::string value;
    bool hasInlineValue = false;
    if (size_t eq = arg.find('='); arg.rfind("--", 0) == 0 && eq != std::string::npos) {
      value = arg.substr(eq + 1);
      arg.resize(eq);
      hasInlineValue = true;
    }
    auto flag = [&](bool& target) {
      if (hasInlineValue) return Complain(arg + " takes no value");
      target = true;
      return true;
    };
    auto needValue = [&]() {
      if (hasInlineValue) return true;
      if (i + 1 >= argc) return Complain(arg + " needs a value");
      value = argv[++i];
      return true;
    };
    auto text = [&](std::string& target) {
      if (!needValue()) return false;
      if (value.empty()) return Complain(arg + " needs a non-empty value");
      target = value;
      return true;
    };
    auto number = [&](unsigned long long max, const char* what, unsigned long long& result) {
      if (!needValue()) return false;
      if (!ParseUnsigned(value, max, result))
        return Complain(arg + ": \"" + value + "\" is not " + what + " from 0 to " + std::to_string(max));
      return true;
    };

    bool ok = true;
    unsigned long long n = 0;
    if (arg == "--help" || arg == "-h") {
      ok = flag(help);
    } else if (arg == "--headless") {
      ok = flag(out.headless);
    } else if (arg == "--windowed") {
      ok = flag(out.windowed);
    } else if (arg == "--game") {
      if (hasInlineValue) {
        ok = Complain("--game takes five words: VARIANT TYPE LEVEL HEIGHT DIFFICULTY");
      } else if (i + 5 >= argc) {
        ok = Complain("--game needs five words: VARIANT TYPE LEVEL HEIGHT DIFFICULTY");
      } else {
        core::GameRequest request;
        ok = ParseGame(argv + i + 1, request);
        if (ok) out.game = request;
        i += 5;
      }
    } else if (arg == "--seed") {
      ok = number(std::numeric_limits<uint32_t>::max(), "a whole number", n);
      if (ok) out.seed = static_cast<uint32_t>(n);
    } else if (arg == "--max-frames") {
      ok = number(std::numeric_limits<uint64_t>::max(), "a frame count", n);
      if (ok) out.maxFrames = n;
    } else if (arg == "--max-ticks") {
      ok = number(std::numeric_limits<uint64_t>::max(), "a count of milliseconds", n);
      if (ok) out.maxTicks = n;
    } else if (arg == "--data") {
      ok = text(out.dataDir);
    } else if (arg == "--home") {
      ok = text(out.homeDir);
    } else if (arg == "--script") {
      ok = text(out.scriptPath);
    } else if (arg == "--dump") {
      ok = text(out.dumpPath);
    } else if (arg == "--record") {
      ok = text(out.recordPath);
    } else if (arg == "--replay") {
      ok = text(out.replayPath);
    } else if (arg == "--replays") {
      ok = flag(out.listReplays);
    } else if (arg.rfind("-", 0) == 0) {
      ok = Complain("unknown option " + arg);
    } else {
      ok = Complain("unexpected argument \"" + arg + "\": vorrel takes only options");
    }
    if (!ok) return false;
  }
  if (help) {
    std::fputs(kUsage, stdout);
    return true;
  }
  // A replay is its own script and its own game.
  if (!out.replayPath.empty() && (!out.scriptPath.empty() || out.game || !out.recordPath.empty()))
    return Complain("--replay plays a kept game as it was; it cannot be combined with --script, --game or --record");
  return true;
}

}  // namespace frame

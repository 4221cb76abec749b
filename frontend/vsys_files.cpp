#include "frontend/vsys_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

#include "core/errors.h"
#include "core/hooks.h"
#include "platform/paths.h"
#include "platform/whole_file.h"

namespace fs = std::filesystem;

namespace frontend {

namespace {

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  std::istringstream in(text);
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

std::string Trim(const std::string& s) {
  size_t a = s.find_first_not_of(" \t");
  if (a == std::string::npos) return "";
  size_t b = s.find_last_not_of(" \t");
  return s.substr(a, b - a + 1);
}

// A decimal number as a sequential-file write leaves it: sign, digits, an
// optional fraction and exponent. Nothing else (no hex, no inf, no trailing text).
std::optional<double> ParseNumber(const std::string& raw) {
  std::string s = Trim(raw);
  if (s.empty() || s.size() > 40) return std::nullopt;
  size_t i = 0;
  if (s[i] == '+' || s[i] == '-') ++i;
  size_t digits = 0;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  }
  if (digits == 0) return std::nullopt;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t expDigits = 0;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++expDigits;
    if (expDigits == 0) return std::nullopt;
  }
  if (i != s.size()) return std::nullopt;
  double v = std::strtod(s.c_str(), nullptr);
  if (!std::isfinite(v)) return std::nullopt;
  return v;
}

// Rounded as the integer reads of the game round: halves to even.
std::optional<long long> ParseWhole(const std::string& raw, long long lo, long long hi) {
  auto v = ParseNumber(raw);
  if (!v) return std::nullopt;
  double r = std::nearbyint(*v);
  if (r < static_cast<double>(lo) || r > static_cast<double>(hi)) return std::nullopt;
  return static_cast<long long>(r);
}

// A quoted name: printable characters, no quote inside, up to 8 of them.
std::optional<std::string> ParseName(const std::string& raw) {
  std::string s = Trim(raw);
  if (s.size() < 2 || s.front() != '"' || s.back() != '"') return std::nullopt;
  std::string name = s.substr(1, s.size() - 2);
  if (name.size() > 8) return std::nullopt;
  for (char c : name)
    if (c == '"' || c < 32 || c > 126) return std::nullopt;
  return name;
}

// The name as the file can hold it: the quote that would end the text early
// becomes an apostrophe, anything unprintable a space. The name entry never
// makes either, so a name typed on the keyboard reads back as typed.
std::string FileName(const std::string& name) {
  std::string out = name.substr(0, 8);
  for (char& c : out) {
    if (c == '"') c = '\'';
    if (c < 32 || c > 126) c = ' ';
  }
  return out;
}

struct FaultPoint {
  bool loaded = false, active = false, end = false;
  std::string file, step;
  int n = 0;
  std::map<std::string, int> counts;  // "file:step" -> times reached
};
FaultPoint fault;

void LoadFaultPoint() {
  if (fault.loaded) return;
  fault = FaultPoint{};
  fault.loaded = true;
  const char* spec = std::getenv("VORREL_FAULT_POINT");
  if (!spec || !*spec) return;
  std::vector<std::string> parts;
  std::stringstream in(spec);
  std::string part;
  while (std::getline(in, part, ':')) parts.push_back(part);
  bool ok = (parts.size() == 3 || (parts.size() == 4 && parts[3] == "end")) &&
            (parts[0] == "hs.inf" || parts[0] == "maindata.inf") &&
            (parts[1] == "write" || parts[1] == "sync" || parts[1] == "rename");
  long long n = 0;
  if (ok) {
    auto v = ParseWhole(parts[2], 1, 1000000);
    ok = v.has_value();
    if (v) n = *v;
  }
  if (!ok) {
    std::fprintf(stderr, "vorrel: VORREL_FAULT_POINT \"%s\" is not FILE:STEP:N[:end]; no fault point set\n", spec);
    return;
  }
  fault.active = true;
  fault.file = parts[0];
  fault.step = parts[1];
  fault.n = static_cast<int>(n);
  fault.end = parts.size() == 4;
}

// True when this step of this file's save is to fail; ends the process here
// when the fault point says so, as a power cut would.
bool FaultHere(const std::string& name, const char* step) {
  LoadFaultPoint();
  if (!fault.active) return false;
  std::string base = fs::path(name).filename().string();
  if (base != fault.file || fault.step != step) return false;
  if (++fault.counts[base + ":" + step] != fault.n) return false;
  if (fault.end) std::raise(SIGKILL);
  return true;
}

bool SaveFile(const std::string& name, const std::string& path, const std::string& text);

std::map<std::string, std::string> reportedDamage;  // file -> the damaged text already kept aside
std::map<std::string, bool> reportedFailure;        // file -> a failed save already said so

// Reads a home file (copied from the defaults first when missing). Empty
// optional when there is no file to read.
std::optional<std::string> ReadHomeFile(const std::string& name) {
  std::string path;
  try {
    path = platform::HomeFile(name);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vorrel: cannot reach %s: %s\n", name.c_str(), e.what());
    return std::nullopt;
  }
  std::ifstream f(path, std::ios::binary);
  if (!f) return std::nullopt;
  core::NoteFile(false, name);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}

void KeepDamaged(const std::string& name, const std::string& text, const std::string& what) {
  auto it = reportedDamage.find(name);
  if (it != reportedDamage.end() && it->second == text) return;  // this damage was kept aside already
  reportedDamage[name] = text;
  std::string aside = name + ".damaged";
  bool kept = false;
  try {
    kept = SaveFile(aside, platform::HomeFile(name) + ".damaged", text);
  } catch (const std::exception&) {
  }
  std::fprintf(stderr, "vorrel: %s is damaged (%s); %s; the next save writes it whole\n", name.c_str(), what.c_str(),
               kept ? ("the file is kept as " + aside).c_str() : "it could not be kept aside");
}

}  // namespace

core::MenuSettings StartSettings() {
  core::MenuSettings s;
  s.GameVariant = 0;
  s.PlayType = 0;
  s.Level = 0;
  s.StartHeight = 0;
  s.Difficulty = 0;
  s.Transparency = 5;
  s.MusicOn = 1;
  s.SoundOn = 1;
  s.VoiceOn = 1;
  s.MusicTrack = 0;
  return s;
}

std::string SettingsText(const core::MenuSettings& s) {
  std::ostringstream out;
  auto line = [&](long long v) { out << v << "\r\n"; };
  line(s.GameVariant);
  line(s.PlayType);
  line(s.Level);
  // The menu makes whole heights; a height set otherwise is written as it stands.
  double h = s.StartHeight;
  if (h == std::floor(h) && std::fabs(h) < 1e9) {
    line(static_cast<long long>(h));
  } else {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.9g", h);
    out << buf << "\r\n";
  }
  line(s.Difficulty);
  line(s.Transparency);
  line(s.MusicOn);
  line(s.SoundOn);
  line(s.VoiceOn);
  line(s.MusicTrack);
  return out.str();
}

int ParseSettings(const std::string& text, core::MenuSettings& out) {
  std::vector<std::string> lines = SplitLines(text);
  const core::MenuSettings start = StartSettings();
  int bad = 0;
  // Out-of-range numbers are clamped, not refused: the line is still the player's choice.
  auto take = [&](size_t index, long long lo, long long hi, long long startValue) -> long long {
    if (index >= lines.size()) return ++bad, startValue;
    auto v = ParseNumber(lines[index]);
    if (!v) return ++bad, startValue;
    double r = std::nearbyint(*v);
    if (r < lo) r = static_cast<double>(lo);
    if (r > hi) r = static_cast<double>(hi);
    return static_cast<long long>(r);
  };
  out.GameVariant = static_cast<int16_t>(take(0, 0, 2, start.GameVariant));
  out.PlayType = static_cast<int16_t>(take(1, 0, 2, start.PlayType));
  out.Level = static_cast<int16_t>(take(2, 0, 9, start.Level));
  out.StartHeight = static_cast<double>(take(3, 0, 9, static_cast<long long>(start.StartHeight)));
  out.Difficulty = static_cast<int16_t>(take(4, 0, 2, start.Difficulty));
  out.Transparency = static_cast<int16_t>(take(5, 0, 9, start.Transparency));
  out.MusicOn = static_cast<int16_t>(take(6, 0, 1, start.MusicOn));
  out.SoundOn = static_cast<int16_t>(take(7, 0, 1, start.SoundOn));
  out.VoiceOn = static_cast<int16_t>(take(8, 0, 1, start.VoiceOn));
  out.MusicTrack = static_cast<int16_t>(take(9, 0, 30, start.MusicTrack));
  return bad;
}

// The file's order: Classic A, B, C, Bonus A, B, C (five places each), then Wickory.
template <class F>
static void ForEachPlace(F f) {
  for (int v = 0; v <= 1; ++v)
    for (int t = 0; t <= 2; ++t)
      for (int r = 0; r <= 4; ++r) f(v, t, r);
  for (int r = 0; r <= 4; ++r) f(2, 0, r);
}

std::string HighScoresText(const HighScoreTable& table) {
  std::ostringstream out;
  ForEachPlace([&](int v, int t, int r) {
    const HighScoreEntry& e = table[v][t][r];
    out << '"' << FileName(e.Name) << "\"\r\n" << e.Score << "\r\n" << e.Lines << "\r\n" << e.Level << "\r\n";
  });
  return out.str();
}

int ParseHighScores(const std::string& text, HighScoreTable& out) {
  std::vector<std::string> lines = SplitLines(text);
  out = HighScoreTable{};
  int kept = 0;
  bool damaged = false;
  size_t at = 0;
  ForEachPlace([&](int v, int t, int r) {
    if (damaged) return;
    if (at + 4 > lines.size()) return void(damaged = true);
    auto name = ParseName(lines[at]);
    auto score = ParseWhole(lines[at + 1], std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
    auto rows = ParseWhole(lines[at + 2], -32768, 32767);
    auto level = ParseWhole(lines[at + 3], -32768, 32767);
    if (!name || !score || !rows || !level) return void(damaged = true);
    out[v][t][r] = HighScoreEntry{*name, static_cast<int32_t>(*score), static_cast<int16_t>(*rows),
                                  static_cast<int16_t>(*level)};
    at += 4;
    ++kept;
  });
  return kept;
}

void ReadSettingsFile() {
  auto text = ReadHomeFile(kSettingsFile);
  core::MenuSettings s = core::Settings;
  if (!text) {
    std::fprintf(stderr, "vorrel: no %s to read: the settings start fresh\n", kSettingsFile);
    s = StartSettings();
  } else if (int bad = ParseSettings(*text, s); bad > 0) {
    KeepDamaged(kSettingsFile, *text, std::to_string(bad) + " of its 10 settings unreadable, those start fresh");
  }
  core::Settings = s;
}

void ReadHighScoresFile() {
  auto text = ReadHomeFile(kHighScoresFile);
  HighScoreTable table;
  if (!text) {
    std::fprintf(stderr, "vorrel: no %s to read: the high-score tables start empty\n", kHighScoresFile);
  } else if (int kept = ParseHighScores(*text, table); kept < 35) {
    KeepDamaged(kHighScoresFile, *text,
                "only the first " + std::to_string(kept) + " of its 35 places are readable; the rest start empty");
  }
  Front.HighScores = table;
}

void CheckDefaultFiles() {
  for (const char* name : {kSettingsFile, kHighScoresFile}) {
    const std::string path = platform::DataPath(name);
    std::ifstream f(path, std::ios::binary);
    if (!f) core::Fail(path + ": cannot open");
    std::stringstream s;
    s << f.rdbuf();
    core::MenuSettings settings;
    HighScoreTable table;
    const bool whole = name == std::string(kSettingsFile) ? ParseSettings(s.str(), settings) == 0
                                                          : ParseHighScores(s.str(), table) == 35;
    if (!whole) core::Fail(path + ": damaged");
  }
}

bool WriteSettingsFile() { return SaveHomeFile(kSettingsFile, SettingsText(core::Settings)); }
bool WriteHighScoresFile() { return SaveHomeFile(kHighScoresFile, HighScoresText(Front.HighScores)); }

bool SaveHomeFile(const std::string& name, const std::string& text) {
  std::string path;
  try {
    path = platform::HomeFile(name);
  } catch (const std::exception&) {
    path.clear();
  }
  return SaveFile(name, path, text);
}

namespace {

bool SaveFile(const std::string& name, const std::string& path, const std::string& text) {
  std::string why = path.empty() ? "its folder cannot be made" : "";
  if (why.empty()) {
    core::NoteFile(true, name);
    platform::WriteWholeFile(path, text, why, [&](const char* step) { return FaultHere(name, step); });
  }
  if (why.empty()) {
    reportedFailure[name] = false;
    return true;
  }
  if (!reportedFailure[name]) {
    reportedFailure[name] = true;
    std::fprintf(stderr, "vorrel: could not save %s (%s); the old file is kept and the game goes on\n", name.c_str(),
                 why.c_str());
  }
  return false;
}

}  // namespace

void ResetFaultPoint() {
  fault = FaultPoint{};
  reportedDamage.clear();
  reportedFailure.clear();
}

}  // namespace frontend

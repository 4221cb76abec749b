#include "platform/settings_store.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <istream>
#include <limits>

#include "core/hooks.h"
#include "platform/paths.h"

namespace platform {
namespace {

std::string Trim(const std::string& s) {
  size_t b = 0, e = s.size();
  while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
  while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
  return s.substr(b, e - b);
}

bool SameName(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

// A hand-edited file may be broken; say so once per run, then read what can be read.
bool malformedNoticeGiven = false;

void NoteMalformed(const std::string& path, int line) {
  if (malformedNoticeGiven) return;
  malformedNoticeGiven = true;
  std::fprintf(stderr, "vorrel: %s line %d is not understood; reading the rest\n", path.c_str(), line);
}

}  // namespace

std::optional<std::string> ReadIniValue(const std::string& path, const std::string& section,
                                        const std::string& name) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return FindIniValue(in, path, section, name);
}

std::optional<std::string> FindIniValue(std::istream& in, const std::string& path, const std::string& section,
                                        const std::string& name) {
  std::optional<std::string> found;
  std::string current, raw;
  int lineNo = 0;
  while (std::getline(in, raw)) {
    ++lineNo;
    std::string line = Trim(raw);
    if (lineNo == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line = Trim(line.substr(3));
    if (line.empty() || line[0] == ';' || line[0] == '#') continue;
    if (line[0] == '[') {
      size_t close = line.find(']');
      if (close == std::string::npos) {
        NoteMalformed(path, lineNo);
        current.clear();  // values below a broken header belong to no section
        continue;
      }
      current = Trim(line.substr(1, close - 1));
      continue;
    }
    size_t eq = line.find('=');
    if (eq == std::string::npos || Trim(line.substr(0, eq)).empty()) {
      NoteMalformed(path, lineNo);
      continue;
    }
    // The first occurrence wins, as with the Windows profile readers.
    if (found || !SameName(current, section) || !SameName(Trim(line.substr(0, eq)), name)) continue;
    std::string value = Trim(line.substr(eq + 1));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
      value = value.substr(1, value.size() - 2);
    found = value;
  }
  return found;
}

std::optional<std::string> ReadSettingsValue(const std::string& section, const std::string& name) {
  const std::string path = platform::SettingsStorePath();
  std::ifstream probe(path, std::ios::binary);
  if (!probe) return std::nullopt;
  probe.close();
  core::NoteFile(false, "settings.ini");
  return ReadIniValue(path, section, name);
}

int32_t NumericPrefixToInt(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  size_t start = i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  size_t digits = 0;
  while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
  }
  if (digits == 0) return 0;
  // An exponent counts only when digits follow it ("5e" is 5).
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    if (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) {
      while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) ++j;
      i = j;
    }
  }
  double v = std::strtod(text.substr(start, i - start).c_str(), nullptr);
  if (!(v == v)) return 0;
  constexpr double lo = std::numeric_limits<int32_t>::min(), hi = std::numeric_limits<int32_t>::max();
  if (v <= lo) return std::numeric_limits<int32_t>::min();
  if (v >= hi) return std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(std::nearbyint(v));  // the default rounding: half to even
}

}  // namespace platform

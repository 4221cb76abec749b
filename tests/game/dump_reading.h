// Reading the parts of a dump the line-check scenarios look at: numbers, the
// field rows, the sounds log and table records, without a JSON library.
#pragma once
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/run_game.h"

namespace linecheck {

inline double Number(const std::string& dump, const std::string& key) {
  return std::strtod(testsupport::DumpValue(dump, key).c_str(), nullptr);
}

// The text of a top-level array value, brackets included.
inline std::string ArrayText(const std::string& dump, const std::string& key) {
  const std::string needle = "\n  \"" + key + "\":[";
  size_t at = dump.find(needle);
  if (at == std::string::npos) return "";
  at += needle.size() - 1;
  int depth = 0;
  for (size_t i = at; i < dump.size(); ++i) {
    if (dump[i] == '[') ++depth;
    if (dump[i] == ']' && --depth == 0) return dump.substr(at, i - at + 1);
  }
  return "";
}

// Innermost arrays of an array value, each as its comma-separated items.
inline std::vector<std::vector<std::string>> Records(const std::string& dump, const std::string& key) {
  std::vector<std::vector<std::string>> out;
  const std::string text = ArrayText(dump, key);
  size_t i = 0;
  while ((i = text.find('[', i + 1)) != std::string::npos) {
    size_t end = text.find_first_of("[]", i + 1);
    if (end == std::string::npos || text[end] == '[') continue;
    std::vector<std::string> items;
    std::string item;
    for (size_t k = i + 1; k < end; ++k) {
      if (text[k] == ',') {
        items.push_back(item);
        item.clear();
      } else if (text[k] != '"') {
        item += text[k];
      }
    }
    items.push_back(item);
    out.push_back(items);
  }
  return out;
}

// The 21 rows of the dump's field, top first.
inline std::vector<std::string> Field(const std::string& dump) {
  std::vector<std::string> rows;
  const std::string text = ArrayText(dump, "field");
  size_t i = 0;
  while ((i = text.find('"', i)) != std::string::npos) {
    size_t end = text.find('"', i + 1);
    rows.push_back(text.substr(i + 1, end - i - 1));
    i = end + 1;
  }
  return rows;
}

struct SoundCall {
  long frame;
  int index;
};

// Every PlaySoundEffect call of the run, in order (stops left out).
inline std::vector<SoundCall> Sounds(const std::string& dump) {
  std::vector<SoundCall> out;
  for (const auto& r : Records(dump, "sounds"))
    if (r.size() == 3 && r[2] != "stop") out.push_back({std::atol(r[0].c_str()), std::atoi(r[1].c_str())});
  return out;
}

inline int CountSounds(const std::string& dump, int first, int last) {
  int n = 0;
  for (const SoundCall& s : Sounds(dump)) n += s.index >= first && s.index <= last;
  return n;
}

inline int CountCells(const std::string& row) {
  int n = 0;
  for (char c : row) n += c == '#';
  return n;
}

}  // namespace linecheck

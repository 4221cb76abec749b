#include "automation/replays.h"


#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "platform/paths.h"
#include "platform/whole_file.h"

#ifndef VORREL_VERSION
#define VORREL_VERSION "unknown"
#endif

namespace automation {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMagic = "# vorrel replay";

// Any text as one space-free word: %XX for anything outside plain ASCII
// marks and for % itself; "%" alone is the empty text.
std::string Encode(const std::string& s) {
  if (s.empty()) return "%";
  std::string out;
  char buf[4];
  for (unsigned char c : s) {
    if (c > 0x20 && c < 0x7f && c != '%') {
      out += static_cast<char>(c);
    } else {
      std::snprintf(buf, sizeof buf, "%%%02X", c);
      out += buf;
    }
  }
  return out;
}

bool Decode(const std::string& w, std::string& out) {
  out.clear();
  if (w == "%") return true;
  for (size_t i = 0; i < w.size(); ++i) {
    if (w[i] != '%') {
      out += w[i];
      continue;
    }
    if (i + 2 >= w.size() || !std::isxdigit(static_cast<unsigned char>(w[i + 1])) ||
        !std::isxdigit(static_cast<unsigned char>(w[i + 2])))
      return false;
    out += static_cast<char>(std::stoi(w.substr(i + 1, 2), nullptr, 16));
    i += 2;
  }
  return true;
}

template <class T>
bool Number(std::istringstream& in, T& out) {
  long long v = 0;
  if (!(in >> v)) return false;
  out = static_cast<T>(v);
  return true;
}

bool Unsigned(std::istringstream& in, uint64_t& out) {
  std::string w;
  if (!(in >> w) || w.empty() || w.find_first_not_of("0123456789") != std::string::npos) return false;
  errno = 0;
  out = std::strtoull(w.c_str(), nullptr, 10);
  return errno == 0;
}

// 64-bit FNV-1a over eight bytes at a time (little-endian words), then the
// length: the same on every machine, however the bytes arrive.
class Hasher {
 public:
  void Bytes(const char* p, size_t n) {
    for (size_t i = 0; i < n; ++i) {
      word_ |= uint64_t(static_cast<unsigned char>(p[i])) << (8 * filled_);
      if (++filled_ == 8) Flush();
    }
    length_ += n;
  }
  // Ends one item (a name, a file) so that the next cannot run into it.
  void End() {
    if (filled_ > 0) Flush();
    Mix(length_);
    length_ = 0;
  }
  uint64_t Value() const { return h_; }

 private:
  void Mix(uint64_t w) { h_ = (h_ ^ w) * 0x100000001b3ull; }
  void Flush() {
    Mix(word_);
    word_ = 0;
    filled_ = 0;
  }
  uint64_t h_ = 0xcbf29ce484222325ull, word_ = 0, length_ = 0;
  int filled_ = 0;
};

bool SameEntry(const Replay& r, const TablePlace& p) {
  return r.name == p.name && r.score == p.score && r.lines == p.lines && r.level == p.level;
}

}  // namespace

std::string EncodeWord(const std::string& s) { return Encode(s); }
bool DecodeWord(const std::string& w, std::string& out) { return Decode(w, out); }

std::string GameVersion() { return VORREL_VERSION; }

std::string DataHash() {
  static std::string cached;
  static std::string cachedFor;
  const std::string folder = platform::DataFolder();
  if (!cached.empty() && cachedFor == folder) return cached;
  // What the game loads: every file but the generator's contact sheets.
  std::vector<std::string> files;
  std::error_code ec;
  for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (!it->is_regular_file(ec)) continue;
    std::string rel = fs::relative(it->path(), folder, ec).generic_string();
    if (rel.rfind("contact-sheet", 0) == 0) continue;
    files.push_back(rel);
  }
  std::sort(files.begin(), files.end());
  Hasher h;
  // A small buffer: the data folder is tens of megabytes.
  std::vector<char> buffer(1 << 16);
  for (const std::string& rel : files) {
    h.Bytes(rel.data(), rel.size());
    h.End();
    std::ifstream in(fs::path(folder) / rel, std::ios::binary);
    while (in) {
      in.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
      h.Bytes(buffer.data(), static_cast<size_t>(in.gcount()));
    }
    h.End();
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(h.Value()));
  cachedFor = folder;
  return cached = text;
}

std::string TableTitle(int variant, int type) {
  static const char* variants[] = {"Classic", "Bonus", "Wickory"};
  std::string title = variants[std::clamp(variant, 0, 2)];
  if (variant != 2) title += std::string(" ") + static_cast<char>('A' + std::clamp(type, 0, 2));
  return title;
}

std::string ReplayText(const Replay& r) {
  std::ostringstream out;
  out << kMagic << "\n";
  out << "# version " << Encode(r.version) << "\n";
  out << "# data " << r.dataHash << "\n";
  out << "# table " << r.variant << " " << r.type << "\n";
  out << "# name " << Encode(r.name) << "\n";
  out << "# score " << r.score << "\n";
  out << "# lines " << r.lines << "\n";
  out << "# level " << r.level << "\n";
  out << "# began " << Encode(r.began) << "\n";
  out << "# order " << r.order << "\n";
  out << "# game " << r.game.variant << " " << r.game.type << " " << r.game.level << " " << r.game.height << " "
      << r.game.difficulty << "\n";
  out << "# random " << r.randomState << "\n";
  out << "# clock " << r.clock << "\n";
  out << "# pad " << (r.pad ? 1 : 0) << "\n";
  for (const SavedVariable& v : r.variables) {
    out << "#= " << v.name;
    for (const std::string& value : v.values) out << " " << value;
    out << "\n";
  }
  out << "# watch it: vorrel --replay THIS-FILE\n";
  if (r.pad) out << "0 joy plug\n";
  for (const std::string& line : r.body) out << line << "\n";
  return out.str();
}

bool ParseReplay(const std::string& text, Replay& out, std::string& error, bool headingOnly) {
  out = Replay{};
  std::istringstream lines(text);
  std::string line;
  if (!std::getline(lines, line) || line.rfind(kMagic, 0) != 0) {
    error = "not a recording of a game (it does not begin with \"" + std::string(kMagic) + "\")";
    return false;
  }
  std::set<std::string> seen;
  bool bodyBegun = false;
  while (std::getline(lines, line)) {
    while (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind("#", 0) != 0) {
      if (!line.empty()) {
        bodyBegun = bodyBegun || line.rfind("@begin", 0) == 0;
        if (bodyBegun) out.body.push_back(line);
        if (bodyBegun && headingOnly) break;
      }
      continue;
    }
    std::istringstream in(line.substr(line.rfind("#=", 0) == 0 ? 2 : 1));
    std::string key, word;
    in >> key;
    bool ok = true;
    if (line.rfind("#=", 0) == 0) {
      if (headingOnly) continue;
      SavedVariable v{key, {}};
      while (in >> word) v.values.push_back(word);
      out.variables.push_back(std::move(v));
      continue;
    }
    if (key == "version") {
      ok = (in >> word) && Decode(word, out.version);
    } else if (key == "data") {
      ok = (in >> out.dataHash) && out.dataHash.size() == 16 &&
           out.dataHash.find_first_not_of("0123456789abcdef") == std::string::npos;
    } else if (key == "table") {
      ok = Number(in, out.variant) && Number(in, out.type) && out.variant >= 0 && out.variant <= 2 && out.type >= 0 &&
           out.type <= 2;
    } else if (key == "name") {
      ok = (in >> word) && Decode(word, out.name);
    } else if (key == "score") {
      ok = Number(in, out.score);
    } else if (key == "lines") {
      ok = Number(in, out.lines);
    } else if (key == "level") {
      ok = Number(in, out.level);
    } else if (key == "began") {
      ok = (in >> word) && Decode(word, out.began);
    } else if (key == "order") {
      ok = Unsigned(in, out.order);
    } else if (key == "game") {
      core::GameRequest& g = out.game;
      ok = Number(in, g.variant) && Number(in, g.type) && Number(in, g.level) && Number(in, g.height) &&
           Number(in, g.difficulty) && g.variant >= 0 && g.variant <= 2 && g.type >= 0 && g.type <= 2 &&
           g.level >= 0 && g.level <= 20 && g.height >= 0 && g.height <= 9 && g.difficulty >= 0 && g.difficulty <= 2;
    } else if (key == "random") {
      ok = Unsigned(in, out.randomState);
    } else if (key == "clock") {
      ok = Unsigned(in, out.clock);
    } else if (key == "pad") {
      int pad = 0;
      ok = Number(in, pad);
      out.pad = pad != 0;
    } else {
      continue;  // a comment
    }
    if (!ok) {
      error = "its \"" + key + "\" line cannot be read";
      return false;
    }
    seen.insert(key);
  }
  if (seen.size() < 13) {
    error = "its heading is incomplete";
    return false;
  }
  if (out.body.empty()) {
    error = "it holds no game (no \"@begin\" line)";
    return false;
  }
  return true;
}

bool ReadReplay(const std::string& path, Replay& out, std::string& error, bool headingOnly) {
  std::error_code ec;
  if (fs::is_directory(path, ec)) {
    error = "is a folder";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot be read";
    return false;
  }
  std::ostringstream text;
  text << in.rdbuf();
  if (!ParseReplay(text.str(), out, error, headingOnly)) return false;
  out.path = path;
  return true;
}

std::string ReplayMismatch(const Replay& r) {
  std::string why;
  if (r.version != GameVersion())
    why = "it was made by version " + r.version + " and this is version " + GameVersion();
  if (r.dataHash != DataHash()) {
    if (!why.empty()) why += "; ";
    why += "it was made on the data " + r.dataHash + " and this game's data " + platform::DataFolder() + " is " +
           DataHash();
  }
  return why;
}

TableReplays MatchReplays(int variant, int type, const TablePlaces& places, const std::vector<Replay>& kept) {
  // The table's order: higher scores first, and of equal ones the later
  // result above, as a new result is filed above an equal score.
  std::vector<const Replay*> mine;
  for (const Replay& r : kept)
    if (r.variant == variant && r.type == type) mine.push_back(&r);
  std::stable_sort(mine.begin(), mine.end(), [](const Replay* a, const Replay* b) {
    if (a->score != b->score) return a->score > b->score;
    return a->order > b->order;
  });
  TableReplays out;
  out.byPlace.assign(places.size(), "");
  std::vector<bool> used(mine.size(), false);
  size_t from = 0;
  for (size_t p = 0; p < places.size(); ++p) {
    for (size_t i = from; i < mine.size(); ++i) {
      if (used[i] || !SameEntry(*mine[i], places[p])) continue;
      used[i] = true;
      out.byPlace[p] = mine[i]->path;
      from = i + 1;
      break;
    }
  }
  for (size_t i = 0; i < mine.size(); ++i)
    if (!used[i]) out.stale.push_back(mine[i]->path);
  return out;
}

std::vector<Replay> ReadReplayFolder(const std::string& folder, std::vector<std::string>* unreadable) {
  std::vector<Replay> out;
  std::error_code ec;
  std::vector<fs::path> paths;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
    if (it->path().extension() == kReplayExtension) paths.push_back(it->path());
  std::sort(paths.begin(), paths.end());
  for (const fs::path& p : paths) {
    Replay r;
    std::string error;
    if (ReadReplay(p.string(), r, error, true)) {
      out.push_back(std::move(r));
    } else if (unreadable) {
      std::fprintf(stderr, "vorrel: %s: %s\n", p.c_str(), error.c_str());
      unreadable->push_back(p.string());
    }
  }
  return out;
}

bool KeepReplay(const std::string& folder, const Replay& r) {
  std::error_code ec;
  fs::create_directories(folder, ec);
  std::string slug = TableTitle(r.variant, r.type);
  for (char& c : slug) c = c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::string stamp;
  for (char c : r.began)
    if (std::isdigit(static_cast<unsigned char>(c))) stamp += c;
  if (stamp.size() == 14) stamp.insert(8, "-");
  std::string base = (fs::path(folder) / (slug + "-" + stamp)).string();
  std::string path = base + kReplayExtension;
  for (int n = 2; fs::exists(path, ec); ++n) path = base + "-" + std::to_string(n) + kReplayExtension;
  std::string why;
  if (!ec && platform::WriteWholeFile(path, ReplayText(r), why)) return true;
  std::fprintf(stderr, "vorrel: could not keep the replay of this game in %s (%s); the game goes on\n",
               folder.c_str(), why.empty() ? ec.message().c_str() : why.c_str());
  return false;
}

}  // namespace automation

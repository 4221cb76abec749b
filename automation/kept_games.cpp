#include "automation/kept_games.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <future>
#include <optional>

#include "automation/internal.h"
#include "automation/record.h"
#include "automation/replays.h"
#include "core/random.h"
#include "core/settings.h"
#include "core/variables.h"
#include "frontend/front_state.h"
#include "frontend/vsys_files.h"
#include "platform/clock.h"
#include "platform/paths.h"

namespace automation {
namespace {

namespace fs = std::filesystem;

struct KeptGames {
  std::optional<Replay> toPlay;  // --replay: restored when its game begins
  bool playing = false;
  Replay current;     // the heading of the game being recorded
  bool padOpen = false;
};
KeptGames Kept;
std::future<std::string> dataHashSoon;

// Values of the machine and the installation rather than of the game.
bool Environmental(const std::string& name) {
  for (const char* n : {"AppRunning", "LoadStep", "GlyphOrder", "CreditsText", "SoundBuffers", "TrackTitles",
                        "MusicPath"})
    if (name == n) return true;
  return false;
}

template <class F>
void Leaves(const vars::Ref& r, F&& f) {
  switch (r.GetKind()) {
    case vars::Kind::Array:
      for (long long i = r.Low(); i <= r.High(); ++i) Leaves(r.Element(i), f);
      break;
    case vars::Kind::Record:
      for (size_t i = 0; i < r.FieldCount(); ++i) Leaves(r.Field(i), f);
      break;
    default:
      f(r);
  }
}

std::vector<SavedVariable> SaveVariables() {
  std::vector<SavedVariable> out;
  for (const auto& [name, ref] : vars::All()) {
    if (Environmental(name)) continue;
    SavedVariable v{name, {}};
    Leaves(ref, [&](const vars::Ref& leaf) {
      char buf[64];
      switch (leaf.GetKind()) {
        case vars::Kind::Real:
          std::snprintf(buf, sizeof buf, "%a", leaf.AsReal());  // exact both ways
          v.values.push_back(buf);
          break;
        case vars::Kind::Text: v.values.push_back(EncodeWord(leaf.AsText())); break;
        default: v.values.push_back(std::to_string(leaf.AsInteger())); break;
      }
    });
    out.push_back(std::move(v));
  }
  return out;
}

void RestoreVariables(const std::vector<SavedVariable>& saved) {
  for (const SavedVariable& v : saved) {
    std::optional<vars::Ref> ref = vars::Find(v.name);
    if (!ref || Environmental(v.name)) continue;
    size_t count = 0;
    Leaves(*ref, [&](const vars::Ref&) { ++count; });
    if (count != v.values.size()) {
      std::fprintf(stderr, "vorrel: replay: %s holds %zu values, not %zu; left as it is\n", v.name.c_str(), count,
                   v.values.size());
      continue;
    }
    size_t i = 0;
    bool ok = true;
    Leaves(*ref, [&](const vars::Ref& leaf) {
      const std::string& w = v.values[i++];
      vars::Literal value;
      switch (leaf.GetKind()) {
        case vars::Kind::Real:
          value.kind = vars::Literal::Kind::Decimal;
          value.decimal = std::strtod(w.c_str(), nullptr);
          break;
        case vars::Kind::Text:
          value.kind = vars::Literal::Kind::Text;
          ok = DecodeWord(w, value.text) && ok;
          break;
        case vars::Kind::Boolean:
          value.kind = vars::Literal::Kind::Boolean;
          value.boolean = std::strtoll(w.c_str(), nullptr, 10) != 0;
          break;
        default:
          value.kind = vars::Literal::Kind::Integer;
          value.integer = std::strtoll(w.c_str(), nullptr, 10);
      }
      ok = leaf.Assign(value) && ok;
    });
    if (!ok) std::fprintf(stderr, "vorrel: replay: some values of %s could not be set\n", v.name.c_str());
  }
}

std::string LocalTime(std::time_t t) {
  std::tm local{};
  localtime_r(&t, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

void GameBegins() {
  Engine& e = State();
  if (Kept.toPlay) {
    const Replay& r = *Kept.toPlay;
    RestoreVariables(r.variables);
    core::SetRandomState(r.randomState);
    platform::SetClock(r.clock);
    Kept.toPlay.reset();
  } else if (!Kept.playing) {
    Replay& r = Kept.current;
    r = Replay{};
    const core::MenuSettings& s = core::Settings;
    r.game = core::GameRequest{s.GameVariant, s.PlayType, s.Level, static_cast<int>(s.StartHeight), s.Difficulty};
    r.randomState = core::RandomState();
    r.clock = platform::ClockUnits();
    r.pad = Kept.padOpen;
    r.variables = SaveVariables();
    auto now = std::chrono::system_clock::now();
    r.began = LocalTime(std::chrono::system_clock::to_time_t(now));
    r.order = static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(now.time_since_epoch()).count());
    e.gameRecorder = std::make_unique<Recorder>();
    e.gameRecorder->StartAt(e.where, e.frames, e.pollsStarted);
    e.gameRecorder->AssumePad(Kept.padOpen);
  }
  BeginMoment();
}

TablePlaces Places(int v, int t) {
  TablePlaces places;
  for (int i = 0; i <= 4; ++i) {
    const frontend::HighScoreEntry& h = frontend::Front.HighScores[v][t][i];
    places.push_back(TablePlace{h.Name, h.Score, h.Lines, h.Level});
  }
  return places;
}

template <class F>
void ForEachTable(F&& f) {
  for (int v = 0; v <= 2; ++v)
    for (int t = 0; t <= (v == 2 ? 0 : 2); ++t) f(v, t);
}

// Recordings whose places are gone, unreadable ones and broken writes go:
// the folder holds at most one recording per table place.
void Prune(const std::string& folder) {
  std::vector<std::string> drop;
  std::vector<Replay> kept = ReadReplayFolder(folder, &drop);
  ForEachTable([&](int v, int t) {
    TableReplays m = MatchReplays(v, t, Places(v, t), kept);
    drop.insert(drop.end(), m.stale.begin(), m.stale.end());
  });
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
    if (it->path().extension() == ".tmp") drop.push_back(it->path().string());
  for (const std::string& path : drop) {
    fs::remove(path, ec);
    if (ec) std::fprintf(stderr, "vorrel: cannot remove the old replay %s: %s\n", path.c_str(), ec.message().c_str());
  }
}

void ResultStored(int v, int t, int rank) {
  Engine& e = State();
  if (Kept.playing || !e.gameRecorder) return;
  Replay& r = Kept.current;
  const frontend::HighScoreEntry& h = frontend::Front.HighScores[v][t][rank];
  r.version = GameVersion();
  r.dataHash = dataHashSoon.valid() ? dataHashSoon.get() : DataHash();
  r.variant = v;
  r.type = t;
  r.name = h.Name;
  r.score = h.Score;
  r.lines = h.Lines;
  r.level = h.Level;
  e.gameRecorder->QuitAtNextFrame();
  r.body = {"@begin mark"};
  r.body.insert(r.body.end(), e.gameRecorder->Lines().begin(), e.gameRecorder->Lines().end());
  e.gameRecorder.reset();
  std::string folder;
  try {
    folder = ReplayFolder();
  } catch (const std::exception& ex) {
    std::fprintf(stderr, "vorrel: no replay kept: %s\n", ex.what());
    return;
  }
  KeepReplay(folder, r);
  Prune(folder);
}

// Hears every device read for the session's recording and the game's.
class Listener final : public platform::DeviceObserver {
 public:
  void KeyboardRead(const uint8_t state[256]) override {
    ForEach([&](Recorder& r) { r.KeyboardRead(state); });
  }
  void MouseRead(const platform::MouseReading& reading) override {
    ForEach([&](Recorder& r) { r.MouseRead(reading); });
  }
  void JoystickProbed(bool attached) override {
    if (!attached) Kept.padOpen = false;
    ForEach([&](Recorder& r) { r.JoystickProbed(attached); });
  }
  void JoystickOpened(bool opened) override {
    Kept.padOpen = opened;
    ForEach([&](Recorder& r) { r.JoystickOpened(opened); });
  }
  void JoystickRead(bool ok, const platform::JoystickReading& reading) override {
    if (!ok) Kept.padOpen = false;
    ForEach([&](Recorder& r) { r.JoystickRead(ok, reading); });
  }
  void JoystickClosed() override {
    Kept.padOpen = false;
    ForEach([&](Recorder& r) { r.JoystickClosed(); });
  }

 private:
  template <class F>
  static void ForEach(F&& f) {
    Engine& e = State();
    if (e.recorder) f(*e.recorder);
    if (e.gameRecorder) f(*e.gameRecorder);
  }
};

}  // namespace

std::unique_ptr<platform::DeviceObserver> MakeDeviceListener() {
  Kept.padOpen = false;
  return std::make_unique<Listener>();
}

void InstallKeptGames() {
  core::Hooks.GameBegins = GameBegins;
  core::Hooks.ResultStored = ResultStored;
}

void HashDataSoon() {
  if (!Kept.playing && !dataHashSoon.valid()) dataHashSoon = std::async(std::launch::async, [] { return DataHash(); });
}

void GameEnded() { State().gameRecorder.reset(); }

bool Replaying() { return Kept.playing; }

std::string ReplayFolder() {
  // Made with its parent, as the VSys files' folder is.
  return fs::path(platform::HomeFile(std::string(kReplayFolder) + "/" + "x")).parent_path().string();
}

bool PrepareReplay(const std::string& path, Options& options, std::string& error) {
  Replay r;
  if (!ReadReplay(path, r, error)) {
    error = path + ": " + error;
    return false;
  }
  if (std::string why = ReplayMismatch(r); !why.empty()) {
    error = path + ": this recording cannot be replayed here: " + why;
    return false;
  }
  options.game = r.game;
  options.scriptPath = path;
  if (!options.seed) options.seed = 0;
  Kept = KeptGames{};
  Kept.toPlay = std::move(r);
  Kept.playing = true;
  return true;
}

int ListReplays() {
  frontend::ReadHighScoresFile();
  const std::string folder = ReplayFolder();
  std::vector<Replay> kept = ReadReplayFolder(folder, nullptr);
  int count = 0;
  ForEachTable([&](int v, int t) {
    TableReplays m = MatchReplays(v, t, Places(v, t), kept);
    for (size_t p = 0; p < m.byPlace.size(); ++p) {
      if (m.byPlace[p].empty()) continue;
      const frontend::HighScoreEntry& h = frontend::Front.HighScores[v][t][static_cast<long long>(p)];
      if (count++ == 0) std::printf("%-10s %4s  %-8s %9s  %s\n", "TABLE", "RANK", "NAME", "SCORE", "FILE");
      std::printf("%-10s %4zu  %-8s %9d  %s\n", TableTitle(v, t).c_str(), p + 1, h.Name.c_str(), h.Score,
                  m.byPlace[p].c_str());
    }
  });
  if (count == 0) std::printf("No replays are kept yet in %s: every new high score keeps one.\n", folder.c_str());
  return count;
}

}  // namespace automation

// Kept games: every result filed in a high-score table keeps the recording of
// its game in the home folder's replays/, one file per table place. A
// recording is a script from the moment its game began (`@begin`), headed by
// comment lines that say whose game it is and hold the state the game began
// from; `vorrel --replay FILE` plays it, `vorrel --replays` lists them.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/hooks.h"

namespace automation {

inline constexpr const char* kReplayFolder = "replays";
inline constexpr const char* kReplayExtension = ".replay";

// One variable's values in walk order (arrays by index, records by field).
struct SavedVariable {
  std::string name;
  std::vector<std::string> values;
};

struct Replay {
  std::string version, dataHash;
  int variant = 0, type = 0;  // the table: Wickory has only type 0
  std::string name;
  int32_t score = 0;
  int lines = 0, level = 0;
  std::string began;       // local time, for people
  uint64_t order = 0;      // when it began, for ties in a table
  core::GameRequest game;  // the menu's choice, to reach the first game
  uint64_t randomState = 0, clock = 0;
  bool pad = false;
  std::vector<SavedVariable> variables;
  std::vector<std::string> body;  // script lines from `@begin` on
  std::string path;               // where it was read from
};

// Any text as one space-free word of a recording, and back.
std::string EncodeWord(const std::string& s);
bool DecodeWord(const std::string& w, std::string& out);

// This build's version, and a hash of the data folder's files the game loads.
std::string GameVersion();
std::string DataHash();

std::string ReplayText(const Replay& r);
// False with a message when the text is not a recording. headingOnly: the
// saved variables and the lines after `@begin` are skipped (listing, matching).
bool ParseReplay(const std::string& text, Replay& out, std::string& error, bool headingOnly = false);
bool ReadReplay(const std::string& path, Replay& out, std::string& error, bool headingOnly = false);
// Empty when r was made by this version on this data; else what differs.
std::string ReplayMismatch(const Replay& r);

// "Classic A", "Wickory"...; and the file name's "classic-a".
std::string TableTitle(int variant, int type);

// A table as the game holds it, place by place.
struct TablePlace {
  std::string name;
  int32_t score = 0;
  int lines = 0, level = 0;
};
using TablePlaces = std::vector<TablePlace>;  // 5 places

// The kept recordings of one table matched to its places: index = place,
// empty path where none is kept. Files that match no place are `stale`.
struct TableReplays {
  std::vector<std::string> byPlace;
  std::vector<std::string> stale;
};
TableReplays MatchReplays(int variant, int type, const TablePlaces& places, const std::vector<Replay>& kept);

// The heading of every readable recording in folder (unreadable ones are
// reported and go to `unreadable`).
std::vector<Replay> ReadReplayFolder(const std::string& folder, std::vector<std::string>* unreadable);

// Writes r into folder under a fresh name (through NAME.tmp, synced and
// renamed); false with one line on stderr.
bool KeepReplay(const std::string& folder, const Replay& r);

}  // namespace automation

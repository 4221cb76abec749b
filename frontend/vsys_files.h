// The player's two files, VSys/maindata.inf (the menu's ten settings) and
// VSys/hs.inf (the seven high-score tables, 140 lines), read and written
// only here. A damaged file never stops the game: what is valid is kept, the
// rest starts fresh, the damaged file is kept aside as VSys/NAME.damaged.
// Every save goes to VSys/NAME.tmp, is synced and renamed over the old file.
#pragma once
#include <string>

#include "core/settings.h"
#include "frontend/front_state.h"

namespace frontend {

inline constexpr const char* kSettingsFile = "VSys/maindata.inf";
inline constexpr const char* kHighScoresFile = "VSys/hs.inf";

// The settings a line that cannot be read takes: sound, effects and voices on,
// darkening 5, everything else 0.
core::MenuSettings StartSettings();

// The files' text, CR LF lines.
std::string SettingsText(const core::MenuSettings& s);
std::string HighScoresText(const HighScoreTable& table);

// Each valid line is kept (rounded to a whole number and clamped to its
// range), every other one takes its start value. Returns the number of lines
// of the ten that were missing or unreadable.
int ParseSettings(const std::string& text, core::MenuSettings& out);
// The complete valid records before the first damage are kept, in file order;
// the rest of the tables is empty. Returns the number of records kept (35: all).
int ParseHighScores(const std::string& text, HighScoreTable& out);

// The shipped defaults in the data folder's VSys/ must be whole: a missing
// or damaged one throws core::GameFault naming it.
void CheckDefaultFiles();

// Read into core::Settings / Front.HighScores from the home folder.
void ReadSettingsFile();
void ReadHighScoresFile();
// Save whole files; false (with one line on stderr) when the old file stays.
bool WriteSettingsFile();
bool WriteHighScoresFile();

// Writes text as the home file name through NAME.tmp, sync and rename.
bool SaveHomeFile(const std::string& name, const std::string& text);

// The fault point for tests, from VORREL_FAULT_POINT ("FILE:STEP:N" or
// "FILE:STEP:N:end", STEP one of write, sync, rename; FILE hs.inf or
// maindata.inf). Read once; tests may reset it.
void ResetFaultPoint();

}  // namespace frontend

// The high-score tables: where a result ranks, the name entry on the
// on-screen keyboard, and the keyboard's drawing.
#pragma once
#include <cstdint>

#include "frontend/front_state.h"

namespace frontend {

// The table of the game being played: Wickory has only its play type 0.
int TableType();
// The rank a new score takes in table (v, t): below every strictly greater
// score, above an equal one.
int RankFor(const HighScoreTable& table, int v, int t, int32_t score);
// Puts the entry at rank, moving the places below it down; the fifth is dropped.
void InsertHighScore(HighScoreTable& table, int v, int t, int rank, const HighScoreEntry& entry);
// True when ScoreShown beats the fifth place of the current game's table.
bool QualifiesForTable();

// The keyboard, the name and the pointer on the back buffer; TypedGlyph
// becomes the key under the pointer, or -1.
void DrawHigh();
// The name entry for a qualifying result; inserts it and saves the tables.
void NewHighScore();

// The double-quote key (glyph 43) types nothing: the file's quoted names
// cannot hold it, and a name must read back as the table shows it.
inline constexpr int kQuoteGlyph = 43;
inline constexpr int kEndGlyph = 47;

}  // namespace frontend

// libFuzzer target for the readers of VSys/maindata.inf and VSys/hs.inf:
// whatever the bytes, every setting ends within its range, the kept places
// are a count the table holds, and what is kept reads back the same.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "frontend/vsys_files.h"

namespace {
bool Within(long long v, long long lo, long long hi) { return v >= lo && v <= hi; }
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);

  core::MenuSettings s;
  int bad = frontend::ParseSettings(text, s);
  if (!Within(bad, 0, 10) || !Within(s.GameVariant, 0, 2) || !Within(s.PlayType, 0, 2) || !Within(s.Level, 0, 9) ||
      !(s.StartHeight >= 0 && s.StartHeight <= 9) || !Within(s.Difficulty, 0, 2) || !Within(s.Transparency, 0, 9) ||
      !Within(s.MusicOn, 0, 1) || !Within(s.SoundOn, 0, 1) || !Within(s.VoiceOn, 0, 1) ||
      !Within(s.MusicTrack, 0, 30))
    std::abort();
  core::MenuSettings again;
  if (frontend::ParseSettings(frontend::SettingsText(s), again) != 0 ||
      frontend::SettingsText(again) != frontend::SettingsText(s))
    std::abort();

  frontend::HighScoreTable table;
  int kept = frontend::ParseHighScores(text, table);
  if (!Within(kept, 0, 35)) std::abort();
  const std::string written = frontend::HighScoresText(table);
  frontend::HighScoreTable back;
  if (frontend::ParseHighScores(written, back) != 35 || frontend::HighScoresText(back) != written) std::abort();
  return 0;
}

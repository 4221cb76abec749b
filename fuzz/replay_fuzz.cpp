// libFuzzer target for the reader of kept games (replays/*.replay): whatever
// the bytes, a recording that reads writes back to a text that reads the
// same, and its lines go through the script parser without harm.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "automation/replays.h"
#include "automation/script.h"
#include "core/errors.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  automation::Replay r;
  std::string error;
  if (automation::ParseReplay(text, r, error)) {
    if (r.variant < 0 || r.variant > 2 || r.type < 0 || r.type > 2 || r.body.empty()) std::abort();
    const std::string written = automation::ReplayText(r);
    automation::Replay back;
    if (!automation::ParseReplay(written, back, error) || automation::ReplayText(back) != written) std::abort();
    for (const automation::SavedVariable& v : r.variables)
      for (const std::string& w : v.values) {
        std::string decoded;
        if (automation::DecodeWord(w, decoded) && automation::EncodeWord(decoded) != w && w != "%" &&
            automation::EncodeWord(decoded).size() > w.size() + 2 * decoded.size() + 1)
          std::abort();
      }
  } else if (error.empty()) {
    std::abort();
  }
  try {
    automation::ParseScript(text, "fuzz.replay");
  } catch (const core::UsageError&) {
  }
  return 0;
}

// libFuzzer target for the settings store: any text gives a value or none,
// never a crash, and a value's number is whatever its prefix says.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/settings_store.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const char* name : {"MusicVolume", "musicvolume", ""}) {
    std::istringstream in(text);
    auto value = platform::FindIniValue(in, "fuzz.ini", "Settings", name);
    if (value) {
      if (value->find('\n') != std::string::npos) std::abort();
      platform::NumericPrefixToInt(*value);
    }
  }
  platform::NumericPrefixToInt(text);
  return 0;
}

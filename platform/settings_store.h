// The per-user settings store: an INI file the player may edit by hand
// (settings.ini, section [Settings]). The game only ever reads it.
#pragma once
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace platform {

// The text of NAME in [SECTION] of the store, or nothing when the file or
// the value is absent. Section and value names ignore case, as the player
// may write them either way.
std::optional<std::string> ReadSettingsValue(const std::string& section, const std::string& name);

// The same lookup in a given file (for the tests and any other store).
std::optional<std::string> ReadIniValue(const std::string& path, const std::string& section,
                                        const std::string& name);
// The same over a stream already open; path only names it in messages.
std::optional<std::string> FindIniValue(std::istream& in, const std::string& path, const std::string& section,
                                        const std::string& name);

// A text as a number the way the store's values are read: its numeric
// prefix (sign, digits, fraction, exponent) after leading blanks, 0 when it
// has none, rounded half to even and held within 32 bits.
int32_t NumericPrefixToInt(const std::string& text);

}  // namespace platform

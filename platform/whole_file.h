// A file the player keeps is written whole or not at all: NAME.tmp written,
// synced, renamed over NAME, and the folder synced so the rename lasts too.
#pragma once
#include <functional>
#include <string>

namespace platform {

// False with the failing step in `why` ("write: ...", "sync: ...", "rename:
// ..."); the .tmp is gone and the old file stands. fault(step) is asked before
// "write", "sync" and "rename": true fails that step as the disk would.
bool WriteWholeFile(const std::string& path, const std::string& text, std::string& why,
                    const std::function<bool(const char* step)>& fault = {});

}  // namespace platform

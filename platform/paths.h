// Where files live: the data folder (read only) and the home folder with the
// player's files (VSys/hs.inf, VSys/maindata.inf) and the settings store.
#pragma once
#include <string>

namespace platform {

// Set once from the command line (or the defaults) before anything loads.
void SetDataFolder(const std::string& dir);
void SetHomeFolder(const std::string& dir);  // empty: the XDG folders
const std::string& DataFolder();

// The game's relative path ("\graphics\bombs.bmp") under the data folder.
std::string DataPath(const std::string& gamePath);
// A player file by its game name ("VSys/hs.inf"): under --home, or the XDG
// data folder. A missing VSys file is first copied from the data folder's
// defaults. Creates the folders it needs.
std::string HomeFile(const std::string& name);
// The read-only settings store (settings.ini): --home/settings.ini or the
// XDG config folder's vorrel/settings.ini.
std::string SettingsStorePath();

}  // namespace platform

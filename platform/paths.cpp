#include "platform/paths.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/hooks.h"
#include "core/errors.h"

namespace fs = std::filesystem;

namespace platform {

namespace {
std::string dataFolder;
std::string homeFolder;

std::string XdgFolder(const char* variable, const char* fallback) {
  const char* v = std::getenv(variable);
  if (v && *v == '/') return std::string(v) + "/vorrel";
  const char* home = std::getenv("HOME");
  return std::string(home && *home ? home : ".") + "/" + fallback + "/vorrel";
}

std::string PlayerFolder() { return homeFolder.empty() ? XdgFolder("XDG_DATA_HOME", ".local/share") : homeFolder; }
}  // namespace

void SetDataFolder(const std::string& dir) { dataFolder = dir; }
void SetHomeFolder(const std::string& dir) { homeFolder = dir; }
const std::string& DataFolder() { return dataFolder; }

std::string DataPath(const std::string& gamePath) {
  std::string rel = gamePath;
  for (char& c : rel)
    if (c == '\\') c = '/';
  if (!rel.empty() && rel[0] != '/') rel.insert(rel.begin(), '/');
  return dataFolder + rel;
}

std::string HomeFile(const std::string& name) {
  fs::path file = fs::path(PlayerFolder()) / name;
  std::error_code ec;
  fs::create_directories(file.parent_path(), ec);
  if (ec) core::Fail("cannot create the folder " + file.parent_path().string() + ": " + ec.message());
  if (!fs::exists(file, ec) && name.rfind("VSys/", 0) == 0) {
    // First run: start from the shipped defaults, copied whole or not at all.
    fs::path defaults = fs::path(dataFolder) / name;
    fs::path part = file.string() + ".part";
    fs::copy_file(defaults, part, fs::copy_options::overwrite_existing, ec);
    if (!ec) fs::rename(part, file, ec);
    if (ec) {
      fs::remove(part, ec);
      std::fprintf(stderr, "vorrel: cannot copy the default %s to %s\n", defaults.c_str(), file.c_str());
    }
  }
  return file.string();
}

std::string SettingsStorePath() {
  if (!homeFolder.empty()) return (fs::path(homeFolder) / "settings.ini").string();
  return XdgFolder("XDG_CONFIG_HOME", ".config") + "/settings.ini";
}

}  // namespace platform

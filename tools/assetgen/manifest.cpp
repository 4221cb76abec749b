#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tools/assetgen/registry.h"

namespace fs = std::filesystem;

namespace assetgen {

std::map<std::string, Generator>& Generators() {
  static std::map<std::string, Generator> g;
  return g;
}

std::string Context::Out(const std::string& relPath) const {
  fs::path p = fs::path(outDir) / relPath;
  fs::create_directories(p.parent_path());
  return p.string();
}

void Fail(const Entry& e, const std::string& why) {
  throw std::runtime_error(e.source + ": " + e.path + ": " + why);
}

std::vector<Entry> ReadManifest(const std::string& filesDir) {
  std::vector<fs::path> lists;
  for (const auto& f : fs::directory_iterator(filesDir))
    if (f.path().extension() == ".tsv") lists.push_back(f.path());
  std::sort(lists.begin(), lists.end());
  std::vector<Entry> entries;
  for (const auto& list : lists) {
    std::ifstream in(list);
    std::string line;
    int n = 0;
    while (std::getline(in, line)) {
      ++n;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.empty() || line[0] == '#') continue;
      std::istringstream s(line);
      Entry e;
      e.source = list.filename().string() + ":" + std::to_string(n);
      if (!(s >> e.path >> e.kind >> e.width >> e.height >> e.generator))
        throw std::runtime_error(e.source + ": expected PATH KIND WIDTH HEIGHT GENERATOR");
      // Paths with spaces (music titles) are written with %20.
      for (size_t at; (at = e.path.find("%20")) != std::string::npos;) e.path.replace(at, 3, " ");
      std::string a;
      while (s >> a) e.args.push_back(a);
      entries.push_back(std::move(e));
    }
  }
  return entries;
}

}  // namespace assetgen

// The data generator: every file of the data folder is a line of the manifest
// (assets/files/*.tsv) naming the generator that makes it. Generators register
// themselves by name from their own source files.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace assetgen {

// One manifest line: PATH  KIND  WIDTH  HEIGHT  GENERATOR  [ARG...]
// KIND is bmp, wav, mid or inf; WIDTH and HEIGHT are 0 where they do not apply;
// everything after GENERATOR is free text for the generator (its "args").
struct Entry {
  std::string path;       // relative to the data folder, '/' separated, exact case
  std::string kind;
  int width = 0;
  int height = 0;
  std::string generator;
  std::vector<std::string> args;
  std::string source;     // manifest file and line, for messages
};

struct Context {
  std::string outDir;     // the data folder being written
  std::string assetsDir;  // the repository's assets/ folder (score files, tables)
  // Absolute output path for a manifest path; creates the parent folders.
  std::string Out(const std::string& relPath) const;
};

using Generator = std::function<void(const Context&, const Entry&)>;

std::map<std::string, Generator>& Generators();

struct Register {
  Register(const std::string& name, Generator g) { Generators()[name] = std::move(g); }
};

// Throws std::runtime_error with the entry's source on failure.
[[noreturn]] void Fail(const Entry& e, const std::string& why);

std::vector<Entry> ReadManifest(const std::string& filesDir);

}  // namespace assetgen

// Registers a generator from a source file: ASSETGEN_GENERATOR(piece_sheet) { ... }
#define ASSETGEN_CONCAT2(a, b) a##b
#define ASSETGEN_CONCAT(a, b) ASSETGEN_CONCAT2(a, b)
#define ASSETGEN_GENERATOR(name)                                                           \
  static void ASSETGEN_CONCAT(Gen_, name)(const assetgen::Context&, const assetgen::Entry&); \
  static assetgen::Register ASSETGEN_CONCAT(reg_, name)(#name, ASSETGEN_CONCAT(Gen_, name));  \
  static void ASSETGEN_CONCAT(Gen_, name)(const assetgen::Context& ctx, const assetgen::Entry& entry)

// assetgen --assets DIR --out DIR [--only SUBSTRING]
// Writes every file of the manifest into the data folder.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <set>
#include <string>

#include "tools/assetgen/registry.h"

int main(int argc, char** argv) {
  assetgen::Context ctx;
  std::string only;
  for (int i = 1; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--assets")) ctx.assetsDir = argv[i + 1];
    else if (!std::strcmp(argv[i], "--out")) ctx.outDir = argv[i + 1];
    else if (!std::strcmp(argv[i], "--only")) only = argv[i + 1];
    else { std::fprintf(stderr, "assetgen: unknown option %s\n", argv[i]); return 2; }
  }
  if (ctx.assetsDir.empty() || ctx.outDir.empty()) {
    std::fprintf(stderr, "usage: assetgen --assets DIR --out DIR [--only SUBSTRING]\n");
    return 2;
  }
  try {
    auto entries = assetgen::ReadManifest(ctx.assetsDir + "/files");
    std::set<std::string> seen;
    for (const auto& e : entries) {
      if (!seen.insert(e.path).second) assetgen::Fail(e, "listed twice");
      if (!assetgen::Generators().count(e.generator)) assetgen::Fail(e, "no generator named " + e.generator);
    }
    int made = 0;
    for (const auto& e : entries) {
      if (!only.empty() && e.path.find(only) == std::string::npos && e.generator.find(only) == std::string::npos)
        continue;
      auto t0 = std::chrono::steady_clock::now();
      assetgen::Generators()[e.generator](ctx, e);
      double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
      if (ms > 2000) std::fprintf(stderr, "assetgen: %s took %.0f ms\n", e.path.c_str(), ms);
      ++made;
    }
    // Whole-set products (contact sheet, listings) run after every file exists.
    if (only.empty() && assetgen::Generators().count("@after")) {
      assetgen::Entry all;
      all.generator = "@after";
      assetgen::Generators()["@after"](ctx, all);
    }
    std::fprintf(stderr, "assetgen: %d files written to %s\n", made, ctx.outDir.c_str());
  } catch (const std::exception& ex) {
    std::fprintf(stderr, "assetgen: %s\n", ex.what());
    return 1;
  }
  return 0;
}

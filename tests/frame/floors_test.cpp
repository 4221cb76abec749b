// The floors: no file includes a header of a higher floor. The check runs on
// the real tree, and on a small planted tree to prove it can fail.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/run_game.h"

namespace fs = std::filesystem;

namespace {

struct CheckResult {
  int status = -1;
  std::string output;
};

CheckResult RunCheck(const std::string& root) {
  std::string command = std::string("bash ") + VORREL_SOURCE_DIR + "/scripts/check-floors.sh " + root + " 2>&1";
  CheckResult result;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return result;
  char buffer[512];
  while (fgets(buffer, sizeof buffer, pipe)) result.output += buffer;
  int status = pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

void Write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path) << text;
}

}  // namespace

TEST(Floors, NoIncludeReachesUpAndAPlantedOneIsNamed) {
  CheckResult tree = RunCheck(VORREL_SOURCE_DIR);
  EXPECT_EQ(tree.status, 0) << tree.output;

  fs::path root = testsupport::ScratchDir("floors");
  Write(root / "core/a.h", "#pragma once\n");
  Write(root / "automation/b.cpp", "#include \"core/a.h\"\n#include \"game/c.h\"\n");
  Write(root / "display/d.cpp", "#include \"core/a.h\"\n#include \"platform/e.h\"\n");
  CheckResult clean = RunCheck(root);
  EXPECT_EQ(clean.status, 0) << clean.output;

  Write(root / "display/d.cpp", "#include \"core/a.h\"\n\n#include \"frontend/f.h\"\n");
  Write(root / "tools/g.cpp", "#include \"display/surface.h\"\n");
  CheckResult planted = RunCheck(root);
  EXPECT_EQ(planted.status, 1);
  EXPECT_NE(planted.output.find("display/d.cpp:3: display/ includes frontend/"), std::string::npos) << planted.output;
  EXPECT_NE(planted.output.find("tools/g.cpp:1: tools/ includes display/"), std::string::npos) << planted.output;
}

#include "tests/support/run_game.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace testsupport {

std::string TestData() {
  std::string d = VORREL_TEST_DATA;
  return fs::is_directory(d + "/graphics") ? d : "";
}

std::string ScratchDir(const std::string& name) {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  fs::path p = fs::temp_directory_path() / ("vorrel-tests-" + std::to_string(getpid())) /
               (std::string(info ? info->name() : "x") + "-" + name);
  fs::remove_all(p);
  fs::create_directories(p);
  return p.string();
}

std::string ReadFile(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream f(path, std::ios::binary);
  f << text;
}

namespace {
std::string Quote(const std::string& s) {
  std::string q = "'";
  for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}
}  // namespace

GameRun RunGame(const std::string& dir, const std::string& script, const std::vector<std::string>& args,
                const std::string& data) {
  GameRun run;
  std::string scriptPath = dir + "/script.txt", dumpPath = dir + "/dump.json", errPath = dir + "/stderr.txt";
  WriteFile(scriptPath, script);
  fs::create_directories(dir + "/home");
  std::string cmd = Quote(VORREL_BINARY) + " --headless --seed 1 --data " + Quote(data.empty() ? TestData() : data) +
                    " --home " + Quote(dir + "/home") + " --script " + Quote(scriptPath) + " --dump " + Quote(dumpPath) +
                    " --max-frames " + std::to_string(kMaxFrames);
  for (const auto& a : args) cmd += " " + Quote(a);
  cmd += " 2>" + Quote(errPath) + " >/dev/null";
  int rc = std::system(cmd.c_str());
  run.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
  run.stderrText = ReadFile(errPath);
  if (fs::exists(dumpPath)) run.dumpText = ReadFile(dumpPath);
  return run;
}

GameRun RunVorrel(const std::string& dir, const std::vector<std::string>& args) {
  GameRun run;
  std::string outPath = dir + "/stdout.txt", errPath = dir + "/stderr.txt";
  std::string cmd = Quote(VORREL_BINARY);
  for (const auto& a : args) cmd += " " + Quote(a);
  cmd += " 2>" + Quote(errPath) + " >" + Quote(outPath);
  int rc = std::system(cmd.c_str());
  run.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
  run.stderrText = ReadFile(errPath);
  run.dumpText = ReadFile(outPath);
  return run;
}

std::string DumpValue(const std::string& dump, const std::string& key) {
  std::string needle = "\"" + key + "\":";
  size_t at = dump.find(needle);
  if (at == std::string::npos) return "";
  at += needle.size();
  while (at < dump.size() && dump[at] == ' ') ++at;
  size_t end = at;
  if (at < dump.size() && dump[at] == '"') {
    end = dump.find('"', at + 1);
    return dump.substr(at + 1, end - at - 1);
  }
  while (end < dump.size() && dump[end] != ',' && dump[end] != '}' && dump[end] != '\n') ++end;
  return dump.substr(at, end - at);
}

}  // namespace testsupport

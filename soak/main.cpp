// vorrel_soak: the long run as a command.
//   vorrel_soak [--frames N] [--seed N] [--data DIR] [--home DIR] [--run-frames N] [--errors FILE] [--games 1]
// Prints the coverage; exit 1 when a run did not end cleanly.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "soak/soak.h"

int main(int argc, char** argv) {
  soak::Options o;
  o.frames = 200000;
  o.data = VORREL_SOAK_DATA;
  o.home = (std::filesystem::temp_directory_path() / ("vorrel-soak-" + std::to_string(getpid()))).string();
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string name = argv[i], value = argv[i + 1];
    if (name == "--frames") o.frames = std::strtoull(value.c_str(), nullptr, 10);
    else if (name == "--seed") o.seed = static_cast<uint32_t>(std::strtoul(value.c_str(), nullptr, 10));
    else if (name == "--data") o.data = value;
    else if (name == "--home") o.home = value;
    else if (name == "--run-frames") o.runFrames = std::strtoull(value.c_str(), nullptr, 10);
    else if (name == "--errors") o.errorLog = value;
    else if (name == "--games") o.gameLog = value == "1";
    else {
      std::fprintf(stderr, "vorrel_soak: unknown option %s\n", name.c_str());
      return 2;
    }
  }
  if ((argc - 1) % 2 != 0) {
    std::fprintf(stderr, "usage: vorrel_soak [--frames N] [--seed N] [--data DIR] [--home DIR] [--run-frames N] [--errors FILE] [--games 1]\n");
    return 2;
  }
  std::printf("soak: %llu frames, seed %u, home %s\n", static_cast<unsigned long long>(o.frames), o.seed, o.home.c_str());
  std::fflush(stdout);
  const auto start = std::chrono::steady_clock::now();
  const soak::Counts c = soak::Run(o);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("%s", soak::Describe(c).c_str());
  std::printf("peak resident size of a run %ld KiB\n", c.peakRssKiB);
  if (c.runs == 1 && c.rssLastQuarterKiB > 0)
    std::printf("resident size at the end of the first quarter %ld KiB, of the last %ld KiB\n", c.rssFirstQuarterKiB,
                c.rssLastQuarterKiB);
  std::printf("time %.1f s (%.0f frames/s)\n", seconds, seconds > 0 ? c.frames / seconds : 0.0);
  return c.runs > 0 && c.cleanRuns == c.runs ? 0 : 1;
}

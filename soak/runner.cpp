// Program run after program run, each in a process of its own, as a player
// starts the game again: the same home folder, a new seed, the player's
// counts in memory the runs share.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "frame/program.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "soak/dice.h"
#include "soak/player.h"
#include "soak/soak.h"
#include "soak/steering.h"

namespace soak {

namespace {

// One program run in a child process; its exit status, or 128 + the signal.
int RunProgramOnce(Counts& shared, const Options& o, uint64_t seed, uint64_t frames, std::set<std::string>& seen,
                   long& peakKiB) {
  std::fflush(nullptr);
  const pid_t pid = fork();
  if (pid < 0) {
    std::perror("soak: fork");
    return 255;
  }
  if (pid == 0) {
    if (!o.errorLog.empty()) {
      const int fd = open(o.errorLog.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
      if (fd >= 0) dup2(fd, 2);
    }
    // A process that ran anything before starts its program as a new one would.
    platform::ClearQuitRequest();
    platform::ResetClock();
    Steer(shared, seed, shared.frames, o.frames, o.home, seen, o.gameLog);
    const std::string seedText = std::to_string(static_cast<uint32_t>(seed));
    const std::string framesText = std::to_string(frames);
    std::vector<std::string> args = {"vorrel", "--headless", "--seed",       seedText,  "--data",
                                     o.data,   "--home",     o.home,         "--max-frames", framesText};
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    const int status = frame::RunProgram(static_cast<int>(args.size()), argv.data());
    EndSteering();
    std::fflush(nullptr);
    std::exit(status);  // exit, not _exit: the leak check runs at exit
  }
  int status = 0;
  struct rusage usage {};
  while (wait4(pid, &status, 0, &usage) < 0) {
    if (errno != EINTR) {
      std::perror("soak: wait");
      return 255;
    }
  }
  if (usage.ru_maxrss > peakKiB) peakKiB = usage.ru_maxrss;
  ScanReplays(o.home, seen);  // the child counted them; this only remembers them
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : 255;
}

}  // namespace

Counts Run(const Options& o) {
  std::error_code ec;
  std::filesystem::create_directories(o.home, ec);
  void* memory = mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) {
    std::perror("soak: mmap");
    return Counts{};
  }
  Counts* shared = new (memory) Counts{};
  Dice runs(o.seed);
  std::set<std::string> seen;
  ScanReplays(o.home, seen);
  long peakKiB = 0;
  while (shared->frames < o.frames) {
    const uint64_t left = o.frames - shared->frames;
    uint64_t length = o.runFrames;
    if (length == 0) {
      const uint64_t spread = std::min<uint64_t>(std::max<uint64_t>(o.frames / 3, 1), 40000);
      length = 2000 + runs.Next() % spread;
    }
    if (length > left) length = left;
    const uint64_t seed = runs.Next() & 0xFFFFFFFFu;
    const uint64_t before = shared->frames;
    ++shared->runs;
    const int status = RunProgramOnce(*shared, o, seed, length, seen, peakKiB);
    if (status == 0) {
      ++shared->cleanRuns;
    } else {
      shared->lastStatus = status;
      std::fprintf(stderr, "soak: run %d (seed %llu, %llu frames) ended with status %d after %llu frames\n",
                   shared->runs, static_cast<unsigned long long>(seed), static_cast<unsigned long long>(length),
                   status, static_cast<unsigned long long>(shared->frames - before));
    }
    // A run that presents nothing would never end the soak.
    if (shared->frames == before) break;
  }
  shared->peakRssKiB = peakKiB;
  CheckReplays(o, *shared);
  Counts result = *shared;
  munmap(memory, sizeof(Counts));
  return result;
}

std::string Describe(const Counts& c) {
  std::ostringstream out;
  static const char* const kVariants[3] = {"Classic", "Bonus", "Wickory"};
  out << "frames " << c.frames << " in " << c.runs << " program runs (" << c.cleanRuns << " ended cleanly";
  if (c.cleanRuns != c.runs) out << ", last failure status " << c.lastStatus;
  out << ")\n";
  out << "games";
  for (int v = 0; v < 3; ++v) {
    if (v == 2) {
      out << "  " << kVariants[v] << " " << c.games[2][0];
      continue;
    }
    for (int t = 0; t < 3; ++t) out << "  " << kVariants[v] << " " << static_cast<char>('A' + t) << " " << c.games[v][t];
  }
  out << "\n";
  out << "game overs " << c.gameOvers << ", pauses " << c.pauses << "\n";
  out << "bonus effects";
  for (int e = 0; e < kEffectKinds; ++e) out << "  " << EffectName(e) << " " << c.effects[e];
  out << "\n";
  out << "detonations  Type C " << c.typeCDetonations << "  Wickory " << c.wickoryDetonations << "\n";
  out << "high scores  name entries " << c.nameEntries << "  stored " << c.highScores << "  replays written "
      << c.replaysWritten << "  kept " << c.replaysWatched << "  replayed to their result " << c.replaysMatched << "\n";
  return out.str();
}

}  // namespace soak

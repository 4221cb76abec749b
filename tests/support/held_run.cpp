#include "tests/support/held_run.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/run_game.h"

namespace fs = std::filesystem;

namespace testsupport {

std::string HeldPath(const std::string& dir) { return dir + "/held.json"; }

HeldRun RunHeld(const std::string& dir, const std::string& script, const std::vector<std::string>& args,
                const std::vector<std::string>& env, const std::function<void(pid_t)>& whileHeld) {
  WriteFile(dir + "/script.txt", script);
  fs::create_directories(dir + "/home");
  std::vector<std::string> argv = {VORREL_BINARY, "--seed", "1", "--data", TestData(), "--home", dir + "/home",
                                   "--script", dir + "/script.txt", "--dump", dir + "/dump.json", "--max-frames",
                                   std::to_string(kMaxFrames)};
  argv.insert(argv.end(), args.begin(), args.end());
  int started[2];
  if (pipe2(started, O_CLOEXEC) != 0) return ADD_FAILURE() << "pipe2", HeldRun{};
  pid_t pid = fork();
  if (pid == 0) {
    // The dump goes to NAME.tmpPID first and is renamed: that name is the pipe.
    mkfifo((HeldPath(dir) + ".tmp" + std::to_string(getpid())).c_str(), 0600);
    int err = open((dir + "/stderr.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(err, 2);
    for (const std::string& e : env) putenv(strdup(e.c_str()));
    std::vector<char*> v;
    for (auto& a : argv) v.push_back(a.data());
    v.push_back(nullptr);
    execv(v[0], v.data());
    _exit(127);
  }
  close(started[1]);
  char c;
  while (read(started[0], &c, 1) < 0 && errno == EINTR) {
  }  // end of file once the child runs the game: the pipe exists
  close(started[0]);

  HeldRun run;
  int fd = open((HeldPath(dir) + ".tmp" + std::to_string(pid)).c_str(), O_RDONLY | O_NONBLOCK);
  // Smaller than any dump, so the game waits in its write until we read.
  fcntl(fd, F_SETPIPE_SZ, 4096);
  int status = 0;
  bool gone = false;
  // Bounded waits, so a game that never gets there fails the test instead of hanging it.
  for (int i = 0; i < 3000 && !gone && !run.held; ++i) {
    pollfd p{fd, POLLIN, 0};
    run.held = poll(&p, 1, 100) > 0 && (p.revents & POLLIN);
    if (!run.held) gone = waitpid(pid, &status, WNOHANG) == pid;
  }
  if (run.held && whileHeld) whileHeld(pid);
  fcntl(fd, F_SETFL, 0);
  char buf[4096];
  for (ssize_t n; (n = read(fd, buf, sizeof buf)) > 0 || (n < 0 && errno == EINTR);)
    if (n > 0) run.heldDump.append(buf, static_cast<size_t>(n));
  close(fd);
  for (int i = 0; i < 3000 && !gone; ++i) {
    gone = waitpid(pid, &status, WNOHANG) == pid;
    if (!gone) usleep(100000);
  }
  if (!gone) {
    kill(pid, SIGKILL);
    waitpid(pid, &status, 0);
    ADD_FAILURE() << "the game did not end";
  }
  run.exited = WIFEXITED(status);
  run.status = run.exited ? WEXITSTATUS(status) : -1;
  run.stderrText = ReadFile(dir + "/stderr.txt");
  if (fs::exists(dir + "/dump.json")) run.dumpText = ReadFile(dir + "/dump.json");
  return run;
}

}  // namespace testsupport

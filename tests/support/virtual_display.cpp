#include "tests/support/virtual_display.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "tests/support/run_game.h"

namespace testsupport {

std::string FindInPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::string dirs = path ? path : "/usr/bin:/bin";
  size_t start = 0;
  while (start <= dirs.size()) {
    size_t end = dirs.find(':', start);
    if (end == std::string::npos) end = dirs.size();
    std::string candidate = dirs.substr(start, end - start) + "/" + name;
    if (access(candidate.c_str(), X_OK) == 0) return candidate;
    start = end + 1;
  }
  return "";
}

bool VirtualDisplay::Start(const std::string& xvfb, const std::string& dir, std::string& error) {
  int fds[2];
  if (pipe(fds) != 0) return error = "pipe failed", false;
  const std::string log = dir + "/xvfb.log";
  pid_ = fork();
  if (pid_ == 0) {
    int out = open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (out >= 0) dup2(out, 1), dup2(out, 2);
    int null = open("/dev/null", O_RDONLY);
    if (null >= 0) dup2(null, 0);
    for (int fd = 3; fd < 1024; ++fd)
      if (fd != fds[1]) close(fd);
    std::string displayFd = std::to_string(fds[1]);
    std::vector<const char*> argv = {xvfb.c_str(), "-displayfd", displayFd.c_str(), "-screen", "0",
                                     "1280x1024x24", "-nolisten", "tcp", nullptr};
    execv(argv[0], const_cast<char**>(argv.data()));
    _exit(127);
  }
  close(fds[1]);
  std::string number;
  pollfd p{fds[0], POLLIN, 0};
  char c;
  while (poll(&p, 1, 30000) > 0 && read(fds[0], &c, 1) == 1 && c != '\n') number += c;
  close(fds[0]);
  if (number.empty()) return error = "Xvfb did not report a display: " + ReadFile(log), false;
  display_ = ":" + number;
  return true;
}

VirtualDisplay::~VirtualDisplay() {
  if (pid_ <= 0) return;
  kill(pid_, SIGTERM);
  for (int i = 0; i < 100; ++i) {
    if (waitpid(pid_, nullptr, WNOHANG) == pid_) return;
    usleep(100000);
  }
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
}

}  // namespace testsupport

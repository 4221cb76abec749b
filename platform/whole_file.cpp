#include "platform/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace platform {

bool WriteWholeFile(const std::string& path, const std::string& text, std::string& why,
                    const std::function<bool(const char* step)>& fault) {
  auto faultAt = [&](const char* step) {
    if (!fault || !fault(step)) return false;
    why = std::string(step) + ": fault point";
    return true;
  };
  why.clear();
  const std::string tmp = path + ".tmp";
  int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) {
    why = "cannot create " + std::filesystem::path(tmp).filename().string() + ": " + std::strerror(errno);
    return false;
  }
  if (!faultAt("write")) {
    size_t done = 0;
    while (done < text.size()) {
      ssize_t n = ::write(fd, text.data() + done, text.size() - done);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) {
        why = std::string("write: ") + std::strerror(n < 0 ? errno : ENOSPC);
        break;
      }
      done += static_cast<size_t>(n);
    }
  }
  if (why.empty() && !faultAt("sync") && ::fsync(fd) != 0) why = std::string("sync: ") + std::strerror(errno);
  if (::close(fd) != 0 && why.empty()) why = std::string("close: ") + std::strerror(errno);
  if (why.empty() && !faultAt("rename") && ::rename(tmp.c_str(), path.c_str()) != 0)
    why = std::string("rename: ") + std::strerror(errno);
  if (!why.empty()) {
    ::unlink(tmp.c_str());
    return false;
  }
  int dir = ::open(std::filesystem::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return true;
}

}  // namespace platform

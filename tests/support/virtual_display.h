// A virtual X server (Xvfb) for the tests that need a real window. It takes
// a display number of its own choosing, so parallel tests never race for one.
#pragma once
#include <sys/types.h>

#include <string>

namespace testsupport {

// The program's path in PATH, or "" when it is not installed.
std::string FindInPath(const std::string& name);

class VirtualDisplay {
 public:
  VirtualDisplay() = default;
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  // Starts Xvfb with its log in dir; false with the reason otherwise.
  bool Start(const std::string& xvfb, const std::string& dir, std::string& error);
  ~VirtualDisplay();
  const std::string& Name() const { return display_; }

 private:
  pid_t pid_ = -1;
  std::string display_;
};

}  // namespace testsupport

// How failures travel: a failing platform call or a run-time fault throws
// GameFault, which the main driver's catch-all turns into the error box and an
// orderly exit. The orderly quit throws OrderlyQuit from the pass that sees it.
#pragma once
#include <stdexcept>
#include <string>

namespace core {

struct GameFault : std::runtime_error {
  // what: the failing file or call, as it goes to stderr after the box.
  explicit GameFault(const std::string& what) : std::runtime_error(what) {}
};

struct OrderlyQuit {};

// Bad usage or a bad script line: exit status 2 with the message.
struct UsageError : std::runtime_error {
  explicit UsageError(const std::string& what) : std::runtime_error(what) {}
};

[[noreturn]] inline void Fail(const std::string& what) { throw GameFault(what); }

}  // namespace core

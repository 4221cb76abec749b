#include "core/table.h"

#include <string>

namespace core {

[[noreturn]] void TableIndexFault(const char* table, long long index, long long lo, long long hi) {
  throw GameFault(std::string("index ") + std::to_string(index) + " outside " + table + " (" + std::to_string(lo) +
                  ".." + std::to_string(hi) + ")");
}

}  // namespace core

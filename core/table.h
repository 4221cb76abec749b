// The program's fixed tables. Indexing outside one is a run-time fault that
// rises to the catch-all, as any other failure does.
#pragma once
#include <array>
#include <cstddef>
#include <string>

#include "core/errors.h"

namespace core {

[[noreturn]] void TableIndexFault(const char* table, long long index, long long lo, long long hi);

// Elements Lo..Hi inclusive (most tables start at 0, a few at 1).
template <class T, long long Lo, long long Hi>
class Table {
 public:
  static constexpr long long kLow = Lo;
  static constexpr long long kHigh = Hi;
  static constexpr size_t kSize = static_cast<size_t>(Hi - Lo + 1);

  template <class I>
  T& operator[](I i) { return data_[Check(static_cast<long long>(i))]; }
  template <class I>
  const T& operator[](I i) const { return data_[Check(static_cast<long long>(i))]; }

  void Fill(const T& v) { data_.fill(v); }
  T* begin() { return data_.data(); }
  T* end() { return data_.data() + kSize; }
  const T* begin() const { return data_.data(); }
  const T* end() const { return data_.data() + kSize; }

  const char* name = "table";

 private:
  size_t Check(long long i) const {
    if (i < Lo || i > Hi) TableIndexFault(name, i, Lo, Hi);
    return static_cast<size_t>(i - Lo);
  }
  std::array<T, kSize> data_{};
};

}  // namespace core

// The registry of program variables: what a script's `set` can reach and what
// a dump shows. Each subsystem exposes its own state at start-up:
//
//   vars::Expose("DropDelay", DropDelay);       // numbers, bools, strings,
//   vars::Expose("HighScores", HighScores);     // tables of them, records...
//
// A record (a struct shown as an array in field order) names its fields once,
// at namespace scope outside any namespace:
//
//   VARS_RECORD(game::Spark, &game::Spark::X, &game::Spark::Y, &game::Spark::Life);
//
// or from inside the struct: static constexpr auto VarFields() { return std::tuple(&Spark::X, ...); }
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/table.h"

namespace core {
class JsonWriter;
}

namespace vars {

enum class Kind { Integer, Real, Boolean, Text, Array, Record };

// A value as a script writes it.
struct Literal {
  enum class Kind { Integer, Decimal, Boolean, Text };
  Kind kind = Kind::Integer;
  long long integer = 0;
  double decimal = 0;
  bool boolean = false;
  std::string text;
  std::string Describe() const;  // as written in the script
};

struct Ops;

// A view of one variable or one part of it.
class Ref {
 public:
  Ref() = default;
  Ref(const Ops* ops, void* ptr) : ops_(ops), ptr_(ptr) {}
  bool Valid() const { return ops_ != nullptr; }
  Kind GetKind() const;
  long long AsInteger() const;  // Integer and Boolean
  double AsReal() const;        // Integer, Real and Boolean
  const std::string& AsText() const;
  bool IsFloat() const;
  // Arrays: the index range; Element(i) needs Low() <= i <= High().
  long long Low() const;
  long long High() const;
  Ref Element(long long i) const;
  // Records: the fields in order.
  size_t FieldCount() const;
  Ref Field(size_t i) const;
  // Assigns when the literal is a value of the variable's type.
  bool Assign(const Literal& value) const;
  // "a whole number from -32768 to 32767", "true or false"...
  std::string TypeDescription() const;

 private:
  const Ops* ops_ = nullptr;
  void* ptr_ = nullptr;
};

struct Ops {
  Kind kind;
  bool isFloat = false;
  long long lo = 0, hi = 0;  // integers: their range
  long long (*getInt)(const void*) = nullptr;
  double (*getReal)(const void*) = nullptr;
  const std::string& (*getText)(const void*) = nullptr;
  bool (*assign)(void*, const Literal&) = nullptr;
  long long (*low)(const void*) = nullptr;
  long long (*high)(const void*) = nullptr;
  Ref (*element)(void*, long long) = nullptr;
  size_t fieldCount = 0;
  Ref (*field)(void*, size_t) = nullptr;
};

// Specialise (or use VARS_RECORD) to name a record's fields.
template <class T>
struct RecordFields;

#define VARS_RECORD(Type, ...)                                              \
  template <>                                                               \
  struct vars::RecordFields<Type> {                                         \
    static constexpr auto Get() { return std::make_tuple(__VA_ARGS__); }    \
  }

namespace detail {

template <class T>
struct IsTable : std::false_type {};
template <class E, long long Lo, long long Hi>
struct IsTable<core::Table<E, Lo, Hi>> : std::true_type {};

template <class T>
struct IsStdArray : std::false_type {};
template <class E, size_t N>
struct IsStdArray<std::array<E, N>> : std::true_type {};

template <class T>
struct IsVector : std::false_type {};
template <class E, class A>
struct IsVector<std::vector<E, A>> : std::true_type {};

template <class T>
concept HasRecordFields = requires { RecordFields<T>::Get(); };
template <class T>
concept HasVarFields = requires { T::VarFields(); };

template <class T>
constexpr auto FieldsOf() {
  if constexpr (HasRecordFields<T>) {
    return RecordFields<T>::Get();
  } else {
    return T::VarFields();
  }
}

template <class T>
const Ops& OpsFor();

template <class U>
Ref RefTo(U& x) {
  return Ref(&OpsFor<std::remove_cv_t<U>>(), const_cast<std::remove_cv_t<U>*>(&x));
}

template <class T, size_t... I>
Ref FieldAt(void* p, size_t i, std::index_sequence<I...>) {
  constexpr auto fields = FieldsOf<T>();
  T& record = *static_cast<T*>(p);
  Ref out;
  ((i == I ? (out = RefTo(record.*std::get<I>(fields)), 0) : 0), ...);
  return out;
}

template <class T>
Ops Build() {
  Ops o{};
  if constexpr (std::is_same_v<T, bool>) {
    o.kind = Kind::Boolean;
    o.getInt = [](const void* p) -> long long { return *static_cast<const bool*>(p) ? 1 : 0; };
    o.getReal = [](const void* p) -> double { return *static_cast<const bool*>(p) ? 1 : 0; };
    o.assign = [](void* p, const Literal& v) {
      if (v.kind != Literal::Kind::Boolean) return false;
      *static_cast<bool*>(p) = v.boolean;
      return true;
    };
  } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
    using I = typename std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>, std::type_identity<T>>::type;
    o.kind = Kind::Integer;
    o.lo = static_cast<long long>(std::numeric_limits<I>::min());
    o.hi = std::numeric_limits<I>::max() > static_cast<unsigned long long>(std::numeric_limits<long long>::max())
               ? std::numeric_limits<long long>::max()
               : static_cast<long long>(std::numeric_limits<I>::max());
    o.getInt = [](const void* p) -> long long { return static_cast<long long>(*static_cast<const T*>(p)); };
    o.getReal = [](const void* p) -> double { return static_cast<double>(*static_cast<const T*>(p)); };
    o.assign = [](void* p, const Literal& v) {
      const Ops& self = OpsFor<T>();
      if (v.kind != Literal::Kind::Integer || v.integer < self.lo || v.integer > self.hi) return false;
      *static_cast<T*>(p) = static_cast<T>(v.integer);
      return true;
    };
  } else if constexpr (std::is_floating_point_v<T>) {
    o.kind = Kind::Real;
    o.isFloat = std::is_same_v<T, float>;
    o.getInt = [](const void* p) -> long long { return static_cast<long long>(*static_cast<const T*>(p)); };
    o.getReal = [](const void* p) -> double { return static_cast<double>(*static_cast<const T*>(p)); };
    o.assign = [](void* p, const Literal& v) {
      if (v.kind == Literal::Kind::Integer) {
        *static_cast<T*>(p) = static_cast<T>(v.integer);
      } else if (v.kind == Literal::Kind::Decimal) {
        *static_cast<T*>(p) = static_cast<T>(v.decimal);
      } else {
        return false;
      }
      return true;
    };
  } else if constexpr (std::is_same_v<T, std::string>) {
    o.kind = Kind::Text;
    o.getText = [](const void* p) -> const std::string& { return *static_cast<const std::string*>(p); };
    o.assign = [](void* p, const Literal& v) {
      if (v.kind != Literal::Kind::Text) return false;
      *static_cast<std::string*>(p) = v.text;
      return true;
    };
  } else if constexpr (IsTable<T>::value) {
    o.kind = Kind::Array;
    o.low = [](const void*) { return T::kLow; };
    o.high = [](const void*) { return T::kHigh; };
    o.element = [](void* p, long long i) { return RefTo((*static_cast<T*>(p))[i]); };
  } else if constexpr (IsStdArray<T>::value || std::is_array_v<T>) {
    o.kind = Kind::Array;
    o.low = [](const void*) { return 0LL; };
    if constexpr (std::is_array_v<T>) {
      o.high = [](const void*) { return static_cast<long long>(std::extent_v<T>) - 1; };
    } else {
      o.high = [](const void*) { return static_cast<long long>(std::tuple_size_v<T>) - 1; };
    }
    o.element = [](void* p, long long i) { return RefTo((*static_cast<T*>(p))[static_cast<size_t>(i)]); };
  } else if constexpr (IsVector<T>::value) {
    o.kind = Kind::Array;
    o.low = [](const void*) { return 0LL; };
    o.high = [](const void* p) { return static_cast<long long>(static_cast<const T*>(p)->size()) - 1; };
    o.element = [](void* p, long long i) { return RefTo((*static_cast<T*>(p))[static_cast<size_t>(i)]); };
  } else if constexpr (HasRecordFields<T> || HasVarFields<T>) {
    constexpr size_t n = std::tuple_size_v<decltype(FieldsOf<T>())>;
    o.kind = Kind::Record;
    o.fieldCount = n;
    o.field = [](void* p, size_t i) { return FieldAt<T>(p, i, std::make_index_sequence<n>{}); };
  } else {
    static_assert(sizeof(T) == 0, "vars::Expose: a type the registry cannot show; name a record's fields with VARS_RECORD");
  }
  return o;
}

template <class T>
const Ops& OpsFor() {
  static const Ops ops = Build<T>();
  return ops;
}

}  // namespace detail

// Registers (or re-registers) a variable under its own name.
void ExposeRef(const std::string& name, Ref ref);
template <class T>
void Expose(const std::string& name, T& variable) {
  ExposeRef(name, detail::RefTo(variable));
}
void Withdraw(const std::string& name);
void WithdrawAll();

std::optional<Ref> Find(const std::string& name);
// Every variable, sorted by name.
std::vector<std::pair<std::string, Ref>> All();

// NAME[I]...[K] = value. False with a message when the name is unknown, an
// index is outside its table or the value is not of the variable's type.
bool Assign(const std::string& name, const std::vector<long long>& indexes, const Literal& value,
            std::string& error);

// As a dump shows it: tables as arrays keeping the game's indexes (null below
// the first), records as arrays in field order.
void WriteJson(core::JsonWriter& out, Ref ref);

}  // namespace vars

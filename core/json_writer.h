// A small JSON writer for the dumps: keys in the order written, numbers in
// their shortest exact form, one top-level key per line so dumps diff well.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace core {

class JsonWriter {
 public:
  void BeginObject();
  void EndObject();
  void BeginArray();
  void EndArray();
  void Key(std::string_view key);
  void Int(long long v);
  void Real(double v);  // NaN and infinities have no JSON form: null
  void Float(float v);  // shortest form of the float, not of its double
  void Bool(bool v);
  void String(std::string_view v);
  void Null();
  // Inserts an already-written JSON value.
  void Raw(std::string_view json);

  const std::string& Text() const { return out_; }

 private:
  void BeforeValue();
  std::string out_;
  // Per open container: true once it holds an element.
  std::vector<bool> filled_;
  bool afterKey_ = false;
};

// A JSON string literal, quotes included.
std::string JsonQuote(std::string_view text);

}  // namespace core

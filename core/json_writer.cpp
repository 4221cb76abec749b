#include "core/json_writer.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace core {

std::string JsonQuote(std::string_view text) {
  std::string out = "\"";
  for (char ch : text) {
    unsigned char c = static_cast<unsigned char>(ch);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out += ch;
        }
    }
  }
  out += '"';
  return out;
}

void JsonWriter::BeforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (!filled_.empty()) {
    if (filled_.back()) out_ += ',';
    filled_.back() = true;
  }
}

void JsonWriter::BeginObject() {
  BeforeValue();
  out_ += '{';
  filled_.push_back(false);
}

void JsonWriter::EndObject() {
  bool wasFilled = filled_.back();
  filled_.pop_back();
  if (filled_.empty() && wasFilled) out_ += '\n';
  out_ += '}';
  if (filled_.empty()) out_ += '\n';
}

void JsonWriter::BeginArray() {
  BeforeValue();
  out_ += '[';
  filled_.push_back(false);
}

void JsonWriter::EndArray() {
  filled_.pop_back();
  out_ += ']';
}

void JsonWriter::Key(std::string_view key) {
  BeforeValue();
  if (filled_.size() == 1) out_ += "\n  ";  // the dump's own keys, one a line
  out_ += JsonQuote(key);
  out_ += ':';
  afterKey_ = true;
}

void JsonWriter::Int(long long v) {
  BeforeValue();
  out_ += std::to_string(v);
}

namespace {
// Shortest text that reads back as the same value; non-finite values are null.
template <class T>
void AppendNumber(std::string& out, T v) {
  if (!std::isfinite(v)) {
    out += "null";
    return;
  }
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  out.append(buf, res.ptr);
}
}  // namespace

void JsonWriter::Real(double v) {
  BeforeValue();
  AppendNumber(out_, v);
}

void JsonWriter::Float(float v) {
  BeforeValue();
  AppendNumber(out_, v);
}

void JsonWriter::Bool(bool v) {
  BeforeValue();
  out_ += v ? "true" : "false";
}

void JsonWriter::String(std::string_view v) {
  BeforeValue();
  out_ += JsonQuote(v);
}

void JsonWriter::Null() {
  BeforeValue();
  out_ += "null";
}

void JsonWriter::Raw(std::string_view json) {
  BeforeValue();
  out_ += json;
}

}  // namespace core

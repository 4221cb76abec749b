#include "core/variables.h"

#include <map>

#include "core/json_writer.h"

namespace vars {
namespace {

std::map<std::string, Ref>& Registry() {
  static std::map<std::string, Ref> registry;
  return registry;
}

std::string IndexText(const std::string& name, const std::vector<long long>& indexes, size_t count) {
  std::string out = name;
  for (size_t i = 0; i < count; ++i) out += "[" + std::to_string(indexes[i]) + "]";
  return out;
}

}  // namespace

std::string Literal::Describe() const {
  switch (kind) {
    case Kind::Integer: return std::to_string(integer);
    case Kind::Decimal: {
      core::JsonWriter w;
      w.Real(decimal);
      return w.Text();
    }
    case Kind::Boolean: return boolean ? "true" : "false";
    case Kind::Text: return core::JsonQuote(text);
  }
  return "";
}

Kind Ref::GetKind() const { return ops_->kind; }
long long Ref::AsInteger() const { return ops_->getInt ? ops_->getInt(ptr_) : 0; }
double Ref::AsReal() const { return ops_->getReal ? ops_->getReal(ptr_) : 0; }
const std::string& Ref::AsText() const {
  static const std::string empty;
  return ops_->getText ? ops_->getText(ptr_) : empty;
}
bool Ref::IsFloat() const { return ops_->isFloat; }
long long Ref::Low() const { return ops_->low ? ops_->low(ptr_) : 0; }
long long Ref::High() const { return ops_->high ? ops_->high(ptr_) : -1; }
Ref Ref::Element(long long i) const { return ops_->element(ptr_, i); }
size_t Ref::FieldCount() const { return ops_->fieldCount; }
Ref Ref::Field(size_t i) const { return ops_->field(ptr_, i); }
bool Ref::Assign(const Literal& value) const { return ops_->assign && ops_->assign(ptr_, value); }

std::string Ref::TypeDescription() const {
  switch (ops_->kind) {
    case Kind::Integer:
      return "a whole number from " + std::to_string(ops_->lo) + " to " + std::to_string(ops_->hi);
    case Kind::Real: return "a number";
    case Kind::Boolean: return "true or false";
    case Kind::Text: return "a double-quoted string";
    case Kind::Array: return "a table";
    case Kind::Record: return "a record";
  }
  return "";
}

void ExposeRef(const std::string& name, Ref ref) { Registry()[name] = ref; }
void Withdraw(const std::string& name) { Registry().erase(name); }
void WithdrawAll() { Registry().clear(); }

std::optional<Ref> Find(const std::string& name) {
  auto it = Registry().find(name);
  if (it == Registry().end()) return std::nullopt;
  return it->second;
}

std::vector<std::pair<std::string, Ref>> All() { return {Registry().begin(), Registry().end()}; }

bool Assign(const std::string& name, const std::vector<long long>& indexes, const Literal& value,
            std::string& error) {
  std::optional<Ref> found = Find(name);
  if (!found) {
    error = "no variable is called " + name;
    return false;
  }
  Ref ref = *found;
  for (size_t k = 0; k < indexes.size(); ++k) {
    long long i = indexes[k];
    if (ref.GetKind() == Kind::Array) {
      if (i < ref.Low() || i > ref.High()) {
        error = "index " + std::to_string(i) + " is outside " + IndexText(name, indexes, k) + ", which runs " +
                std::to_string(ref.Low()) + ".." + std::to_string(ref.High());
        return false;
      }
      ref = ref.Element(i);
    } else if (ref.GetKind() == Kind::Record) {
      if (i < 0 || i >= static_cast<long long>(ref.FieldCount())) {
        error = "index " + std::to_string(i) + " is outside the record " + IndexText(name, indexes, k) +
                ", whose fields run 0.." + std::to_string(ref.FieldCount() - 1);
        return false;
      }
      ref = ref.Field(static_cast<size_t>(i));
    } else {
      error = IndexText(name, indexes, k) + " is not a table";
      return false;
    }
  }
  if (ref.GetKind() == Kind::Array || ref.GetKind() == Kind::Record) {
    error = IndexText(name, indexes, indexes.size()) + " is a " +
            (ref.GetKind() == Kind::Array ? "table" : "record") + ": give an index";
    return false;
  }
  if (!ref.Assign(value)) {
    error = IndexText(name, indexes, indexes.size()) + " takes " + ref.TypeDescription() + ", not " +
            value.Describe();
    return false;
  }
  return true;
}

void WriteJson(core::JsonWriter& out, Ref ref) {
  switch (ref.GetKind()) {
    case Kind::Integer: out.Int(ref.AsInteger()); break;
    case Kind::Real:
      if (ref.IsFloat()) {
        out.Float(static_cast<float>(ref.AsReal()));
      } else {
        out.Real(ref.AsReal());
      }
      break;
    case Kind::Boolean: out.Bool(ref.AsInteger() != 0); break;
    case Kind::Text: out.String(ref.AsText()); break;
    case Kind::Array: {
      out.BeginArray();
      // The game's own indexes: a table from 1 shows null at 0.
      for (long long i = 0; i < ref.Low(); ++i) out.Null();
      for (long long i = ref.Low(); i <= ref.High(); ++i) WriteJson(out, ref.Element(i));
      out.EndArray();
      break;
    }
    case Kind::Record: {
      out.BeginArray();
      for (size_t i = 0; i < ref.FieldCount(); ++i) WriteJson(out, ref.Field(i));
      out.EndArray();
      break;
    }
  }
}

}  // namespace vars

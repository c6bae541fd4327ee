#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/uuid.h"
#include "storage/json_value.h"

namespace rondora {

/// Thrown during decoding; never leaves the decoder.
struct DecodingError {
  std::string description;
};

/// One value of a document with its path, which error descriptions name. The reader of the enclosing value must outlive
/// it.
class JsonReader {
 public:
  explicit JsonReader(const JsonValue& root) : value_(root) {}
  JsonReader(const JsonReader& parent, std::string_view key, const JsonValue& value)
      : value_(value), parent_(&parent), key_(key) {}
  JsonReader(const JsonReader& parent, std::size_t index, const JsonValue& value)
      : value_(value), parent_(&parent), index_(index) {}
  JsonReader(const JsonReader&) = delete;
  JsonReader& operator=(const JsonReader&) = delete;

  // Each throws DecodingError when the value is of another type.
  bool boolean() const;
  double number() const;
  /// Also accepts an integral number in another notation, within 64 bits.
  std::int64_t integer() const;
  const std::string& string() const;
  Uuid uuid() const;
  /// The text as a case of an enumeration, by `find`(text).
  template <class Find>
  auto enumerator(Find find) const {
    if (const auto found = find(string())) return *found;
    fail("unknown value");
  }

  /// The object has the key; its value may be null.
  bool has(std::string_view key) const { return object().member(key) != nullptr; }
  /// A required member.
  JsonReader at(std::string_view key) const;
  JsonReader element(std::size_t index) const { return {*this, index, array().at(index)}; }

  /// `decode`(reader) of the member; nothing when it is missing or null.
  template <class Decode>
  auto optional(std::string_view key, Decode decode) const {
    using Result = std::optional<std::decay_t<std::invoke_result_t<Decode, const JsonReader&>>>;
    const JsonValue* found = object().member(key);
    if (found == nullptr || std::holds_alternative<std::monostate>(found->content)) return Result();
    return Result(std::invoke(decode, JsonReader(*this, key, *found)));
  }
  /// `decode`(reader) of the member, or `fallback`.
  template <class T, class Decode>
  T value(std::string_view key, Decode decode, T fallback) const {
    return optional(key, decode).value_or(std::move(fallback));
  }

  /// Calls `visit`(reader) for each element in order.
  template <class Visit>
  void forEach(Visit visit) const {
    const JsonValue::Array& elements = array();
    for (std::size_t i = 0; i < elements.size(); ++i) visit(JsonReader(*this, i, elements[i]));
  }
  template <class Decode>
  auto elements(Decode decode) const {
    std::vector<std::decay_t<std::invoke_result_t<Decode, const JsonReader&>>> result;
    forEach([&](const JsonReader& element) { result.push_back(std::invoke(decode, element)); });
    return result;
  }
  /// Skips elements that cannot be decoded.
  template <class Decode>
  auto goodElements(Decode decode) const {
    std::vector<std::decay_t<std::invoke_result_t<Decode, const JsonReader&>>> result;
    forEach([&](const JsonReader& element) {
      try {
        result.push_back(std::invoke(decode, element));
      } catch (const DecodingError&) {  // skipped
      }
    });
    return result;
  }

  [[noreturn]] void fail(std::string_view problem) const;

 private:
  const JsonValue& object() const;
  const JsonValue::Array& array() const;
  std::string path() const;

  const JsonValue& value_;
  const JsonReader* parent_ = nullptr;
  std::string_view key_;
  std::size_t index_ = 0;
};

}  // namespace rondora

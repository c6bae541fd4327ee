#include "storage/json_reader.h"

#include <cmath>

namespace rondora {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

/// The parser passes integers beyond 64 bits as doubles; -2^63 - 1 rounds to -2^63, so that value is excluded too.
std::optional<std::int64_t> exactInteger(double number) {
  if (number <= -kTwoTo63 || number >= kTwoTo63 || std::trunc(number) != number) return std::nullopt;
  return static_cast<std::int64_t>(number);
}

}  // namespace

bool JsonReader::boolean() const {
  if (const bool* value = std::get_if<bool>(&value_.content)) return *value;
  fail("expected a Boolean");
}

double JsonReader::number() const {
  if (const auto* value = std::get_if<double>(&value_.content)) return *value;
  if (const auto* value = std::get_if<std::int64_t>(&value_.content)) return static_cast<double>(*value);
  if (const auto* value = std::get_if<std::uint64_t>(&value_.content)) return static_cast<double>(*value);
  fail("expected a number");
}

std::int64_t JsonReader::integer() const {
  if (const auto* value = std::get_if<std::int64_t>(&value_.content)) return *value;
  if (const auto* value = std::get_if<std::uint64_t>(&value_.content); value != nullptr && *value <= INT64_MAX) {
    return static_cast<std::int64_t>(*value);
  }
  if (const auto* value = std::get_if<double>(&value_.content)) {
    if (const auto integer = exactInteger(*value)) return *integer;
  }
  fail("expected an integer of 64 bits");
}

const std::string& JsonReader::string() const {
  if (const auto* value = std::get_if<std::string>(&value_.content)) return *value;
  fail("expected a string");
}

Uuid JsonReader::uuid() const {
  if (const auto uuid = Uuid::parse(string())) return *uuid;
  fail("expected a UUID");
}

JsonReader JsonReader::at(std::string_view key) const {
  if (const JsonValue* found = object().member(key)) return {*this, key, *found};
  static const JsonValue kNothing;
  JsonReader(*this, key, kNothing).fail("missing");
}

const JsonValue& JsonReader::object() const {
  if (!std::holds_alternative<JsonValue::Object>(value_.content)) fail("expected an object");
  return value_;
}

const JsonValue::Array& JsonReader::array() const {
  if (const auto* value = std::get_if<JsonValue::Array>(&value_.content)) return *value;
  fail("expected an array");
}

std::string JsonReader::path() const {
  if (parent_ == nullptr) return {};
  const std::string outer = parent_->path();
  if (key_.empty()) return outer + "[" + std::to_string(index_) + "]";
  return outer.empty() ? std::string(key_) : outer + "." + std::string(key_);
}

void JsonReader::fail(std::string_view problem) const {
  const std::string place = path();
  throw DecodingError{(place.empty() ? "document" : place) + ": " + std::string(problem)};
}

}  // namespace rondora

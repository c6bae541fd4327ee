#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace rondora {

struct JsonMember;

/// A parsed JSON text. Objects keep their members in the order of the text; of equal keys the last one wins.
struct JsonValue {
  using Array = std::vector<JsonValue>;
  using Object = std::vector<JsonMember>;

  /// The last of the members with this key, or null. Only for objects.
  const JsonValue* member(std::string_view key) const;

  /// Null, Boolean, the three forms of a number, text, array, object.
  std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string, Array, Object> content;
};

struct JsonMember {
  std::string key;
  JsonValue value;
};

struct JsonSyntaxError {
  std::string description;
};

/// The parser rejects deeper nesting, so that code may recurse over a value.
inline constexpr std::size_t kMaxJsonDepth = 512;
/// The parser rejects more values: an item written as "{}," takes a hundred times as much memory. A thousand menus of
/// 36 items have about 450,000.
inline constexpr std::size_t kMaxJsonValues = 600'000;

/// Strict JSON in UTF-8 (a byte order mark is tolerated); numbers outside the range of double are errors.
std::variant<JsonValue, JsonSyntaxError> parseJson(std::string_view text);

}  // namespace rondora

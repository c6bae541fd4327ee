#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace rondora {

struct JsonMember;

/// A parsed JSON text. Objects keep their members in the order of the text; of equal keys the last one counts.
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

/// Deeper nesting is refused, so that walking a value may recurse.
inline constexpr std::size_t kDeepestJson = 512;
/// More values are refused: "{}," may stand for an item that takes a hundred times as much memory. A thousand menus of
/// 36 items, more than anybody has, are about 450,000.
inline constexpr std::size_t kMostJsonValues = 600'000;

/// Strict JSON in UTF-8 (a byte order mark is tolerated); numbers that no double can hold are refused.
std::variant<JsonValue, JsonSyntaxError> parseJson(std::string_view text);

}  // namespace rondora

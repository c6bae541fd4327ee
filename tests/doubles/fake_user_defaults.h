#pragma once

#include <map>
#include <string>
#include <variant>

#include "doubles/value_at.h"
#include "platform/user_defaults.h"

namespace rondora {

class FakeUserDefaults final : public UserDefaults {
 public:
  using Value = std::variant<std::int64_t, bool, std::string>;
  using Domain = std::map<std::string, Value, std::less<>>;

  bool hasValue(std::string_view key) const override { return values.contains(key); }
  void setInteger(std::string_view key, std::int64_t value) override { values[std::string(key)] = value; }
  bool boolean(std::string_view key) const override { return valueAt(values, key) == Value(true); }
  void setBoolean(std::string_view key, bool value) override { values[std::string(key)] = value; }
  std::optional<std::string> string(std::string_view key) const override {
    const auto found = valueAt(values, key);
    const auto* text = found ? std::get_if<std::string>(&*found) : nullptr;
    return text == nullptr ? std::nullopt : std::optional(*text);
  }
  void setString(std::string_view key, std::string_view text) override { values[std::string(key)] = std::string(text); }
  bool isEmpty() const override { return values.empty(); }
  bool importDomain(const Predecessor& /*predecessor*/) override {
    values.insert(predecessor.begin(), predecessor.end());
    return !predecessor.empty();
  }

  Domain values;
  /// The predecessor application's domain.
  Domain predecessor;
};

}  // namespace rondora

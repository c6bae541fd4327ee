#include "storage/json_value.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace rondora {
namespace {

constexpr std::size_t kMaxDescriptionLength = 200;

/// The parser's message without its own name and the offending text, which may be long and ill-formed.
std::string shortened(std::string_view message) {
  if (const auto end = message.find("] "); end != std::string_view::npos) message.remove_prefix(end + 2);
  message = message.substr(0, message.find("; last read"));
  return std::string(message.substr(0, kMaxDescriptionLength));
}

/// Builds a value from the parser's events, with the open containers on a stack.
class ValueBuilder final : public nlohmann::json_sax<nlohmann::json> {
 public:
  JsonValue& root() { return root_; }
  const std::string& error() const { return error_; }

  bool null() override { return add(std::monostate()); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(std::int64_t value) override { return add(value); }
  bool number_unsigned(std::uint64_t value) override { return add(value); }
  bool number_float(double value, const std::string& /*text*/) override { return add(value); }
  bool string(std::string& value) override { return add(std::move(value)); }
  bool binary(nlohmann::json::binary_t& /*value*/) override { return false; }
  bool start_object(std::size_t /*size*/) override { return open(JsonValue::Object()); }
  bool start_array(std::size_t /*size*/) override { return open(JsonValue::Array()); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }
  bool key(std::string& value) override {
    std::get<JsonValue::Object>(open_.back()->content).push_back({std::move(value), {}});
    return true;
  }
  bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& exception) override {
    error_ = shortened(exception.what());
    return false;
  }

 private:
  bool refuse(const char* reason) {
    error_ = reason;
    return false;
  }

  template <class Content>
  bool add(Content content) {
    if (++count_ > kMaxJsonValues) return refuse("too many values");
    place().content = std::move(content);
    return true;
  }

  template <class Container>
  bool open(Container container) {
    if (open_.size() == kMaxJsonDepth) return refuse("nested too deeply");
    if (++count_ > kMaxJsonValues) return refuse("too many values");
    JsonValue& value = place();
    value.content = std::move(container);
    open_.push_back(&value);
    return true;
  }

  bool close() {
    open_.pop_back();
    return true;
  }

  /// The slot of the next value. Its address is stable: the container grows only after the value is complete.
  JsonValue& place() {
    if (open_.empty()) return root_;
    if (auto* array = std::get_if<JsonValue::Array>(&open_.back()->content)) return array->emplace_back();
    return std::get<JsonValue::Object>(open_.back()->content).back().value;
  }

  JsonValue root_;
  std::vector<JsonValue*> open_;
  std::size_t count_ = 0;
  std::string error_;
};

}  // namespace

const JsonValue* JsonValue::member(std::string_view key) const {
  const auto& members = std::get<Object>(content);
  const auto found =
      std::find_if(members.rbegin(), members.rend(), [key](const JsonMember& m) { return m.key == key; });
  return found == members.rend() ? nullptr : &found->value;
}

std::variant<JsonValue, JsonSyntaxError> parseJson(std::string_view text) {
  // The parser stops at a NUL byte.
  if (text.find('\0') != std::string_view::npos) return JsonSyntaxError{"not JSON: contains a NUL byte"};
  ValueBuilder builder;
  if (nlohmann::json::sax_parse(text.begin(), text.end(), &builder)) return std::move(builder.root());
  return JsonSyntaxError{"not JSON: " + builder.error()};
}

}  // namespace rondora

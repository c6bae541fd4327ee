#include "base/uuid.h"

namespace rondora {
namespace {

constexpr bool isDashPosition(std::size_t i) { return i == 8 || i == 13 || i == 18 || i == 23; }

constexpr int hexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::optional<Uuid> Uuid::parse(std::string_view text) {
  if (text.size() != 36) return std::nullopt;
  std::array<std::uint8_t, 16> bytes{};
  std::size_t digits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isDashPosition(i)) {
      if (text[i] != '-') return std::nullopt;
      continue;
    }
    const int value = hexDigitValue(text[i]);
    if (value < 0) return std::nullopt;
    auto& byte = bytes[digits / 2];
    byte = static_cast<std::uint8_t>(byte << 4 | value);
    ++digits;
  }
  return fromBytes(bytes);
}

std::string Uuid::string() const {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(36);
  for (const std::uint8_t byte : bytes_) {
    if (isDashPosition(text.size())) text += '-';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace rondora

#include "base/color.h"

#include <charconv>

namespace rondora {

std::optional<Color> Color::fromHex(std::string_view text) {
  if (!text.empty() && text.front() == '#') text.remove_prefix(1);
  if (text.size() != 6 || text.front() == '-' || text.front() == '+') return std::nullopt;
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  const auto component = [value](unsigned shift) { return static_cast<double>(value >> shift & 0xFF) / 255.0; };
  return Color{component(16), component(8), component(0), 1};
}

}  // namespace rondora

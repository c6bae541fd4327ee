#include "base/color.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace rondora {
namespace {

constexpr std::size_t kSteps = 1024;

/// The light of an sRGB component, by table: a ring computes thousands, and each power takes longer than the rest.
double linear(double component) {
  static const auto table = [] {
    std::array<double, kSteps + 1> values{};
    for (std::size_t i = 0; i <= kSteps; ++i) {
      const double c = static_cast<double>(i) / kSteps;
      values[i] = c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    }
    return values;
  }();
  const double place = component > 0 ? std::min(component, 1.0) * kSteps : 0;
  const std::size_t below = std::min(static_cast<std::size_t>(place), kSteps - 1);
  return std::lerp(table[below], table[below + 1], place - static_cast<double>(below));
}

/// WCAG 2.1, "relative luminance".
double relativeLuminance(Color color) {
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

std::optional<Color> Color::fromHex(std::string_view text) {
  if (!text.empty() && text.front() == '#') text.remove_prefix(1);
  if (text.size() != 6 || text.front() == '-' || text.front() == '+') return std::nullopt;
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  const auto component = [value](unsigned shift) { return static_cast<double>(value >> shift & 0xFF) / 255.0; };
  return Color{component(16), component(8), component(0), 1};
}

double contrast(Color a, Color b) {
  const auto [dark, light] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

}  // namespace rondora

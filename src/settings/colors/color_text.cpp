#include "settings/colors/color_text.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/color.h"
#include "base/unicode.h"
#include "model/palette.h"

namespace rondora {
namespace {

/// In the palette's order.
constexpr std::array<StringKey, kItemColorPalette.size()> kNames = {
    StringKey::colorBlue, StringKey::colorGreen,  StringKey::colorLightBlue, StringKey::colorGray,
    StringKey::colorPink, StringKey::colorYellow, StringKey::colorPurple,    StringKey::colorOrange};

}  // namespace

std::optional<std::string> colorFromText(std::string_view text) {
  std::string code(trimmed(text));
  if (!Color::fromHex(code)) return std::nullopt;
  if (code.front() != '#') code.insert(code.begin(), '#');
  std::transform(code.begin(), code.end(), code.begin(), [](unsigned char c) { return std::toupper(c); });
  return code;
}

bool isSameColor(std::string_view one, std::string_view other) {
  const auto color = Color::fromHex(one);
  return color ? color == Color::fromHex(other) : one == other;
}

std::string colorName(std::string_view color, const LocalizationStore& localization) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (isSameColor(kItemColorPalette[i], color)) return std::string(localization.text(kNames[i]));
  }
  return std::string(color);
}

}  // namespace rondora

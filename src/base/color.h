#pragma once

#include <optional>
#include <string_view>

namespace rondora {

/// Straight (not premultiplied) sRGB, each component 0 to 1.
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  friend bool operator==(const Color&, const Color&) = default;

  /// "#RRGGBB" in either case, with or without the number sign; nullopt for anything else.
  static std::optional<Color> fromHex(std::string_view text);

  constexpr Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }
};

/// `amount` 0 gives `from`, 1 gives `to`; alpha is mixed too.
constexpr Color mix(Color from, Color to, double amount) {
  const double rest = 1 - amount;
  return {from.red * rest + to.red * amount, from.green * rest + to.green * amount, from.blue * rest + to.blue * amount,
          from.alpha * rest + to.alpha * amount};
}

/// `over` composited on `under`, as one colour.
constexpr Color layered(Color under, Color over) {
  const double below = under.alpha * (1 - over.alpha);
  const double alpha = over.alpha + below;
  if (alpha <= 0) return {0, 0, 0, 0};
  return {(over.red * over.alpha + under.red * below) / alpha, (over.green * over.alpha + under.green * below) / alpha,
          (over.blue * over.alpha + under.blue * below) / alpha, alpha};
}

/// The contrast ratio of WCAG 2.1, from 1 (equal) to 21 (black and white).
/// Ignores alpha.
double contrast(Color a, Color b);

}  // namespace rondora

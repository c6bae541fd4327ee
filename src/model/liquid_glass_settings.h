#pragma once

#include <optional>
#include <string_view>

namespace rondora {

enum class LiquidGlassVariant { regular, clear };

std::string_view rawValue(LiquidGlassVariant variant);
std::optional<LiquidGlassVariant> liquidGlassVariantFromRawValue(std::string_view raw);

/// The glass look of a menu.
struct LiquidGlassSettings {
  static constexpr double kDefaultTintOpacity = 0.07;

  LiquidGlassVariant variant = LiquidGlassVariant::regular;
  double tintOpacity = kDefaultTintOpacity;
  friend bool operator==(const LiquidGlassSettings&, const LiquidGlassSettings&) = default;
};

}  // namespace rondora

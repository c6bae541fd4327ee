#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "model/pie_menu.h"

// The table of a menu's appearance fields. Document, ring and settings take every name, default and range from here.

namespace rondora {

/// From `least` to `most`, both included.
struct NumberRange {
  double least = -std::numeric_limits<double>::infinity();
  double most = std::numeric_limits<double>::infinity();

  constexpr double clamped(double value) const { return std::clamp(value, least, most); }
  friend bool operator==(const NumberRange&, const NumberRange&) = default;
};

struct AppearanceField {
  using Member =
      std::variant<double PieMenu::*, bool PieMenu::*, std::string PieMenu::*, LiquidGlassSettings PieMenu::*>;

  /// The key in the document.
  std::string_view name;
  Member member;
  // The next three describe a number; for `liquidGlass` they describe its tint opacity.
  double fallback = 0;
  /// Decoding clamps to this range.
  NumberRange document = {};
  /// Drawing clamps to this range.
  NumberRange drawn = {};
  /// A menu without this key does not decode.
  bool isRequired = false;
  /// Copied by `PieMenu::applySharedVisualSettings`.
  bool isShared = true;

  /// `value` as the ring shows it: the default for infinity and NaN, else clamped.
  double toDraw(double value) const { return drawn.clamped(std::isfinite(value) ? value : fallback); }
};

namespace appearance_columns {
inline constexpr NumberRange kAny;
inline constexpr double kMinHub = PieMenu::kMinInnerRadius;
inline constexpr double kMinRadius = PieMenu::kMinInnerRadius + PieMenu::kMinRingWidth;
inline constexpr double kMaxLength = 1e6;  // points; keeps sums and products finite
inline constexpr double kTintOpacity = LiquidGlassSettings::kDefaultTintOpacity;
inline constexpr bool kRequired = true;
inline constexpr bool kOptional = false;
inline constexpr bool kOwn = false;
}  // namespace appearance_columns

/// In the document's order. Lengths are points, durations seconds. `PieMenu::clampedInnerRadius` further limits
/// `innerRadius`, and `PieMenu::defaultIconDistance` replaces the default of `iconDistance` where a document has none.
inline constexpr auto kAppearanceFields = [] {
  using namespace appearance_columns;
  return std::to_array<AppearanceField>({
      // clang-format off
    // name                           member                                 default       document      drawn
    {"menuRadius",                   &PieMenu::menuRadius,                  150,          kAny,         {kMinRadius, kMaxLength}, kRequired},
    {"innerRadius",                  &PieMenu::innerRadius,                 76,           {kMinHub},    {kMinHub, kMaxLength}},
    {"iconDistance",                 &PieMenu::iconDistance,                0.5,          kAny,         {0, 1}},
    {"iconSize",                     &PieMenu::iconSize,                    42,           kAny,         {0, kMaxLength}},
    {"appearanceScale",              &PieMenu::appearanceScale,             1,            {0.5, 2},     {0.5, 2}},
    {"rotationDegrees",              &PieMenu::rotationDegrees,             0,            kAny,         kAny},
    {"liquidGlass",                  &PieMenu::liquidGlass,                 kTintOpacity, kAny,         {0, 1}},
    {"animationDuration",            &PieMenu::animationDuration,           0.2,          kAny,         {0, 2}, kRequired},
    {"pawDecorationEnabled",         &PieMenu::pawDecorationEnabled},
    {"pawSizeScale",                 &PieMenu::pawSizeScale,                0.8,          {0.35, 0.95}, {0.35, 0.95}},
    {"pawRadialInset",               &PieMenu::pawRadialInset,              0.5,          {0.05, 0.95}, {0.05, 0.95}},
    {"centerCatScale",               &PieMenu::centerCatScale,              0.75,         {0.45, 1.2},  {0.45, 1.2}},
    {"centerAppIconScale",           &PieMenu::centerAppIconScale,          0.4,          {0.3, 0.7},   {0.3, 0.7}, kOptional, kOwn},
    {"shortcutDigitSizeScale",       &PieMenu::shortcutDigitSizeScale,      0.23,         {0.1, 0.6},   {0.1, 0.6}},
    {"shortcutDigitInsetLeftScale",  &PieMenu::shortcutDigitInsetLeftScale, 0.29,         {0.05, 0.9},  {0.05, 0.9}},
    {"shortcutDigitInsetRightScale", &PieMenu::shortcutDigitInsetRightScale, 0.35,        {0.05, 0.9},  {0.05, 0.9}},
    {"shortcutDigitOpacity",         &PieMenu::shortcutDigitOpacity,        0.29,         {0.1, 1},     {0.1, 1}},
    {"shortcutDigitColorHex",        &PieMenu::shortcutDigitColorHex},
      // clang-format on
  });
}();

/// The row of a member; does not compile for a member without one.
template <auto member>
constexpr const AppearanceField& appearanceField() {
  constexpr const AppearanceField* kFound =
      std::find_if(kAppearanceFields.begin(), kAppearanceFields.end(),
                   [](const AppearanceField& field) { return field.member == AppearanceField::Member(member); });
  static_assert(kFound != kAppearanceFields.end());
  return *kFound;
}

/// A number of the menu as the ring shows it.
template <double PieMenu::*member>
double drawn(const PieMenu& menu) {
  return appearanceField<member>().toDraw(menu.*member);
}

}  // namespace rondora

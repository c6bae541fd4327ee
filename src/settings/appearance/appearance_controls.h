#pragma once

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "localization/string_key.h"
#include "model/appearance_fields.h"

// The table of controls: how the settings show and edit each field of model/appearance_fields.h.

namespace rondora {

enum class AppearanceGroup { ring, icons, glass, animation, middle, keys };

/// How a number is shown.
struct AppearanceUnit {
  /// Behind the number, in every language.
  std::string_view symbol;
  /// What is shown for 1.
  double factor = 1;
  int decimals = 0;
  friend bool operator==(const AppearanceUnit&, const AppearanceUnit&) = default;
};

struct AppearanceControl {
  /// The field's name; several controls may edit parts of one field.
  std::string_view field;
  StringKey title;
  AppearanceGroup group;
  AppearanceUnit unit = {};
  /// One press of an arrow key, in the unit shown.
  double step = 1;
  /// For a number without a useful range in the document.
  NumberRange editing = {};
  /// Edits the variant of the glass, not its opacity.
  bool isVariant = false;

  constexpr const AppearanceField& row() const {
    return *std::find_if(kAppearanceFields.begin(), kAppearanceFields.end(),
                         [this](const AppearanceField& each) { return each.name == field; });
  }
  /// Distinguishes the controls.
  constexpr std::string_view key() const { return isVariant ? std::string_view("liquidGlass.variant") : field; }
};

namespace appearance_columns {
inline constexpr AppearanceUnit kPoints{" px"};
inline constexpr AppearanceUnit kPercent{"\u202f%", 100};
inline constexpr AppearanceUnit kDegrees{"°", 1, 1};
inline constexpr AppearanceUnit kSeconds{" s", 1, 2};
inline constexpr AppearanceUnit kNone;
/// From a ring whose icons can still be told apart to one that fills the height of a small screen.
inline constexpr NumberRange kRadii{60, 400};
/// From a ring's narrowest edge to the hub of the largest ring.
inline constexpr NumberRange kHubs{PieMenu::kMinInnerRadius, kRadii.most - PieMenu::kMinRingWidth};
/// From the smallest size of icon themes to the largest that is drawn sharply.
inline constexpr NumberRange kIconSides{16, 128};
inline constexpr NumberRange kTurn{-180, 180};
}  // namespace appearance_columns

/// In the order in which they are shown.
inline constexpr auto kAppearanceControls = [] {
  using namespace appearance_columns;
  using enum AppearanceGroup;
  return std::to_array<AppearanceControl>({
      // clang-format off
    // field                          title                               group      unit      step  editing limits
    {"menuRadius",                   StringKey::lookRadius,               ring,      kPoints,  1,    kRadii},
    {"innerRadius",                  StringKey::lookHubRadius,            ring,      kPoints,  1,    kHubs},
    {"appearanceScale",              StringKey::lookScale,                ring,      kPercent, 5},
    {"rotationDegrees",              StringKey::lookRotation,             ring,      kDegrees, 1,    kTurn},
    {"iconSize",                     StringKey::lookIconSize,             icons,     kPoints,  1,    kIconSides},
    {"iconDistance",                 StringKey::lookIconDistance,         icons,     kPercent, 1},
    {"liquidGlass",                  StringKey::lookGlass,                glass,     kNone,    1,    {}, true},
    {"liquidGlass",                  StringKey::lookTint,                 glass,     kPercent, 1},
    {"animationDuration",            StringKey::lookDuration,             animation, kSeconds, 0.05},
    {"pawDecorationEnabled",         StringKey::lookPaws,                 middle},
    {"centerCatScale",               StringKey::lookCatSize,              middle,    kPercent, 1},
    {"centerAppIconScale",           StringKey::lookAppIconSize,          middle,    kPercent, 1},
    {"pawSizeScale",                 StringKey::lookPawSize,              middle,    kPercent, 1},
    {"pawRadialInset",               StringKey::lookPawInset,             middle,    kPercent, 1},
    {"shortcutDigitSizeScale",       StringKey::lookKeySize,              keys,      kPercent, 1},
    {"shortcutDigitInsetLeftScale",  StringKey::lookKeyInsetLeft,         keys,      kPercent, 1},
    {"shortcutDigitInsetRightScale", StringKey::lookKeyInsetRight,        keys,      kPercent, 1},
    {"shortcutDigitOpacity",         StringKey::lookKeyOpacity,           keys,      kPercent, 1},
    {"shortcutDigitColorHex",        StringKey::lookKeyColor,             keys},
      // clang-format on
  });
}();

static_assert(std::all_of(kAppearanceFields.begin(), kAppearanceFields.end(),
                          [](const AppearanceField& field) {
                            return std::any_of(kAppearanceControls.begin(), kAppearanceControls.end(),
                                               [&](const auto& control) { return control.field == field.name; });
                          }),
              "a field without a control");

}  // namespace rondora

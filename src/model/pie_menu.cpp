#include "model/pie_menu.h"

#include <algorithm>
#include <set>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr double kMinimumRingWidth = 22;
constexpr double kMinimumInnerRadius = 12;
constexpr double kDefaultIconRadius = 55;

}  // namespace

double PieMenu::clampedInnerRadius(double innerRadius, double menuRadius) {
  return std::min(std::max(menuRadius - kMinimumRingWidth, kMinimumInnerRadius),
                  std::max(innerRadius, kMinimumInnerRadius));
}

double PieMenu::defaultIconDistance(double innerRadius, double menuRadius) {
  if (innerRadius >= menuRadius) return 1.0;
  return (kDefaultIconRadius - innerRadius) / (menuRadius - innerRadius);
}

void PieMenu::applySharedVisualSettings(const PieMenu& source) {
  menuRadius = source.menuRadius;
  innerRadius = clampedInnerRadius(source.innerRadius, source.menuRadius);
  iconDistance = source.iconDistance;
  iconSize = source.iconSize;
  appearanceScale = source.appearanceScale;
  rotationDegrees = source.rotationDegrees;
  liquidGlass = source.liquidGlass;
  animationDuration = source.animationDuration;
  pawDecorationEnabled = source.pawDecorationEnabled;
  pawSizeScale = source.pawSizeScale;
  pawRadialInset = source.pawRadialInset;
  centerCatScale = source.centerCatScale;
  shortcutDigitSizeScale = source.shortcutDigitSizeScale;
  shortcutDigitInsetLeftScale = source.shortcutDigitInsetLeftScale;
  shortcutDigitInsetRightScale = source.shortcutDigitInsetRightScale;
  shortcutDigitOpacity = source.shortcutDigitOpacity;
  shortcutDigitColorHex = source.shortcutDigitColorHex;
}

std::vector<std::string> PieMenu::deduplicatedRunningAppsExcludedBundleIds(const std::vector<std::string>& ids) {
  std::set<std::string> seen;
  std::vector<std::string> kept;
  std::copy_if(ids.begin(), ids.end(), std::back_inserter(kept),
               [&seen](const std::string& each) { return seen.insert(lowerCased(each)).second; });
  return kept;
}

std::vector<AppSubMenuEntry> PieMenu::resolvedAppCommandsDefaultEntries(std::vector<AppSubMenuEntry> entries,
                                                                        PieMenuKind kind, RandomSource& random) {
  if (kind != PieMenuKind::appCommands) return {};
  if (entries.empty()) return AppSubMenuEntry::automaticBuiltIns(random);
  return entries;
}

}  // namespace rondora

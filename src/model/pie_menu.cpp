#include "model/pie_menu.h"

#include <algorithm>
#include <set>

#include "base/unicode.h"
#include "model/appearance_fields.h"

namespace rondora {
namespace {

constexpr double kDefaultIconRadius = 55;

}  // namespace

PieMenu::PieMenu() {
  for (const AppearanceField& field : kAppearanceFields) {
    const auto* number = std::get_if<double PieMenu::*>(&field.member);
    if (number != nullptr) this->*(*number) = field.fallback;
  }
}

double PieMenu::clampedInnerRadius(double innerRadius, double menuRadius) {
  return std::min(std::max(menuRadius - kMinRingWidth, kMinInnerRadius), std::max(innerRadius, kMinInnerRadius));
}

double PieMenu::defaultIconDistance(double innerRadius, double menuRadius) {
  if (innerRadius >= menuRadius) return 1.0;
  return (kDefaultIconRadius - innerRadius) / (menuRadius - innerRadius);
}

void PieMenu::applySharedVisualSettings(const PieMenu& source) {
  for (const AppearanceField& field : kAppearanceFields) {
    if (field.isShared) std::visit([&](auto member) { this->*member = source.*member; }, field.member);
  }
  innerRadius = clampedInnerRadius(innerRadius, menuRadius);
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

#include "app/trigger_rules.h"

#include <algorithm>
#include <variant>

namespace rondora {
namespace {

constexpr double kRestoreDelay = 0.15;  // seconds

bool isTrackpadTarget(const PieConfiguration& configuration, std::size_t menuIndex) {
  const auto targets = configuration.trackpadGestureTargets();
  return std::any_of(targets.begin(), targets.end(),
                     [menuIndex](const auto& target) { return target.second == menuIndex; });
}

}  // namespace

bool repeats(const HotkeyConfig& trigger) { return trigger.isAssigned() && !trigger.isStandaloneFn(); }

std::optional<std::size_t> resolveMenuIndex(std::span<const std::uint32_t> candidates,
                                            const std::vector<PieMenu>& menus, std::optional<std::size_t> displayed) {
  const auto qualifies = [&](std::size_t index) {
    return std::find(candidates.begin(), candidates.end(), index) != candidates.end() &&
           menus[index].hotkey.isAssigned();
  };
  if (displayed && qualifies(*displayed)) return displayed;
  for (std::size_t i = 0; i < menus.size(); ++i) {
    if (qualifies(i)) return i;
  }
  return std::nullopt;
}

Toggle toggleOutcome(const PieMenu& menu, const HotkeyConfig& trigger, const std::optional<Uuid>& displayed) {
  if (!displayed) return Toggle::show;
  return repeats(trigger) && *displayed == menu.id ? Toggle::step : Toggle::close;
}

std::optional<double> restoreDelay(const MenuAction& action) {
  const bool actsOnPreviousApp = std::holds_alternative<Keystroke>(action) || std::holds_alternative<Snippet>(action) ||
                                 std::holds_alternative<Unassigned>(action);
  return actsOnPreviousApp ? std::optional(kRestoreDelay) : std::nullopt;
}

bool hasLiveAppCommandsMenu(const PieConfiguration& configuration) {
  const auto& menus = configuration.menus;
  const auto menu = std::find_if(menus.begin(), menus.end(),
                                 [](const PieMenu& candidate) { return candidate.kind == PieMenuKind::appCommands; });
  if (menu == menus.end() || !menu->isEnabled()) return false;
  return menu->hotkey.isAssigned() || isTrackpadTarget(configuration, static_cast<std::size_t>(menu - menus.begin()));
}

bool prefetchesAppCommands(const PieConfiguration& configuration, const RunningApplication& application,
                           std::string_view ownBundleIdentifier) {
  if (application.bundleIdentifier.value_or("") == ownBundleIdentifier) return false;
  if (application.activationPolicy != ActivationPolicy::regular) return false;
  return hasLiveAppCommandsMenu(configuration);
}

}  // namespace rondora

#include "app/session_report.h"

#include <algorithm>
#include <string>

#include "app/menu_directory.h"
#include "base/unicode.h"
#include "settings/general/status_item_finding.h"

namespace rondora {
namespace {

/// Each costs the window two labels, and more of them say nothing new.
constexpr std::size_t kMaxHotkeyFindings = 10;
constexpr std::size_t kMaxApplications = 8;
/// Of an application's name.
constexpr std::size_t kMaxCharacters = 40;

}  // namespace

bool isWaylandSession(const ProcessEnvironment& environment) {
  return !environment.variable("WAYLAND_DISPLAY").value_or("").empty() ||
         environment.variable("XDG_SESSION_TYPE") == "wayland";
}

const PieMenu* firstMenuWithWorkingHotkey(const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys) {
  const auto found = std::find_if(menus.begin(), menus.end(),
                                  [&](const PieMenu& menu) { return opensWithHotkey(menu, menus, hotkeys); });
  return found == menus.end() ? nullptr : &*found;
}

std::vector<SessionFinding> SessionReport::findings(const SessionFacts& facts, const PieConfiguration& configuration,
                                                    const HotkeyManager* hotkeys) const {
  std::vector<SessionFinding> result;
  if (facts.desktop == DesktopKind::x11) {
    result.push_back(facts.isWayland ? fails(StringKey::sessionWayland, StringKey::sessionWaylandRemedy)
                                     : works(StringKey::sessionX11));
  }
  if (hotkeys != nullptr) addHotkeys(result, facts, configuration.menus, *hotkeys);
  if (facts.showsStatusItem) {
    result.push_back(statusItemFinding(*facts.showsStatusItem, facts.desktop, localization_));
  }
  if (facts.desktop == DesktopKind::macOS) {
    result.insert(result.end(), facts.permissions.begin(), facts.permissions.end());
  } else if (!facts.canPressKeys) {
    result.push_back(fails(StringKey::sessionNoKeystrokes, StringKey::sessionNoKeystrokesRemedy));
  } else if (!facts.isWayland) {  // where another finding says which applications they reach
    result.push_back(works(StringKey::sessionKeystrokes));
  }
  if (!configuration.trackpadGestureTargets().empty() && facts.trackpads != TrackpadAccess::none) {
    result.push_back(facts.trackpads == TrackpadAccess::readable
                         ? works(StringKey::sessionTrackpad)
                         : fails(StringKey::sessionTrackpadUnreadable, StringKey::sessionTrackpadUnreadableRemedy));
  }
  if (!facts.applicationsWithoutMenus.empty()) result.push_back(unreadableMenus(facts.applicationsWithoutMenus));
  return result;
}

SessionFinding SessionReport::unreadableMenus(const std::vector<std::string>& applications) const {
  std::string names;
  for (std::size_t i = 0; i < applications.size() && i < kMaxApplications; ++i) {
    names.append(i == 0 ? "" : ", ").append(shortened(applications[i], kMaxCharacters));
  }
  if (applications.size() > kMaxApplications) names.append(", …");
  return {false, localization_.text(StringKey::sessionUnreadableMenus, names),
          std::string(localization_.text(StringKey::sessionUnreadableMenusRemedy))};
}

void SessionReport::addHotkeys(std::vector<SessionFinding>& findings, const SessionFacts& facts,
                               const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys) const {
  std::size_t failures = 0;
  for (const PieMenu& menu : menus) {
    if (!menu.hasLiveHotkey() || opensWithHotkey(menu, menus, hotkeys)) continue;
    if (++failures > kMaxHotkeyFindings) continue;
    const PieMenu& first = firstWithHotkeyOf(menu, menus);
    const auto option = hotkeys.optionAgainst(menu.hotkey);
    findings.push_back(&first != &menu ? isShared(menu, first)
                       : option        ? cannotBeTyped(menu, *option)
                                       : hotkeyFails(menu, facts));
  }
  if (failures > kMaxHotkeyFindings) findings.push_back(notShown(failures - kMaxHotkeyFindings));
  const auto working = workingHotkeys(menus, hotkeys, localization_.language(), modifierNames_);
  if (working.empty()) return;
  // On Wayland they arrive only sometimes, which another finding states.
  if (failures > 0 || facts.isWayland) {
    findings.push_back({true, working, {}});
  } else {
    findings.push_back({true, std::string(localization_.text(StringKey::sessionHotkeysWork)), working});
  }
}

SessionFinding SessionReport::hotkeyFails(const PieMenu& menu, const SessionFacts& facts) const {
  if (menu.hotkey.isStandaloneFn() || menu.hotkey.hasFunctionModifier()) {
    const bool needsPermission = facts.desktop == DesktopKind::macOS && !facts.canPressKeys;
    return {false, localization_.text(StringKey::sessionHotkeyUnusable, displayName(menu)),
            needsPermission ? localization_.text(StringKey::permissionMissing,
                                                 localization_.text(StringKey::permissionAccessibility))
                            : std::string(localization_.text(StringKey::sessionHotkeyUnusableRemedy))};
  }
  return {false, localization_.text(StringKey::settingsHotkeyRefused, displayName(menu)),
          localization_.text(StringKey::sessionHotkeyRefusedRemedy,
                             displayString(menu.hotkey, localization_.language(), modifierNames_))};
}

SessionFinding SessionReport::cannotBeTyped(const PieMenu& menu, std::string_view option) const {
  return {false, localization_.text(StringKey::sessionHotkeyUnusable, displayName(menu)),
          localization_.text(StringKey::sessionHotkeyOptionRemedy, option)};
}

SessionFinding SessionReport::isShared(const PieMenu& menu, const PieMenu& first) const {
  return {false, localization_.text(StringKey::sessionHotkeyShared, displayName(menu), displayName(first)),
          std::string(localization_.text(StringKey::sessionHotkeyUnusableRemedy))};
}

SessionFinding SessionReport::notShown(std::size_t count) const {
  return {false, localization_.text(StringKey::findingsNotShown, std::to_string(count)), {}};
}

SessionFinding SessionReport::works(StringKey statement) const {
  return {true, std::string(localization_.text(statement)), {}};
}

SessionFinding SessionReport::fails(StringKey statement, StringKey remedy) const {
  return {false, std::string(localization_.text(statement)), std::string(localization_.text(remedy))};
}

}  // namespace rondora

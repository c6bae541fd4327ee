#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "input/hotkeys/hotkey_display.h"
#include "input/hotkeys/hotkey_manager.h"
#include "localization/localization_store.h"
#include "model/pie_configuration.h"
#include "platform/desktop_kind.h"
#include "platform/process_environment.h"
#include "platform/trackpads.h"
#include "platform/windows.h"

namespace rondora {

/// The state that the report depends on.
struct SessionFacts {
  DesktopKind desktop = DesktopKind::x11;
  bool isWayland = false;
  /// Nothing while it is not known: the report leaves it out.
  std::optional<bool> showsStatusItem = true;
  bool canPressKeys = true;
  /// Of the permissions, on a system that asks the user for them.
  std::vector<SessionFinding> permissions = {};
  TrackpadAccess trackpads = TrackpadAccess::none;
  /// Names of those whose menus cannot be read until they are started again.
  std::vector<std::string> applicationsWithoutMenus = {};
};

bool isWaylandSession(const ProcessEnvironment& environment);

/// Reports in the user's language what works in this desktop session and what does not. Main thread.
class SessionReport {
 public:
  SessionReport(const LocalizationStore& localization, const ModifierNames& modifierNames)
      : localization_(localization), modifierNames_(modifierNames) {}

  /// `hotkeys` has registered the menus of `configuration`; null before that.
  std::vector<SessionFinding> findings(const SessionFacts& facts, const PieConfiguration& configuration,
                                       const HotkeyManager* hotkeys) const;

 private:
  SessionFinding works(StringKey statement) const;
  SessionFinding fails(StringKey statement, StringKey remedy) const;
  SessionFinding isShared(const PieMenu& menu, const PieMenu& first) const;
  SessionFinding notShown(std::size_t count) const;
  SessionFinding unreadableMenus(const std::vector<std::string>& applications) const;
  SessionFinding hotkeyFails(const PieMenu& menu, const SessionFacts& facts) const;
  SessionFinding cannotBeTyped(const PieMenu& menu, std::string_view option) const;
  void addHotkeys(std::vector<SessionFinding>& findings, const SessionFacts& facts, const std::vector<PieMenu>& menus,
                  const HotkeyManager& hotkeys) const;

  const LocalizationStore& localization_;
  ModifierNames modifierNames_;
};

/// The first menu that its hotkey opens, or null.
const PieMenu* firstMenuWithWorkingHotkey(const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys);

}  // namespace rondora

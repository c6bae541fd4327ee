#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "commands/app_menu_command_reader.h"
#include "commands/application_snapshot.h"
#include "model/app_sub_menu.h"
#include "platform/accessibility.h"
#include "platform/clock.h"

namespace rondora {

/// Reads what an application offers, in two steps: first its window, of which the window manager may tell even while
/// the application hangs, then its menus. Off the main thread, on the thread of the given Accessibility.
class ApplicationSnapshotReader {
 public:
  /// Both must outlive the object.
  ApplicationSnapshotReader(Accessibility& accessibility, const Clock& clock)
      : accessibility_(accessibility), clock_(clock) {}

  ApplicationSnapshot readWindow(std::int32_t processIdentifier);
  /// Looks for these menu commands. Takes AppMenuCommandReader::kSearchBudget and one request at most (see there),
  /// and ends early once `isCancelled` holds.
  void readMenus(ApplicationSnapshot& snapshot, std::int32_t processIdentifier,
                 const std::vector<AppSubMenuEntry>& entries, const std::function<bool()>& isCancelled);

 private:
  ApplicationSnapshot::Command walkTo(AppMenuCommandReader& reader, std::int32_t processIdentifier,
                                      const AppSubMenuEntry& entry, double deadline);

  Accessibility& accessibility_;
  const Clock& clock_;
};

/// The entries that are menu commands.
std::vector<AppSubMenuEntry> menuItems(const std::vector<AppSubMenuEntry>& entries);
/// The key equivalent that the document stores for the entry.
std::optional<MenuShortcut> storedShortcut(const AppSubMenuEntry& entry);

}  // namespace rondora

#include "commands/application_snapshot_reader.h"

#include <algorithm>
#include <utility>

#include "commands/app_menu_command_reader.h"

namespace rondora {
namespace {

using Availability = ApplicationSnapshot::Availability;
using Items = std::vector<AppMenuItemInfo>;

/// The command at the path, otherwise the first with the shortcut, as AppMenuCommandReader::item finds it.
const AppMenuItemInfo* findCommand(const Items& items, const AppSubMenuEntry& entry) {
  const auto first = [&items](auto matches) {
    const auto found = std::find_if(items.begin(), items.end(), matches);
    return found == items.end() ? nullptr : &*found;
  };
  const AppMenuItemInfo* atPath = first([&](const auto& item) { return item.path == entry.menuPath; });
  if (atPath && !atPath->hasSubmenu) return atPath;
  const auto shortcut = storedShortcut(entry);
  if (!shortcut) return nullptr;
  return first([&](const auto& item) {
    return item.shortcutCharacter == shortcut->character && item.shortcutModifiers == shortcut->modifiers;
  });
}

ApplicationSnapshot::Command commandOf(const AppSubMenuEntry& entry, const AppMenuItemInfo& item) {
  std::optional<MenuShortcut> shortcut;
  if (item.shortcutCharacter) shortcut = MenuShortcut{*item.shortcutCharacter, item.shortcutModifiers};
  return {entry.menuPath, item.isEnabled ? Availability::enabled : Availability::disabled, std::move(shortcut)};
}

}  // namespace

std::vector<AppSubMenuEntry> menuItems(const std::vector<AppSubMenuEntry>& entries) {
  std::vector<AppSubMenuEntry> items = entries;
  std::erase_if(items, [](const AppSubMenuEntry& entry) { return entry.kind != AppSubMenuEntry::Kind::menuItem; });
  return items;
}

std::optional<MenuShortcut> storedShortcut(const AppSubMenuEntry& entry) {
  if (entry.shortcutCharacter.value_or("").empty()) return std::nullopt;
  return MenuShortcut{*entry.shortcutCharacter, entry.shortcutModifiers.value_or(0)};
}

ApplicationSnapshot ApplicationSnapshotReader::readWindow(std::int32_t processIdentifier) {
  ApplicationSnapshot snapshot;
  snapshot.isWindowRead = true;
  if (const AXElementRef window = WindowAX(accessibility_).targetWindow(processIdentifier)) {
    snapshot.window = {WindowAX::canMoveAndResize(*window), WindowAX::fullScreenState(*window)};
  }
  return snapshot;
}

void ApplicationSnapshotReader::readMenus(ApplicationSnapshot& snapshot, std::int32_t processIdentifier,
                                          const std::vector<AppSubMenuEntry>& entries) {
  using Reader = AppMenuCommandReader;
  Reader reader(accessibility_, clock_);
  const double deadline = clock_.uptime() + Reader::kSearchBudget;
  const Reader::Crawl crawl = reader.readItems(processIdentifier, Reader::kSearchBudget, Reader::kSearchDepth);
  snapshot.areMenusRead = crawl.isComplete || !crawl.items.empty();
  for (const AppSubMenuEntry& entry : entries) {
    if (const AppMenuItemInfo* item = findCommand(crawl.items, entry)) {
      snapshot.commands.push_back(commandOf(entry, *item));
    } else if (crawl.isComplete) {
      snapshot.commands.push_back({entry.menuPath, Availability::missing, {}});
    } else if (!crawl.items.empty() && clock_.uptime() < deadline) {
      walkTo(snapshot, processIdentifier, entry, deadline);
    }
  }
}

/// For a command below the levels or behind the time of a crawl. A walk in which no request can have timed out tells
/// that there is none.
void ApplicationSnapshotReader::walkTo(ApplicationSnapshot& snapshot, std::int32_t processIdentifier,
                                       const AppSubMenuEntry& entry, double deadline) {
  const double start = clock_.uptime();
  const auto item =
      AppMenuCommandReader(accessibility_, clock_).walk(processIdentifier, entry.menuPath, deadline - start);
  const double end = clock_.uptime();
  if (item) {
    snapshot.commands.push_back(commandOf(entry, *item));
  } else if (end < deadline && end - start < AppMenuCommandReader::kMessagingTimeout) {
    snapshot.commands.push_back({entry.menuPath, Availability::missing, {}});
  }
}

}  // namespace rondora

#include "commands/application_snapshot_reader.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/ax_names.h"

namespace rondora {
namespace {

using Availability = ApplicationSnapshot::Availability;
using Command = ApplicationSnapshot::Command;
using Reader = AppMenuCommandReader;

Command commandOf(const AppMenuItemInfo& item) {
  return {item.isEnabled ? Availability::enabled : Availability::disabled, item.shortcut()};
}

/// The items of a crawl by path and by key equivalent; of equal ones the first.
class CrawledCommands {
 public:
  explicit CrawledCommands(const std::vector<AppMenuItemInfo>& items) {
    for (const AppMenuItemInfo& item : items) {
      byPath_.emplace(item.path, &item);
      if (const auto shortcut = item.shortcut()) byShortcut_.emplace(keyOf(*shortcut), &item);
    }
  }

  /// The command at the path, otherwise the one with the stored key equivalent, as AppMenuCommandReader::item finds it.
  const AppMenuItemInfo* find(const AppSubMenuEntry& entry) const {
    const auto atPath = byPath_.find(entry.menuPath);
    if (atPath != byPath_.end() && !atPath->second->hasSubmenu) return atPath->second;
    const auto shortcut = storedShortcut(entry);
    const auto found = shortcut ? byShortcut_.find(keyOf(*shortcut)) : byShortcut_.end();
    return found == byShortcut_.end() ? nullptr : found->second;
  }

 private:
  using Key = std::pair<std::string, std::int64_t>;
  static Key keyOf(const MenuShortcut& shortcut) { return {shortcut.character, shortcut.modifiers}; }

  std::map<std::vector<std::string>, const AppMenuItemInfo*> byPath_;
  std::map<Key, const AppMenuItemInfo*> byShortcut_;
};

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
    snapshot.window = {.canMoveAndResize = WindowAX::canMoveAndResize(*window),
                       .canMinimize = window->isSettable(ax::kMinimized),
                       .fullScreen = WindowAX::fullScreenState(*window)};
  }
  return snapshot;
}

void ApplicationSnapshotReader::readMenus(ApplicationSnapshot& snapshot, std::int32_t processIdentifier,
                                          const std::vector<AppSubMenuEntry>& entries,
                                          const std::function<bool()>& isCancelled) {
  Reader reader(accessibility_, clock_, isCancelled);
  const double deadline = clock_.uptime() + Reader::kSearchBudget;
  const Reader::Crawl crawl = reader.readItems(processIdentifier, Reader::kSearchBudget, Reader::kSearchDepth);
  const CrawledCommands crawled(crawl.items);
  snapshot.areMenusRead = crawl.isComplete || !crawl.items.empty();
  for (const AppSubMenuEntry& entry : entries) {
    Command& command = snapshot.commands[entry.menuPath];
    if (const AppMenuItemInfo* item = crawled.find(entry)) {
      command = commandOf(*item);
    } else if (crawl.isComplete) {
      command.availability = Availability::missing;
    } else if (!crawl.items.empty() && clock_.uptime() < deadline && !isCancelled()) {
      command = walkTo(reader, processIdentifier, entry, deadline);
    }
  }
}

/// For a command below the levels or behind the time of a crawl. A walk in which no request can have timed out tells
/// that there is none.
Command ApplicationSnapshotReader::walkTo(AppMenuCommandReader& reader, std::int32_t processIdentifier,
                                          const AppSubMenuEntry& entry, double deadline) {
  const double start = clock_.uptime();
  const auto item = reader.walk(processIdentifier, entry.menuPath, deadline - start);
  if (item) return commandOf(*item);
  const double end = clock_.uptime();
  const bool isKnown = end < deadline && end - start < Reader::kMessagingTimeout && !reader.hasGap();
  return {isKnown ? Availability::missing : Availability::unknown, {}};
}

}  // namespace rondora

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/pie_sub_action.h"
#include "platform/accessibility.h"
#include "platform/clock.h"

namespace rondora {

/// An item of an application's menus, as read.
struct AppMenuItemInfo {
  AXElementRef element;
  /// Empty for a separator.
  std::string title;
  /// Titles from the menu bar down to this item.
  std::vector<std::string> path;
  /// A letter in upper case; function and arrow keys are private-use characters.
  std::optional<std::string> shortcutCharacter;
  /// As the system reports it: bit 0 shift, bit 1 option, bit 2 control, bit 3 set when command is not part of it.
  std::int64_t shortcutModifiers = 0;
  /// True also when the application does not say.
  bool isEnabled = true;
  bool hasSubmenu = false;

  std::optional<MenuShortcut> shortcut() const {
    if (!shortcutCharacter) return std::nullopt;
    return MenuShortcut{*shortcutCharacter, shortcutModifiers};
  }
};

/// Reads the menus of another application. A call blocks while it waits for the application: each request at most
/// kMessagingTimeout, but the first, which asks the platform for the menu bar, as long as the platform searches for it;
/// all of them at most the call's budget and one request. Menus may be without end (a submenu that contains
/// itself, a list that grows), so no call reads more than kMaxItems items and about kMaxBytes bytes of titles, paths
/// and lists. An application that fails or hangs has no menus. Off the main thread, on the thread of the given
/// Accessibility.
///
/// Announces to Accessibility::prepareToRead what it reads next: the titles of the menu bar (AXTitle, AXChildren), the
/// menus of a whole level (AXChildren), the items of each menu (AXTitle, AXMenuItemCmdChar, AXMenuItemCmdModifiers,
/// AXEnabled, AXChildren).
class AppMenuCommandReader {
 public:
  // In seconds.
  static constexpr double kMessagingTimeout = 0.2;
  static constexpr double kSearchBudget = 0.35;
  static constexpr double kWalkBudget = 2;
  /// Levels of menus read in search of a shortcut.
  static constexpr int kSearchDepth = 3;
  static constexpr std::size_t kMaxItems = 20000;
  static constexpr std::size_t kMaxBytes = 4 << 20;

  struct TopMenu {
    std::string title;
    /// The menu, as the only element.
    std::vector<AXElementRef> children;
  };

  struct Crawl {
    /// In reading order: level by level.
    std::vector<AppMenuItemInfo> items;
    /// All menus were read: none was cut by a limit, lay deeper or failed, and there is a menu bar without empty menus.
    /// Only then is a command that is missing here known not to exist.
    bool isComplete = false;
  };

  /// A call ends early, as if its budget were used up, once `isCancelled` holds. May be empty; the references must
  /// outlive the object.
  AppMenuCommandReader(Accessibility& accessibility, const Clock& clock, std::function<bool()> isCancelled = {})
      : accessibility_(accessibility), clock_(clock), isCancelled_(std::move(isCancelled)) {}

  /// The menus of the menu bar but its first, the system's own; nameless ones are left out. Within kWalkBudget.
  std::vector<TopMenu> topMenus(std::int32_t processIdentifier);

  /// The command at exactly this path, from the title in the menu bar. Nothing when the path ends at a submenu.
  std::optional<AppMenuItemInfo> walk(std::int32_t processIdentifier, const std::vector<std::string>& path,
                                      double budget = kWalkBudget);

  /// The command at the path, otherwise the first item with the shortcut, found within kSearchBudget. Nothing when the
  /// program is not trusted to read other applications.
  std::optional<AppMenuItemInfo> item(std::int32_t processIdentifier, const std::vector<std::string>& path,
                                      const std::optional<MenuShortcut>& shortcut, bool isTrusted);

  /// The items of all menus, as far as `maxDepth` levels and `budget` seconds allow.
  Crawl readItems(std::int32_t processIdentifier, double budget, int maxDepth);

  /// The last call left something unread: a limit cut it, a request failed, a menu of the menu bar was empty, or there
  /// is no menu bar.
  bool hasGap() const { return hasGap_; }

 private:
  Accessibility& accessibility_;
  const Clock& clock_;
  std::function<bool()> isCancelled_;
  bool hasGap_ = false;
};

}  // namespace rondora

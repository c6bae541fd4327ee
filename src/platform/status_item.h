#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/observable.h"

namespace rondora {

/// One entry of a menu; a separator has neither title nor action.
struct MenuEntry {
  std::string title;
  /// Name of a system symbol, empty for none.
  std::string symbol;
  std::function<void()> action;
  bool isSeparator = false;
};

enum class StatusItemLength { square, variable };
enum class StatusItemImagePosition { imageOnly, imageBeforeTitle };
enum class StatusItemRole { menuButton, button };

enum class StatusItemVisibility {
  visible,
  /// The desktop has not answered yet.
  unknown,
  noTray,
  /// There is a tray, but no panel shows it.
  noPanel,
  /// There is a tray that does not show the item, perhaps not yet.
  notTaken,
  /// The menu bar has no room for it.
  noRoom,
};

/// The status item as the system is to make it. A backend applies what its tray has a means for, and its header states
/// the rest.
struct StatusItemDescription {
  /// The name under which the system saves the item's position.
  std::string autosaveName;
  StatusItemLength length = StatusItemLength::square;
  StatusItemImagePosition imagePosition = StatusItemImagePosition::imageOnly;
  /// The item's kind for screen readers.
  StatusItemRole role = StatusItemRole::menuButton;
  std::string toolTip;
  std::string accessibilityLabel;
  std::vector<MenuEntry> menu;
};

/// The program's item in the desktop's tray; removed when destroyed. Main thread.
class StatusItem {
 public:
  virtual ~StatusItem() = default;

  virtual void setMenuTitle(std::size_t index, const std::string& title) = 0;
  /// In one or more lines.
  virtual void setToolTip(const std::string& toolTip) = 0;
  virtual StatusItemVisibility visibility() const = 0;
  /// Calls back when a tray came or went. That a tray took the item in need not be reported.
  [[nodiscard]] virtual Subscription onVisibilityMayHaveChanged(std::function<void()> observer) const = 0;
};

class StatusBar {
 public:
  virtual ~StatusBar() = default;

  virtual std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) = 0;
};

}  // namespace rondora

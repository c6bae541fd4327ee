#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
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

/// The status item that the system is to make; a backend maps it to its tray.
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
  /// Why the user cannot see the item; nothing when the user can.
  virtual std::optional<std::string> visibilityProblem() const = 0;
  /// Called some time after a tray appeared, vanished or accepted the item, once its state has settled.
  [[nodiscard]] virtual Subscription onVisibilityChanged(std::function<void()> observer) = 0;
};

class StatusBar {
 public:
  virtual ~StatusBar() = default;

  virtual std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) = 0;
};

}  // namespace rondora

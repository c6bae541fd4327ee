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

/// The status item as the system is to make it; a backend maps what its tray knows.
struct StatusItemDescription {
  /// The system keeps the item's place under this name.
  std::string autosaveName;
  StatusItemLength length = StatusItemLength::square;
  StatusItemImagePosition imagePosition = StatusItemImagePosition::imageOnly;
  /// What screen readers call the item's kind.
  StatusItemRole role = StatusItemRole::menuButton;
  std::string toolTip;
  std::string accessibilityLabel;
  std::vector<MenuEntry> menu;
};

/// The program's place in the desktop's tray. Goes when it is destroyed. Main thread.
class StatusItem {
 public:
  virtual ~StatusItem() = default;

  virtual void setMenuTitle(std::size_t index, const std::string& title) = 0;
  /// Why the user cannot see the item; nothing when the user can.
  virtual std::optional<std::string> visibilityProblem() const = 0;
  /// Calls back some time after a tray came, went or took the item in, once things have settled.
  [[nodiscard]] virtual Subscription onVisibilityChanged(std::function<void()> observer) = 0;
};

class StatusBar {
 public:
  virtual ~StatusBar() = default;

  virtual std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) = 0;
};

}  // namespace rondora

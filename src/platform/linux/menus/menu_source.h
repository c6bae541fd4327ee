#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/menus/menu_key.h"

namespace rondora::menus {

/// An item of a menu, with the items of its submenu, or a menu bar. As it was when it was read. Each source adds what
/// it needs to find the item again.
struct MenuNode {
  MenuNode() = default;
  virtual ~MenuNode() = default;
  MenuNode(const MenuNode&) = delete;
  MenuNode& operator=(const MenuNode&) = delete;

  std::string title;
  bool isEnabled = true;
  std::optional<MenuKey> key;
  bool hasSubmenu = false;
  /// Nothing until they were read.
  std::optional<std::vector<std::shared_ptr<MenuNode>>> items;
  /// Some items are missing because they could not be read in time.
  bool isCut = false;
};
using MenuNodeRef = std::shared_ptr<MenuNode>;

/// Enough for every menu that a person reads; a broken application may name any number.
inline constexpr std::size_t kMaxItems = 2000;

/// One way to read and press the menus of another application. One thread.
class MenuSource {
 public:
  virtual ~MenuSource() = default;

  /// Fills `items` of the nodes, for all of them together in at most `seconds`, without separators and items that are
  /// hidden. Marks nodes as cut where that was not enough time. The application is not asked again once it has hung.
  virtual void expand(std::span<const MenuNodeRef> nodes, double seconds) = 0;
  /// False for a disabled item and when the application does not take the request in time.
  virtual bool press(MenuNode& node, double seconds) = 0;
};

}  // namespace rondora::menus

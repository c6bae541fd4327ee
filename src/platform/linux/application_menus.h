#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/accessibility.h"

namespace rondora {

/// What a window says about the application behind it. Texts are empty where the window names none.
struct MenuBarOwner {
  /// As the system counts processes; 0 when unknown.
  std::int32_t processIdentifier = 0;
  std::uint32_t window = 0;
  /// Of the process's windows, the owner's first, then the most recently active.
  std::vector<std::string> titles;
  std::string busName;          // _GTK_UNIQUE_BUS_NAME
  std::string applicationPath;  // _GTK_APPLICATION_OBJECT_PATH
  std::string windowPath;       // _GTK_WINDOW_OBJECT_PATH
  std::string menuBarPath;      // _GTK_MENUBAR_OBJECT_PATH
};

/// The menus that applications publish. One worker thread.
class ApplicationMenus {
 public:
  virtual ~ApplicationMenus() = default;

  /// The menu bar as an element; null when the application publishes none.
  virtual AXElementRef menuBar(const MenuBarOwner& owner) = 0;
  /// As Accessibility::prepareToRead.
  virtual void prepareToRead(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                             double seconds) = 0;
};

}  // namespace rondora

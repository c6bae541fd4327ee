#pragma once

#include <gio/gio.h>

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/owned.h"

namespace rondora::live {

/// A panel that shows status items of the session bus: it keeps the list of items itself, and a test sees and uses
/// their menus as its user would. It is there when the constructor returns and gone after the destructor.
class StatusNotifierHost {
 public:
  /// Throws std::runtime_error when the bus or the name cannot be had.
  explicit StatusNotifierHost(const std::string& busAddress);
  ~StatusNotifierHost();
  StatusNotifierHost(const StatusNotifierHost&) = delete;
  StatusNotifierHost& operator=(const StatusNotifierHost&) = delete;

  /// Items that have announced themselves and are still there.
  std::size_t itemCount();
  /// The entries of the last item's menu, an empty text for a separator; nothing without an item.
  std::vector<std::string> menuLabels();
  /// Clicks the entry. False when there is none.
  bool choose(const std::string& label);

 private:
  template <class T>
  using Owned = UniqueCPtr<T, g_object_unref>;
  struct Item {
    std::string owner;
    std::string path;
  };
  struct MenuEntry {
    int id = 0;
    std::string label;
  };
  struct Callbacks;

  void announce();
  GVariant* call(const std::string& owner, const std::string& path, const char* interface, const char* method,
                 GVariant* arguments);
  std::optional<Item> menu();
  std::vector<MenuEntry> entriesOf(const Item& menu);

  UniqueCPtr<GMainContext, g_main_context_unref> context_;
  UniqueCPtr<GMainLoop, g_main_loop_unref> loop_;
  Owned<GDBusConnection> bus_;
  std::mutex mutex_;
  std::vector<Item> items_;
  /// Answers the items while the test waits for something else.
  std::thread thread_;
};

}  // namespace rondora::live

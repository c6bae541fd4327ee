#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/weak_self.h"
#include "commands/app_menu_command_reader.h"
#include "commands/queue_readings.h"
#include "platform/accessibility.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/serial_queue.h"

namespace rondora {

/// Lists the menu commands of a running application, from which the user makes its set. Main thread.
class AppMenuCatalog {
 public:
  struct Command {
    /// Titles from the menu bar down to the command.
    std::vector<std::string> path;
    std::optional<MenuShortcut> shortcut;
    bool isEnabled = true;
    friend bool operator==(const Command&, const Command&) = default;
  };

  struct Listing {
    /// Those with a key equivalent first, each group in the order of the menus, each command once.
    std::vector<Command> commands;
    /// Nothing was left out for lack of time or because something else needed the queue.
    bool isComplete = false;
  };

  /// The references must outlive the catalog.
  struct Services {
    MainQueue& mainQueue;
    const Clock& clock;
    /// Destroyed before the catalog.
    SerialQueue& queue;
    QueueReadings& readings;
    /// Used on the queue only.
    Accessibility& accessibility;
  };

  explicit AppMenuCatalog(const Services& services) : services_(services) {}

  /// Calls `completion` once, on a later turn of the main loop; never after the catalog's end.
  void list(std::int32_t processIdentifier, std::function<void(Listing)> completion);

 private:
  Services services_;
  WeakSelf<AppMenuCatalog> weakSelf_{this};
};

}  // namespace rondora

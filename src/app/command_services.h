#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/app_menu_catalog.h"
#include "commands/application_snapshot_reader.h"
#include "commands/pie_sub_action_resolver.h"
#include "commands/pie_sub_action_runner.h"

namespace rondora {

/// The objects that find and run the commands of applications. Main thread.
struct CommandServices {
  /// The references must outlive the object.
  struct Ports {
    Workspace& workspace;
    const Screens& screens;
    MainQueue& mainQueue;
    const Clock& clock;
    const PermissionService& permissions;
    Log& log;
    Accessibility& accessibility;
    const LocalizationStore& localization;
    std::function<std::string(const MenuShortcut&)> keyEquivalent;
    std::function<std::vector<AppSubMenuEntry>(std::string_view bundleIdentifier)> entries;
    PieSubActionRunner::Ended ended;
  };

  /// `serialQueue` carries the label PieSubActionRunner::kQueueLabel.
  CommandServices(const Ports& ports, std::unique_ptr<SerialQueue> serialQueue)
      : reader(ports.accessibility, ports.clock),
        resolver({ports.workspace,
                  ports.mainQueue,
                  ports.clock,
                  *serialQueue,
                  readings,
                  reader,
                  {ports.localization, ports.keyEquivalent},
                  ports.entries}),
        runner({ports.workspace, ports.screens, ports.mainQueue, ports.clock, ports.permissions, ports.log,
                *serialQueue, readings, ports.accessibility, resolver, ports.ended}),
        catalog({ports.mainQueue, ports.clock, *serialQueue, readings, ports.accessibility}),
        queue(std::move(serialQueue)) {}
  CommandServices(const CommandServices&) = delete;
  CommandServices& operator=(const CommandServices&) = delete;
  // Ends the queue's work, for which its destructor would wait.
  ~CommandServices() {
    readings.cancel();
    runner.cancel();
  }

  QueueReadings readings;
  ApplicationSnapshotReader reader;
  PieSubActionResolver resolver;
  PieSubActionRunner runner;
  AppMenuCatalog catalog;
  /// Its destructor waits for work that uses the members above.
  std::unique_ptr<SerialQueue> queue;
};

}  // namespace rondora

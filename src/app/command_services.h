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
#include "windows/frontmost_app_waiter.h"

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
    /// Brings a running application forward; false when it could not. Without it the workspace activates it.
    std::function<bool(const RunningApplication&)> focus = {};
  };

  /// `serialQueue` carries the label PieSubActionRunner::kQueueLabel.
  CommandServices(const Ports& ports, std::unique_ptr<SerialQueue> serialQueue)
      : workspace(ports.workspace),
        clock(ports.clock),
        focus(ports.focus),
        frontmostAppWaiter(ports.workspace, ports.mainQueue, ports.clock, ports.log),
        reader(ports.accessibility, ports.clock),
        resolver({ports.workspace,
                  ports.mainQueue,
                  ports.clock,
                  *serialQueue,
                  readings,
                  reader,
                  {ports.localization, ports.keyEquivalent},
                  ports.entries}),
        runner({ports.workspace, ports.screens, ports.mainQueue, ports.clock, ports.permissions, ports.log,
                *serialQueue, readings, ports.accessibility, resolver,
                [this](const RunningApplication& application, std::function<void()> then) {
                  bringForward(application, std::move(then));
                },
                ports.ended}),
        catalog({ports.mainQueue, ports.clock, *serialQueue, readings, ports.accessibility}),
        queue(std::move(serialQueue)) {}
  CommandServices(const CommandServices&) = delete;
  CommandServices& operator=(const CommandServices&) = delete;
  // Ends the queue's work, for which its destructor would wait.
  ~CommandServices() {
    readings.cancel();
    runner.cancel();
  }

  void bringForward(const RunningApplication& application, std::function<void()> then) {
    const auto front = workspace.frontmostApplication();
    const bool isInFront = front && front->processIdentifier == application.processIdentifier;
    if (!isInFront && !(focus && focus(application))) workspace.activate(application);
    frontmostAppWaiter.poll(application.processIdentifier, clock.now() + kMaxFrontmostWait, std::move(then));
  }

  Workspace& workspace;
  const Clock& clock;
  std::function<bool(const RunningApplication&)> focus;
  FrontmostAppWaiter frontmostAppWaiter;
  QueueReadings readings;
  ApplicationSnapshotReader reader;
  PieSubActionResolver resolver;
  PieSubActionRunner runner;
  AppMenuCatalog catalog;
  /// Its destructor waits for work that uses the members above.
  std::unique_ptr<SerialQueue> queue;
};

}  // namespace rondora

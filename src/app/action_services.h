#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "actions/app_launcher.h"
#include "actions/keystroke_sender.h"
#include "platform/process_environment.h"
#include "windows/frontmost_app_waiter.h"
#include "windows/running_app_focus.h"
#include "windows/space_switcher.h"

namespace rondora {

/// The objects that run an item's action. Main thread.
struct ActionServices {
  /// The references must outlive the object.
  struct Ports {
    Workspace& workspace;
    Pasteboard& pasteboard;
    PermissionService& permissions;
    KeyEventPoster& keyEvents;
    WindowList& windowList;
    FrontProcess& frontProcess;
    Accessibility& accessibility;
    Spaces& spaces;
    SymbolicHotKeys& symbolicHotKeys;
    MainQueue& mainQueue;
    Clock& clock;
    Log& log;
    const ProcessEnvironment& environment;
  };

  /// `accessibilityQueue` carries the label RunningAppFocus::kQueueLabel.
  ActionServices(const Ports& ports, std::unique_ptr<SerialQueue> accessibilityQueue)
      : frontmostAppWaiter(ports.workspace, ports.mainQueue, ports.clock, ports.log),
        keystrokeSender({ports.permissions,
                         [this](std::optional<std::int32_t> pid, WallTime deadline, std::function<void()> then) {
                           frontmostAppWaiter.poll(pid, deadline, std::move(then));
                         },
                         ports.keyEvents, ports.workspace, ports.mainQueue, ports.clock, ports.log}),
        spaceSwitcher({ports.spaces, ports.symbolicHotKeys, ports.keyEvents, ports.clock, ports.log}),
        runningAppFocus({ports.workspace, ports.windowList, ports.frontProcess, ports.permissions, ports.accessibility,
                         spaceSwitcher, ports.clock, ports.log},
                        std::move(accessibilityQueue)),
        appLauncher({ports.workspace, ports.pasteboard, keystrokeSender, ports.mainQueue, ports.clock, ports.log,
                     [this](const RunningApplication& application) { return runningAppFocus.focus(application); },
                     ports.environment.bundleIdentifier()}) {}

  FrontmostAppWaiter frontmostAppWaiter;
  KeystrokeSender keystrokeSender;
  SpaceSwitcher spaceSwitcher;
  RunningAppFocus runningAppFocus;
  AppLauncher appLauncher;
};

}  // namespace rondora

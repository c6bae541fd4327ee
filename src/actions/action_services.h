#pragma once

#include <memory>

#include "actions/app_launcher.h"
#include "actions/frontmost_app_waiter.h"
#include "actions/keystroke_sender.h"
#include "actions/running_app_focus.h"
#include "actions/space_switcher.h"

namespace rondora {

/// Everything that an item's action goes through. Main thread.
struct ActionServices {
  /// All outlive this.
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
  };

  /// `accessibilityQueue` carries the label RunningAppFocus::kQueueLabel.
  ActionServices(const Ports& ports, std::unique_ptr<SerialQueue> accessibilityQueue)
      : frontmostAppWaiter(ports.workspace, ports.mainQueue, ports.clock, ports.log),
        keystrokeSender({ports.permissions, frontmostAppWaiter, ports.keyEvents, ports.workspace, ports.mainQueue,
                         ports.clock, ports.log}),
        spaceSwitcher({ports.spaces, ports.symbolicHotKeys, ports.keyEvents, ports.clock, ports.log}),
        runningAppFocus({ports.workspace, ports.windowList, ports.frontProcess, ports.permissions, ports.accessibility,
                         spaceSwitcher, ports.log},
                        std::move(accessibilityQueue)),
        appLauncher(ports.workspace, ports.pasteboard, runningAppFocus, keystrokeSender) {}

  FrontmostAppWaiter frontmostAppWaiter;
  KeystrokeSender keystrokeSender;
  SpaceSwitcher spaceSwitcher;
  RunningAppFocus runningAppFocus;
  AppLauncher appLauncher;
};

}  // namespace rondora

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "actions/action_failure.h"
#include "actions/keystroke_sender.h"
#include "actions/macos_system_action_runner.h"
#include "actions/pending_launches.h"
#include "model/menu_action.h"
#include "model/pie_menu_item.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/pasteboard.h"
#include "platform/workspace.h"

namespace rondora {

/// Runs the actions of items. A failure ends the action. Main thread.
class AppLauncher {
 public:
  /// Brings a running application to the front; false when it cannot.
  using Focus = std::function<bool(const RunningApplication&)>;

  /// The references must outlive the object.
  struct Services {
    Workspace& workspace;
    Pasteboard& pasteboard;
    KeystrokeSender& keystrokeSender;
    MainQueue& mainQueue;
    const Clock& clock;
    Log& log;
    Focus focus;
    std::string ownBundleIdentifier;
  };

  explicit AppLauncher(const Services& services);

  /// Keystrokes go to the target process, or to the frontmost one when there is none. Calls `ended` once, at once or
  /// later; never for an action that is empty or that no system carries out, nor for an application that is already
  /// starting.
  void execute(const PieMenuItem& item, std::optional<std::int32_t> targetPID, const ActionEnded& ended = {});
  /// The first live instance that is an ordinary application, in the platform's order.
  std::optional<RunningApplication> runningApplication(std::string_view bundleIdentifier) const;

 private:
  void launch(std::string_view bundleIdentifier, const ActionEnded& ended);
  void open(std::string_view bundleIdentifier, const ApplicationLocation& location, const ActionEnded& ended);
  std::string nameOf(std::string_view bundleIdentifier) const;
  ActionFailure missing(std::string_view bundleIdentifier) const;
  std::optional<ActionFailure> openUrl(const std::string& url);
  void copySnippet(std::string_view text);

  Services services_;
  MacOSSystemActionRunner systemActionRunner_;
  PendingLaunches pendingLaunches_;
};

}  // namespace rondora

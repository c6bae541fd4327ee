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
  AppLauncher(Workspace& workspace, Pasteboard& pasteboard, Focus focus, KeystrokeSender& keystrokeSender,
              const Clock& clock, Log& log);

  /// Keystrokes go to the target process, or to the frontmost one when there is none. Calls `ended` once, at once or
  /// later; never for an action that is empty or that no system carries out.
  void execute(const PieMenuItem& item, std::optional<std::int32_t> targetPID, const ActionEnded& ended = {});
  /// Brings a running instance forward, otherwise opens the application, once until its window appears (see
  /// PendingLaunches).
  std::optional<ActionFailure> launch(std::string_view bundleIdentifier);
  /// The first live instance that is an ordinary application, in the platform's order.
  std::optional<RunningApplication> runningApplication(std::string_view bundleIdentifier) const;

 private:
  ActionFailure missing(std::string_view bundleIdentifier) const;
  std::optional<ActionFailure> openUrl(const std::string& url);
  void copySnippet(std::string_view text);

  Workspace& workspace_;
  Pasteboard& pasteboard_;
  Focus focus_;
  KeystrokeSender& keystrokeSender_;
  MacOSSystemActionRunner systemActionRunner_;
  PendingLaunches pendingLaunches_;
  Log& log_;
};

}  // namespace rondora

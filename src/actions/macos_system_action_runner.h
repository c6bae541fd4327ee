#pragma once

#include <string_view>

#include "actions/action_failure.h"
#include "model/menu_action.h"
#include "platform/workspace.h"

namespace rondora {

/// Runs the system actions by opening the applications behind them. Main thread.
class MacOSSystemActionRunner {
 public:
  explicit MacOSSystemActionRunner(Workspace& workspace) : workspace_(workspace) {}

  /// The kinds without an application of their own are accepted and do nothing; `ended` is not called for them.
  void run(MacOSSystemActionKind kind, const ActionEnded& ended = {});
  /// There is an application that carries out the action.
  bool canRun(MacOSSystemActionKind kind) const;
  /// False when no application lies at `path`, or it cannot be opened.
  bool openApplicationAt(std::string_view path);

 private:
  Workspace& workspace_;
};

}  // namespace rondora

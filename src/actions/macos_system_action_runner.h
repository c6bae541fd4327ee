#pragma once

#include <string_view>

#include "model/menu_action.h"
#include "platform/workspace.h"

namespace rondora {

/// Runs the system actions by opening the applications behind them. Main thread.
class MacOSSystemActionRunner {
 public:
  explicit MacOSSystemActionRunner(Workspace& workspace) : workspace_(workspace) {}

  /// The kinds without an application of their own are accepted and do nothing.
  void run(MacOSSystemActionKind kind);
  /// Does nothing when no application lies at `path`.
  void openApplicationAt(std::string_view path);

 private:
  Workspace& workspace_;
};

}  // namespace rondora

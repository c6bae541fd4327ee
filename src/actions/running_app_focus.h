#pragma once

#include "platform/workspace.h"

namespace rondora {

/// Brings a running application forward. Main thread.
class RunningAppFocus {
 public:
  explicit RunningAppFocus(Workspace& workspace) : workspace_(workspace) {}

  /// False when the application could not be made frontmost; the caller then opens it instead.
  bool focus(const RunningApplication& application);

 private:
  Workspace& workspace_;
};

}  // namespace rondora

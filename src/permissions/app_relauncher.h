#pragma once

#include "platform/application_shell.h"

namespace rondora {

/// Restarts the program, for a permission that takes effect only in a new process. Main thread.
class AppRelauncher {
 public:
  explicit AppRelauncher(ApplicationShell& shell) : shell_(shell) {}

  /// Opens a new instance and ends this one afterwards, also when the new one did not open.
  void relaunch() {
    shell_.openNewInstance([&shell = shell_] { shell.terminate(); });
  }

 private:
  ApplicationShell& shell_;
};

}  // namespace rondora

#pragma once

#include "platform/application_shell.h"
#include "platform/main_queue.h"

namespace rondora {

/// Restarts the program, for a permission that takes effect only in a new process. Main thread.
class AppRelauncher {
 public:
  AppRelauncher(ApplicationShell& shell, MainQueue& mainQueue) : shell_(shell), mainQueue_(mainQueue) {}

  /// Opens a new instance and ends this one afterwards, also when the new one did not open.
  void relaunch() {
    shell_.openOwnApplication(
        {.createsNewApplicationInstance = true, .activates = false},
        [&shell = shell_, &mainQueue = mainQueue_] { mainQueue.async([&shell] { shell.terminate(); }); });
  }

 private:
  ApplicationShell& shell_;
  MainQueue& mainQueue_;
};

}  // namespace rondora

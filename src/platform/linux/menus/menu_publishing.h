#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/menus/bus_connection.h"
#include "platform/serial_queue.h"
#include "platform/workspace.h"

namespace rondora::menus {

/// Has applications publish their menus on the accessibility bus, and knows which do not. Main thread; the buses are
/// used on the queue.
class MenuPublishing {
 public:
  using RunningApplications = std::function<std::vector<RunningApplication>()>;

  MenuPublishing(std::unique_ptr<SerialQueue> queue, RunningApplications running);
  /// Waits for the queue.
  ~MenuPublishing();

  /// Switches the accessibility bus on, and off again when it was off before and no screen reader listens. Applications
  /// of some toolkits publish menus only when they start after that.
  void want(bool wants);
  /// The names of running applications that publish nothing until they are started anew, as of the last call, which
  /// begins another look. Never waits.
  std::vector<std::string> applicationsWithoutMenus();

 private:
  class Worker;

  RunningApplications running_;
  bool wants_ = false;
  std::unique_ptr<Worker> worker_;
  std::unique_ptr<SerialQueue> queue_;  // ends first
};

}  // namespace rondora::menus

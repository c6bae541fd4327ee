#pragma once

#include <memory>

#include "platform/main_queue.h"

namespace rondora::macos {

/// The main dispatch queue, and timers of the main run loop in its common modes, so that they also run while a menu is
/// open or a window is dragged. Created and destroyed on the main thread; afterwards its work does nothing.
class RunLoopQueue final : public MainQueue {
 public:
  void async(Work work) override;
  void after(double seconds, Work work) override;
  Subscription workItem(double seconds, Work work) override;
  Subscription timer(double interval, double tolerance, Work work) override;

 private:
  /// Ends with the queue.
  using Life = std::shared_ptr<const char>;

  Work whileAlive(Work work) const;

  Life life_ = std::make_shared<const char>();
};

}  // namespace rondora::macos

#pragma once

#include <functional>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/main_queue.h"

namespace rondora {

/// Serves the requests of other programs one at a time, with a pause after each; of those that arrive meanwhile only
/// the latest is served. A flood then costs no more than its messages. Main thread.
class RequestGate {
 public:
  /// `mainQueue` must outlive the object; destroying it drops the waiting request.
  explicit RequestGate(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

  /// Runs `serve` on a later turn.
  void request(std::function<void()> serve);

 private:
  void next(double seconds);

  MainQueue& mainQueue_;
  std::function<void()> latest_;
  Subscription turn_;
  WeakSelf<RequestGate> weakSelf_{this};
};

}  // namespace rondora

#pragma once

#include <dispatch/dispatch.h>

#include <atomic>
#include <memory>
#include <string>

#include "platform/serial_queue.h"

namespace rondora::macos {

/// A serial dispatch queue of user-interactive quality of service. A dispatch queue runs everything that it was given,
/// so what waits when this is destroyed is told to do nothing.
class DispatchSerialQueue final : public SerialQueue {
 public:
  explicit DispatchSerialQueue(const std::string& label);
  ~DispatchSerialQueue() override;
  DispatchSerialQueue(const DispatchSerialQueue&) = delete;
  DispatchSerialQueue& operator=(const DispatchSerialQueue&) = delete;

  void async(Work work) override;

 private:
  using Ending = std::shared_ptr<std::atomic<bool>>;
  struct Item;

  static void run(void* item);

  dispatch_queue_t queue_;
  Ending isEnding_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace rondora::macos

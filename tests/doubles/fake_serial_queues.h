#pragma once

#include <deque>
#include <memory>
#include <utility>

#include "platform/serial_queue.h"

namespace rondora {

/// Serial queues whose work waits until the test runs it. Outlives the queues.
class FakeSerialQueues {
 public:
  std::unique_ptr<SerialQueue> make() { return std::make_unique<Queue>(work_); }
  void run() {
    while (!work_.empty()) {
      const auto next = std::move(work_.front());
      work_.pop_front();
      next();
    }
  }

 private:
  using Waiting = std::deque<SerialQueue::Work>;

  class Queue final : public SerialQueue {
   public:
    explicit Queue(Waiting& work) : work_(work) {}
    ~Queue() override { work_.clear(); }
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;
    void async(Work work) override { work_.push_back(std::move(work)); }

   private:
    Waiting& work_;
  };

  Waiting work_;
};

}  // namespace rondora

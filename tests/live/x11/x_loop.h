#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>

#include "platform/linux/x11/x_connection.h"
#include "platform/main_queue.h"

namespace rondora::live {

/// A main loop over nothing but an X connection.
class XLoop : public MainQueue {
 public:
  explicit XLoop(xcb_connection_t* connection) : connection_(connection) {}

  void async(Work work) override { add(0, std::move(work)); }
  void after(double seconds, Work work) override { add(seconds, std::move(work)); }
  Subscription workItem(double seconds, Work work) override;
  Subscription timer(double interval, double tolerance, Work work) override;

  /// Runs until the condition holds; false when it takes too long.
  bool until(x11::XConnection& events, const std::function<bool()>& condition);
  /// Runs until everything that the server has said so far is handled.
  void drain(x11::XConnection& events);

  int errorCount() const { return errorCount_; }

 private:
  using Clock = std::chrono::steady_clock;
  struct Item {
    Clock::time_point due;
    Work work;
  };
  std::weak_ptr<Item> add(double seconds, Work work);
  bool handleEvents(x11::XConnection& events);
  bool runDueWork();

  xcb_connection_t* connection_;
  std::list<std::shared_ptr<Item>> items_;
  int errorCount_ = 0;
};

}  // namespace rondora::live

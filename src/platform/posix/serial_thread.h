#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "platform/serial_queue.h"

namespace rondora::desktop {

/// A serial queue on its own thread, which starts with the first work.
class SerialThread final : public SerialQueue {
 public:
  /// Debuggers and process lists show the last 15 bytes of the label.
  explicit SerialThread(std::string label) : label_(std::move(label)) {}
  ~SerialThread() override;
  SerialThread(const SerialThread&) = delete;
  SerialThread& operator=(const SerialThread&) = delete;

  void async(Work work) override;

 private:
  void run();

  std::string label_;
  std::mutex mutex_;
  std::condition_variable wakeUp_;
  std::deque<Work> waiting_;
  bool isEnding_ = false;
  std::thread thread_;
};

}  // namespace rondora::desktop

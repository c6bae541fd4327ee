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
  /// Names the calling thread for debuggers and process lists; systems differ in how. Null leaves it unnamed.
  using NameThread = void (*)(const std::string& label);

  explicit SerialThread(std::string label, NameThread nameThread = nullptr)
      : label_(std::move(label)), nameThread_(nameThread) {}
  ~SerialThread() override;
  SerialThread(const SerialThread&) = delete;
  SerialThread& operator=(const SerialThread&) = delete;

  void async(Work work) override;

 private:
  void run();

  std::string label_;
  NameThread nameThread_;
  std::mutex mutex_;
  std::condition_variable wakeUp_;
  std::deque<Work> waiting_;
  bool isEnding_ = false;
  std::thread thread_;
};

}  // namespace rondora::desktop

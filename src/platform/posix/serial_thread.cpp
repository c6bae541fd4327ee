#include "platform/posix/serial_thread.h"

#include <utility>

namespace rondora::desktop {

SerialThread::~SerialThread() {
  std::deque<Work> dropped;
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    dropped.swap(waiting_);
  }
  wakeUp_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void SerialThread::async(Work work) {
  const std::lock_guard lock(mutex_);
  if (isEnding_) return;
  waiting_.push_back(std::move(work));
  if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
  wakeUp_.notify_one();
}

void SerialThread::run() {
  if (nameThread_ != nullptr) nameThread_(label_);
  std::unique_lock lock(mutex_);
  while (true) {
    wakeUp_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
    if (waiting_.empty()) return;
    const Work work = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

}  // namespace rondora::desktop

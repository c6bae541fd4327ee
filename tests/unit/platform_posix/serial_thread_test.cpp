#include "platform/posix/serial_thread.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace rondora::desktop {
namespace {

constexpr int kProducers = 4;
constexpr int kWorkEach = 200;

TEST(SerialThreadTest, RunsTheWorkOfEachProducerInOrder) {
  SerialThread queue("order");
  std::vector<std::vector<int>> seen(kProducers);  // touched by the queue's thread only
  std::vector<std::thread> producers;
  for (std::size_t producer = 0; producer < kProducers; ++producer) {
    producers.emplace_back([&, producer] {
      for (int i = 0; i < kWorkEach; ++i) queue.async([&seen, producer, i] { seen[producer].push_back(i); });
    });
  }
  for (std::thread& producer : producers) producer.join();
  std::promise<void> done;
  queue.async([&done] { done.set_value(); });
  done.get_future().wait();
  for (const auto& numbers : seen) {
    ASSERT_EQ(numbers.size(), static_cast<std::size_t>(kWorkEach));
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
  }
}

/// A queue that is ending destroys work at once.
bool isEnding(SerialThread& queue) {
  auto captured = std::make_shared<int>();
  const std::weak_ptr<int> isKept = captured;
  queue.async([captured = std::move(captured)] {});
  return isKept.expired();
}

TEST(SerialThreadTest, DestructorWaitsForRunningWorkAndDropsTheRest) {
  auto queue = std::make_unique<SerialThread>("end");
  std::promise<void> started;
  bool isFinished = false, hasRunLate = false;
  queue->async([&, &queue = *queue] {
    started.set_value();
    while (!isEnding(queue)) std::this_thread::yield();
    isFinished = true;
  });
  queue->async([&] { hasRunLate = true; });
  started.get_future().wait();
  queue.reset();
  EXPECT_TRUE(isFinished);
  EXPECT_FALSE(hasRunLate);
}

}  // namespace
}  // namespace rondora::desktop

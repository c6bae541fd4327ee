#include "platform/qt/qt_main_queue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <optional>
#include <string>
#include <thread>

#include "desktop/wait.h"
#include "platform/qt/event_turns.h"

namespace rondora {
namespace {

class QtMainQueueTest : public testing::Test {
 protected:
  /// Runs all work that is due within `seconds`.
  void settle(double seconds) {
    bool reached = false;
    queue->after(seconds, [&] { reached = true; });
    ASSERT_TRUE(handleEventsUntil([&] { return reached; }, live::kPatience));
  }

  std::optional<QtMainQueue> queue{std::in_place};
  std::string story;
};

TEST_F(QtMainQueueTest, QueuedWorkRunsLaterInOrderOnTheMainThread) {
  const QThread* where = nullptr;
  queue->async([&] { story += 'a'; });
  queue->after(0.001, [&] { story += 'z'; });
  std::thread([&] { queue->async([&] { where = QThread::currentThread(); }); }).join();
  queue->async([&] { story += 'b'; });
  EXPECT_EQ(story, "");
  queue->runWaiting();
  EXPECT_EQ(story, "ab");
  EXPECT_EQ(where, QCoreApplication::instance()->thread());
  EXPECT_TRUE(handleEventsUntil([&] { return story == "abz"; }, live::kPatience));
}

TEST_F(QtMainQueueTest, WorkItemsCanBeCancelledEvenByThemselves) {
  Subscription cancelled = queue->workItem(0, [&] { story += 'x'; });
  Subscription kept = queue->workItem(0.01, [&] {
    kept.reset();
    story += 'k';
  });
  queue->after(0.02, [&] { story += 'a'; });
  cancelled.reset();
  settle(0.03);
  EXPECT_EQ(story, "ka");
}

TEST_F(QtMainQueueTest, TimersTickUntilResetAndNeverEarly) {
  QElapsedTimer clock;
  clock.start();
  int ticks = 0;
  Subscription timer = queue->timer(0.016, 0.001, [&] {
    if (++ticks == 5) timer.reset();
  });
  EXPECT_TRUE(handleEventsUntil([&] { return ticks == 5; }, live::kPatience));
  EXPECT_GE(clock.elapsed(), 5 * 16 - 5);
  settle(0.05);
  EXPECT_EQ(ticks, 5);
}

TEST_F(QtMainQueueTest, DestructionDropsQueuedWork) {
  queue->async([&] { story += 'x'; });
  queue->after(0, [&] { story += 'x'; });
  Subscription item = queue->workItem(0, [&] { story += 'x'; });
  Subscription timer = queue->timer(0.001, 0, [&] { story += 'x'; });
  queue.emplace();
  item.reset();
  settle(0.02);
  EXPECT_EQ(story, "");
}

}  // namespace
}  // namespace rondora

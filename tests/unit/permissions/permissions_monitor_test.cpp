#include "permissions/permissions_monitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;

/// Passes everything on and remembers how the last timer was asked for.
class TimerWatch final : public MainQueue {
 public:
  explicit TimerWatch(MainQueue& queue) : queue_(queue) {}

  void async(Work work) override { queue_.async(std::move(work)); }
  void after(double seconds, Work work) override { queue_.after(seconds, std::move(work)); }
  Subscription workItem(double seconds, Work work) override { return queue_.workItem(seconds, std::move(work)); }
  Subscription timer(double timerInterval, double timerTolerance, Work work) override {
    interval = timerInterval;
    tolerance = timerTolerance;
    return queue_.timer(timerInterval, timerTolerance, std::move(work));
  }

  double interval = 0;
  double tolerance = 0;

 private:
  MainQueue& queue_;
};

class PermissionsMonitorTest : public ::testing::Test {
 protected:
  PermissionsMonitorTest() {
    desktop_.permissions.trusted = false;
    desktop_.permissions.mayListen = false;
  }
  void create() {
    monitor_ = std::make_unique<PermissionsMonitor>(desktop_.permissions, queue_, desktop_.shell);
    subscription_ = monitor_->snapshot().subscribe([this](const auto& snapshot) { published_.push_back(snapshot); });
  }

  FakePlatform desktop_;
  TimerWatch queue_{desktop_.time};
  std::unique_ptr<PermissionsMonitor> monitor_;
  std::vector<PermissionsSnapshot> published_;
  Subscription subscription_;
};

TEST_F(PermissionsMonitorTest, PublishesChangesAndNothingElse) {
  create();
  monitor_->refresh();
  desktop_.permissions.trusted = true;
  desktop_.shell.becomeActive();
  desktop_.shell.becomeActive();
  desktop_.permissions.mayListen = true;
  monitor_->refresh();
  EXPECT_THAT(published_, ElementsAre(PermissionsSnapshot{false, false}, PermissionsSnapshot{true, false},
                                      PermissionsSnapshot{true, true}));
}

TEST_F(PermissionsMonitorTest, LooksEverySecondUntilAllIsGrantedAndThenEveryFive) {
  create();
  EXPECT_DOUBLE_EQ(queue_.interval, 1.0);
  EXPECT_DOUBLE_EQ(queue_.tolerance, 0.2);
  desktop_.time.advance(0.9);
  desktop_.permissions = FakePermissionService();
  EXPECT_EQ(published_.size(), 1U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 2U);
  EXPECT_DOUBLE_EQ(queue_.interval, 5.0);
  EXPECT_DOUBLE_EQ(queue_.tolerance, 1.0);

  desktop_.permissions.mayListen = false;
  desktop_.time.advance(4.8);
  EXPECT_EQ(published_.size(), 2U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 3U);
  EXPECT_DOUBLE_EQ(queue_.interval, 1.0);
}

TEST_F(PermissionsMonitorTest, KeepsOneTimerHoweverOftenItLooksAndNoneAfterItsEnd) {
  create();
  for (int i = 0; i < 3; ++i) monitor_->refresh();
  desktop_.time.advance(3);
  EXPECT_EQ(desktop_.time.pendingCount(), 1U);
  monitor_.reset();
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
  desktop_.shell.becomeActive();
}

}  // namespace
}  // namespace rondora

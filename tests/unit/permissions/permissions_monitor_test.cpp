#include "permissions/permissions_monitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::ElementsAre;

class PermissionsMonitorTest : public ::testing::Test {
 protected:
  PermissionsMonitorTest() {
    desktop_.permissions.trusted = false;
    desktop_.permissions.mayListen = false;
  }
  void create() {
    monitor_ = std::make_unique<PermissionsMonitor>(desktop_.permissions, desktop_.time, desktop_.shell);
    subscription_ = monitor_->snapshot().subscribe([this](const auto& snapshot) { published_.push_back(snapshot); });
  }

  FakePlatform desktop_;
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
  EXPECT_DOUBLE_EQ(desktop_.time.lastTimerInterval(), 1.0);
  EXPECT_DOUBLE_EQ(desktop_.time.lastTimerTolerance(), 0.2);
  desktop_.time.advance(0.9);
  desktop_.permissions = FakePermissionService();
  EXPECT_EQ(published_.size(), 1U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 2U);
  EXPECT_DOUBLE_EQ(desktop_.time.lastTimerInterval(), 5.0);
  EXPECT_DOUBLE_EQ(desktop_.time.lastTimerTolerance(), 1.0);

  desktop_.permissions.mayListen = false;
  desktop_.time.advance(4.8);
  EXPECT_EQ(published_.size(), 2U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 3U);
  EXPECT_DOUBLE_EQ(desktop_.time.lastTimerInterval(), 1.0);
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

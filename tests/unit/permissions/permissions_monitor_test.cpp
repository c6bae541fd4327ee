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
    desktop_.permissions.trusted = desktop_.permissions.mayListen = false;
    monitor_ = std::make_unique<PermissionsMonitor>(desktop_.permissions, desktop_.time, desktop_.shell);
    subscription_ = monitor_->snapshot().subscribe([this](const auto& snapshot) { published_.push_back(snapshot); });
  }

  FakePlatform desktop_;
  std::unique_ptr<PermissionsMonitor> monitor_;
  std::vector<PermissionsSnapshot> published_;
  Subscription subscription_;
};

TEST_F(PermissionsMonitorTest, PublishesChangesAndNothingElse) {
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
  desktop_.time.advance(0.9);
  desktop_.permissions = FakePermissionService();
  EXPECT_EQ(published_.size(), 1U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 2U);
  desktop_.permissions.mayListen = false;
  desktop_.time.advance(4.8);
  EXPECT_EQ(published_.size(), 2U);
  desktop_.time.advance(0.2);
  EXPECT_EQ(published_.size(), 3U);
  desktop_.permissions.mayListen = true;
  desktop_.time.advance(1);
  EXPECT_EQ(published_.size(), 4U);
}

TEST_F(PermissionsMonitorTest, KeepsOneTimerHoweverOftenItLooksAndNoneAfterItsEnd) {
  for (int i = 0; i < 3; ++i) monitor_->refresh();
  desktop_.time.advance(3);
  EXPECT_EQ(desktop_.time.pendingCount(), 1U);
  monitor_.reset();
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
  desktop_.shell.becomeActive();
}

}  // namespace
}  // namespace rondora

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

TEST_F(PermissionsMonitorTest, PublishesChangesOnly) {
  monitor_->refresh();
  desktop_.permissions.trusted = true;
  desktop_.shell.becomeActive();
  desktop_.shell.becomeActive();
  desktop_.permissions.mayListen = true;
  monitor_->refresh();
  EXPECT_THAT(published_, ElementsAre(PermissionsSnapshot{false, false}, PermissionsSnapshot{true, false},
                                      PermissionsSnapshot{true, true}));
}

TEST_F(PermissionsMonitorTest, PollsFasterUntilAllIsGranted) {
  const auto publishedAfter = [this](double seconds) {
    desktop_.time.advance(seconds);
    return published_.size();
  };
  for (int i = 0; i < 3; ++i) monitor_->refresh();
  EXPECT_EQ(publishedAfter(0.9), 1U);
  desktop_.permissions = FakePermissionService();
  EXPECT_EQ(publishedAfter(0.2), 2U);
  desktop_.permissions.mayListen = false;
  EXPECT_EQ(publishedAfter(4.8), 2U);
  EXPECT_EQ(publishedAfter(0.2), 3U);
  desktop_.permissions.mayListen = true;
  EXPECT_EQ(publishedAfter(1), 4U);
  EXPECT_EQ(desktop_.time.pendingCount(), 1U);
  monitor_.reset();
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
  desktop_.shell.becomeActive();
}

}  // namespace
}  // namespace rondora

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
    begin();
  }

  void begin() {
    published_.clear();
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
  desktop_.permissions.trusted = desktop_.permissions.mayListen = true;
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

TEST_F(PermissionsMonitorTest, ReadsOnNewsAloneWhereTheSystemTellsOfChanges) {
  desktop_.permissions.tellsOfChanges = desktop_.permissions.trusted = true;
  begin();
  EXPECT_EQ(desktop_.time.pendingCount(), 0U) << "nothing wakes the idle program";
  for (const bool mayListen : {true, false, true, false}) {
    desktop_.permissions.mayListen = mayListen;
    desktop_.permissions.mayHaveChanged.send();
    desktop_.time.advance(PermissionsMonitor::kSettleTime / 2);
  }
  desktop_.time.advance(60);
  EXPECT_EQ(published_.size(), 1U) << "a device that came and went changes nothing";
  desktop_.permissions.mayListen = true;
  desktop_.permissions.mayHaveChanged.send();
  desktop_.time.advance(PermissionsMonitor::kSettleTime);
  EXPECT_EQ(published_.back(), (PermissionsSnapshot{true, true}));
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
}

TEST_F(PermissionsMonitorTest, RequestsPromptAndThenOpenTheirPane) {
  monitor_.reset();
  const PermissionsSnapshot::Ports ports{desktop_.permissions, desktop_.workspace, desktop_.time};
  const std::string older = "x-apple.systempreferences:com.apple.preference.security?";
  const std::string newer = "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?";
  for (const bool opensOlder : {true, false}) {
    desktop_.workspace.openedUrls.clear();
    desktop_.workspace.opensUrls = opensOlder;
    PermissionsSnapshot::requestAccessibility(ports);
    PermissionsSnapshot::requestInputMonitoring(ports);
    desktop_.time.advance(0.59);
    EXPECT_TRUE(desktop_.workspace.openedUrls.empty());
    desktop_.time.advance(0.02);
    std::vector<std::string> expected;
    for (const std::string anchor : {"Privacy_Accessibility", "Privacy_ListenEvent"}) {
      expected.push_back(older + anchor);
      if (!opensOlder) expected.push_back(newer + anchor);
    }
    EXPECT_EQ(desktop_.workspace.openedUrls, expected);
  }
  EXPECT_EQ(desktop_.permissions.trustPrompts, 2);
  EXPECT_EQ(desktop_.permissions.listenRequests, 2);

  desktop_.workspace.openedUrls.clear();
  PermissionsSnapshot::requestAccessibility(ports);
  desktop_.permissions.trusted = desktop_.permissions.mayListen = true;
  PermissionsSnapshot::requestAccessibility(ports);
  PermissionsSnapshot::requestInputMonitoring(ports);
  desktop_.time.advance(1);
  EXPECT_EQ(desktop_.permissions.trustPrompts, 3) << "the last two were granted already";
  EXPECT_EQ(desktop_.permissions.listenRequests, 2);
  EXPECT_TRUE(desktop_.workspace.openedUrls.empty());
}

}  // namespace
}  // namespace rondora

#include "actions/frontmost_app_waiter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

using ::testing::IsEmpty;

class FrontmostAppWaiterTest : public ::testing::Test {
 protected:
  void poll(std::optional<std::int32_t> pid) {
    waiter_->poll(pid, desktop_.time.now() + 0.5, [this] { ++runs_; });
  }

  FakePlatform desktop_;
  std::unique_ptr<FrontmostAppWaiter> waiter_ =
      std::make_unique<FrontmostAppWaiter>(desktop_.workspace, desktop_.time, desktop_.time, desktop_.log);
  int runs_ = 0;
};

TEST_F(FrontmostAppWaiterTest, RunsAtOnceWhenThereIsNothingToWaitFor) {
  poll(std::nullopt);
  EXPECT_EQ(runs_, 1);
  poll(desktop_.workspace.start("editor").processIdentifier);
  EXPECT_EQ(runs_, 2);
  EXPECT_EQ(desktop_.time.pendingCount(), 0U);
}

TEST_F(FrontmostAppWaiterTest, RunsOnceAtTheFirstLookAfterItsTargetCameForwardWhoeverElseWaits) {
  const auto editor = desktop_.workspace.start("editor");
  desktop_.workspace.leaveAll();
  poll(editor.processIdentifier);
  poll(4711);
  desktop_.time.advance(0.21);
  desktop_.workspace.bringForward(editor.processIdentifier);
  EXPECT_EQ(runs_, 0);
  desktop_.time.advance(0.011);
  EXPECT_EQ(runs_, 1);
  EXPECT_THAT(desktop_.log.lines, IsEmpty());
  desktop_.time.advance(0.5);
  EXPECT_EQ(runs_, 2);
  desktop_.time.advance(1);
  EXPECT_EQ(runs_, 2);
}

TEST_F(FrontmostAppWaiterTest, LeavesNothingBehindThatCouldCallItAfterItsEnd) {
  poll(4711);
  waiter_.reset();
  desktop_.time.advance(1);
  EXPECT_EQ(runs_, 0);
}

}  // namespace
}  // namespace rondora

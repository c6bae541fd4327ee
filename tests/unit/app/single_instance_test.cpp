#include "app/single_instance.h"

#include <gmock/gmock.h>

#include "doubles/fake_log.h"
#include "doubles/fake_session.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using Claim = InstanceChannel::Claim;

class SingleInstanceTest : public testing::Test {
 protected:
  FakeInstanceChannel bus;
  FakeInstanceChannel lock;
  FakeLog log;
  SingleInstance instance{{&bus, &lock}, log};
};

TEST_F(SingleInstanceTest, FirstStartClaimsEveryChannel) {
  ASSERT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_TRUE(bus.isHeld && lock.isHeld);
  instance.serve({[] {}, {}, {}});
  EXPECT_TRUE(bus.served.showSettings && lock.served.showSettings);
  instance.release();
  EXPECT_FALSE(bus.isHeld || lock.isHeld);
}

TEST_F(SingleInstanceTest, SecondStartAsksTheFirstAndReleasesItsClaims) {
  lock.claims = {Claim::taken};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::handedOver);
  EXPECT_EQ(lock.asked, 1);
  EXPECT_EQ(bus.asked, 0);
  EXPECT_FALSE(bus.isHeld) << "would block the first instance's next start";
}

TEST_F(SingleInstanceTest, RelaunchAsksNoInstanceForAWindow) {
  EXPECT_EQ(instance.claim(SingleInstance::StartedBy::itself), SingleInstance::Start::first);
  instance.release();
  lock.claims = {Claim::taken};
  EXPECT_EQ(instance.claim(SingleInstance::StartedBy::itself), SingleInstance::Start::handedOver);
  EXPECT_EQ(lock.asked, 0);
  EXPECT_FALSE(bus.isHeld);
}

TEST_F(SingleInstanceTest, SilentInstanceIsReplacedOnlyOnceItHasEnded) {
  bus.answers = false;
  bus.claims = {Claim::taken, Claim::first};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_TRUE(bus.isHeld && lock.isHeld);
  bus.claims = {Claim::taken};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::unanswered);
  bus.claims = lock.claims = {Claim::unavailable};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "another instance is running and does not answer"},
                                     FakeLog::Line{LogLevel::error, "single-instance check unavailable"}));
}

}  // namespace
}  // namespace rondora

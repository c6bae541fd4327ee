#include "app/single_instance.h"

#include <gmock/gmock.h>

#include "doubles/fake_log.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Claim = InstanceChannel::Claim;

class FakeChannel final : public InstanceChannel {
 public:
  Claim claim() override {
    const Claim answer = claims.front();
    if (claims.size() > 1) claims.erase(claims.begin());
    isHeld = answer == Claim::first;
    return answer;
  }
  void release() override { isHeld = false; }
  bool askForSettings() override {
    ++asked;
    return answers;
  }
  void serve(SessionRequests requests) override { served = std::move(requests); }

  /// The answers to come; the last one stays.
  std::vector<Claim> claims{Claim::first};
  bool answers = true;
  bool isHeld = false;
  int asked = 0;
  SessionRequests served;
};

class SingleInstanceTest : public testing::Test {
 protected:
  FakeChannel bus;
  FakeChannel lock;
  FakeLog log;
  SingleInstance instance{{&bus, &lock}, log};
};

TEST_F(SingleInstanceTest, TheFirstStartIsFoundOnEveryChannel) {
  ASSERT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_TRUE(bus.isHeld && lock.isHeld);
  instance.serve({[] {}, [](std::string_view) { return false; }});
  EXPECT_TRUE(bus.served.showSettings && lock.served.showSettings);
  instance.release();
  EXPECT_FALSE(bus.isHeld || lock.isHeld);
}

TEST_F(SingleInstanceTest, ASecondStartAsksTheFirstAndKeepsNothing) {
  lock.claims = {Claim::taken};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::handedOver);
  EXPECT_EQ(lock.asked, 1);
  EXPECT_EQ(bus.asked, 0);
  EXPECT_FALSE(bus.isHeld) << "it would keep the name from the first's next start";
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SingleInstanceTest, TakesThePlaceOfAnInstanceThatIsJustEnding) {
  bus.claims = {Claim::taken, Claim::first};
  bus.answers = false;
  EXPECT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_TRUE(bus.isHeld && lock.isHeld);
}

TEST_F(SingleInstanceTest, AnInstanceThatDoesNotAnswerIsLeftAlone) {
  bus.claims = {Claim::taken};
  bus.answers = false;
  EXPECT_EQ(instance.claim(), SingleInstance::Start::unanswered);
  EXPECT_TRUE(log.contains(LogLevel::error, "another instance is running and does not answer"));
}

TEST_F(SingleInstanceTest, StartsWhereNobodyCanBeFound) {
  bus.claims = {Claim::unavailable};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_THAT(log.lines, IsEmpty());
  lock.claims = {Claim::unavailable};
  EXPECT_EQ(instance.claim(), SingleInstance::Start::first);
  EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "a second start cannot find this instance"}));
}

}  // namespace
}  // namespace rondora

#include "base/observable.h"

#include <gmock/gmock.h>

#include "base/weak_self.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SignalTest, ObserversMayComeAndGoDuringACall) {
  Signal<int> signal;
  std::vector<std::string> calls;
  Subscription second;
  Subscription late;
  const Subscription first = signal.subscribe([&](int value) {
    calls.push_back("first " + std::to_string(value));
    second.reset();
    if (!late) late = signal.subscribe([&](int each) { calls.push_back("late " + std::to_string(each)); });
  });
  second = signal.subscribe([&](int) { calls.emplace_back("second"); });

  signal.send(1);
  EXPECT_THAT(calls, ElementsAre("first 1"));
  signal.send(2);
  EXPECT_THAT(calls, ElementsAre("first 1", "first 2", "late 2"));
}

TEST(SignalTest, AnObserverMayEndItselfAndTheSignal) {
  auto signal = std::make_unique<Signal<>>();
  int calls = 0;
  Subscription own = signal->subscribe([&] {
    ++calls;
    own.reset();
    signal.reset();
  });
  signal->send();
  EXPECT_EQ(calls, 1);
}

TEST(SubscriptionTest, CancelsOnceWhenReplacedOrDestroyed) {
  std::vector<std::string> ended;
  {
    Subscription subscription([&] { ended.emplace_back("a"); });
    subscription = Subscription([&] { ended.emplace_back("b"); });
    EXPECT_THAT(ended, ElementsAre("a"));
    const Subscription moved = std::move(subscription);
    EXPECT_FALSE(subscription);  // NOLINT(bugprone-use-after-move): a moved-from subscription stands for nothing
  }
  EXPECT_THAT(ended, ElementsAre("a", "b"));
}

TEST(CurrentValueTest, GivesThePresentValueAtOnceAndEveryLaterOne) {
  CurrentValue<int> value(1);
  std::vector<int> all;
  std::vector<int> distinct;
  const Subscription everything = value.subscribe([&](const int& each) { all.push_back(each); });
  const Subscription changes =
      value.subscribe(removingDuplicates<int>([&](const int& each) { distinct.push_back(each); }));
  for (const int next : {1, 2, 2, 1}) value.send(next);
  EXPECT_THAT(all, ElementsAre(1, 1, 2, 2, 1));
  EXPECT_THAT(distinct, ElementsAre(1, 2, 1));
}

struct Owner {
  int calls = 0;
  WeakSelf<Owner> weak{this};
};

TEST(WeakSelfTest, ABoundCallbackOutlivesItsOwnerWithoutHarm) {
  auto owner = std::make_unique<Owner>();
  const auto count = owner->weak.bind([](Owner& self, int step) { return self.calls += step; });
  EXPECT_EQ(count(2), 2);
  owner.reset();
  EXPECT_EQ(count(2), 0);
}

}  // namespace
}  // namespace rondora

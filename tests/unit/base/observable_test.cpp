#include "base/observable.h"

#include <gmock/gmock.h>

namespace rondora {
namespace {

using testing::ElementsAre;

TEST(SignalTest, ObserversMayBeAddedAndRemovedDuringACall) {
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

TEST(SignalTest, ObserverMayEndItselfAndTheSignal) {
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

TEST(CurrentValueTest, RemovingDuplicatesPassesChangesOnly) {
  CurrentValue<int> value(1);
  std::vector<int> seen;
  const Subscription changes = value.subscribe(removingDuplicates<int>([&](const int& each) { seen.push_back(each); }));
  for (const int next : {1, 2, 2, 1}) value.send(next);
  EXPECT_THAT(seen, ElementsAre(1, 2, 1));
}

}  // namespace
}  // namespace rondora

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "doubles/allocation_counter.h"
#include "doubles/fake_log.h"
#include "doubles/fake_multitouch.h"
#include "doubles/fake_session.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "input/gestures/trackpad_gesture_monitor.h"

namespace rondora {
namespace {

using Contact = FakeMultitouch::Contact;

/// "id@x,y" touches, "id@x,y:6" is in state 6.
Contact contact(const std::string& text) {
  Contact made;
  char at = 0, comma = 0, colon = 0;
  std::istringstream(text) >> made.identifier >> at >> made.x >> comma >> made.y >> colon >> made.state;
  if (colon == 0) made.state = contact_record::touching;
  return made;
}

std::vector<Contact> contacts(const Words& words, std::size_t from) {
  std::vector<Contact> all;
  for (std::size_t i = from; i < words.size(); ++i) all.push_back(contact(words[i]));
  return all;
}

/// A trackpad with a recognizer for each count from 1 to 5.
struct TapStory : Story {
  TapStory() {
    for (std::int64_t count = 1; count <= 5; ++count) {
      recognizers.emplace_back(count, TrackpadFrames::kMaxDuration, TrackpadFrames::kMaxMovement);
    }
    actions = {{"frame", [this](const Words& words) { frame(words); }}};
    observations = {{"taps", [this] { return joined(std::exchange(taps, {})); }}};
  }

  void frame(const Words& words) {
    std::vector<TrackpadTapRecognizer::Touch> touches;
    for (const Contact& each : contacts(words, 1)) touches.push_back({each.identifier, each.x, each.y});
    for (TrackpadTapRecognizer& recognizer : recognizers) {
      if (recognizer.process(touches, std::stod(words[0]))) taps.push_back(std::to_string(recognizer.fingerCount()));
    }
  }

  std::vector<TrackpadTapRecognizer> recognizers;
  Words taps;
};

TEST(TrackpadGesturesTest, TapStories) { playStories<TapStory>("trackpad_taps"); }

struct MonitorStory : Story {
  MonitorStory() {
    using W = const Words&;
    monitor.onTap = [this](std::int64_t count) { taps.push_back(std::to_string(count)); };
    actions = {
        {"connect", [this](W words) { multitouch.connected = numbers(words); }},
        {"listless", [this](W) { multitouch.connected.reset(); }},
        {"unusable", [this](W) { multitouch.usable = false; }},
        {"start", [this](W words) { startMonitor(words); }},
        {"stop", [this](W) { monitor.stop(); }},
        {"frame", [this](W w) { multitouch.frame(std::stoul(w[0]), contacts(w, 2), std::stod(w[1])); }},
        {"wake", [this](W) { session.wake(); }},
        {"arrive", [this](W) { multitouch.arrive(); }},
        {"wait", [this](W words) { time.advance(std::stod(words[0])); }},
    };
    observations = {
        {"taps", [this] { return joined(std::exchange(taps, {})); }},
        {"log", [this] { return log.take(); }},
        {"started", [this] { return joined(Words(multitouch.started.size(), "device")); }},
        {"starts", [this] { return std::to_string(multitouch.starts); }},
        {"waiting", [this] { return std::to_string(time.pendingCount() + multitouch.arrivalObservers()); }},
    };
  }

  static std::vector<MultitouchDevice> numbers(const Words& words) {
    std::vector<MultitouchDevice> all;
    for (const std::string& word : words) all.push_back(std::stoul(word));
    return all;
  }
  void startMonitor(const Words& words) {
    std::set<std::int64_t> counts;
    for (const std::string& word : words) counts.insert(std::stol(word));
    monitor.start(counts);
  }

  VirtualTime time;
  FakeLog log;
  FakeSessionEvents session;
  FakeMultitouch multitouch;
  Words taps;
  TrackpadGestureMonitor monitor{{multitouch, session, time, log}};
};

TEST(TrackpadGesturesTest, MonitorStories) { playStories<MonitorStory>("trackpad_monitor"); }

TEST(TrackpadGesturesTest, FramesOfAKnownDeviceAllocateNothing) {
  MonitorStory story;
  story.startMonitor({"3", "4", "5"});
  const auto frames = [&](double from) {
    for (const std::size_t fingers : {0U, 1U, 4U, 5U, 5U, 2U, 0U}) {
      std::vector<Contact> touches(fingers, Contact{0, 0.5F, 0.5F});
      for (std::size_t i = 0; i < fingers; ++i) touches[i].identifier = static_cast<std::int32_t>(i);
      const auto bytes = FakeMultitouch::records(touches);
      const std::size_t before = allocationCount();
      story.monitor.contactFrame(1, bytes.data(), static_cast<std::int32_t>(fingers), from += 1);
      EXPECT_EQ(allocationCount() - before, 0U) << fingers;
    }
  };
  story.monitor.contactFrame(1, nullptr, 0, 0);
  frames(1);
}

/// The order of arrival and the thread do not matter here.
class LockedQueue final : public MainQueue {
 public:
  void async(Work work) override {
    const std::lock_guard guard(lock_);
    waiting_.push_back(std::move(work));
  }
  void after(double, Work) override {}
  [[nodiscard]] Subscription workItem(double, Work work) override { return async(std::move(work)), Subscription(); }
  [[nodiscard]] Subscription timer(double, double, Work) override { return {}; }

  void run() {
    std::vector<Work> due;
    {
      const std::lock_guard guard(lock_);
      due.swap(waiting_);
    }
    for (const Work& work : due) work();
  }

 private:
  std::mutex lock_;
  std::vector<Work> waiting_;
};

TEST(TrackpadGesturesTest, FramesArriveWhileTheMonitorStopsRestartsAndGoes) {
  LockedQueue queue;
  FakeLog log;
  FakeSessionEvents session;
  FakeMultitouch multitouch;
  std::atomic<bool> isEnding = false;
  std::thread hand([&] {
    for (double time = 0; !isEnding; time += 1) {
      multitouch.frame(1, {{1}, {2}, {3}}, time);
      multitouch.frame(1, {}, time + 0.1);
    }
  });
  int taps = 0;
  for (int round = 0; round < 300 || taps == 0; ++round) {
    TrackpadGestureMonitor monitor({multitouch, session, queue, log});
    monitor.onTap = [&](std::int64_t count) { taps += count == 3 ? 1 : 0; };
    monitor.start({3, 4, 5});
    session.wake();
    queue.run();
    if (round % 2 == 0) monitor.stop();
    queue.run();
  }
  isEnding = true;
  hand.join();
  queue.run();  // taps that come after the monitor
}

}  // namespace
}  // namespace rondora

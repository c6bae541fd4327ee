#include <poll.h>

#include <algorithm>
#include <cmath>

#include "desktop/wait.h"
#include "doubles/allocation_counter.h"
#include "doubles/stories.h"
#include "input/gestures/trackpad_frames.h"
#include "platform/linux/evdev/contact_decoder.h"
#include "platform/linux/evdev/evdev_multitouch.h"
#include "platform/linux/evdev/input_trackpads.h"
#include "trackpads/mock_trackpads.h"

namespace rondora::live {
namespace {

using Change = MockTrackpad::Change;

/// In place of a main loop.
class PolledDescriptors {
 public:
  Subscription watch(int descriptor, std::function<void()> readable) {
    watched_[descriptor] = std::move(readable);
    return Subscription([this, descriptor] { watched_.erase(descriptor); });
  }
  void poll() {
    for (const auto& [descriptor, readable] : watched_) {
      pollfd polled{descriptor, POLLIN, 0};
      if (::poll(&polled, 1, 0) > 0) return readable();
    }
  }

 private:
  std::map<int, std::function<void()>> watched_;
};

/// "1@0.3,0.5" lands or moves, "1-" lifts, "1palm" is recognised as a palm.
Change change(const std::string& text) {
  Change made{.finger = text[0] - '0'};
  if (text.substr(1) == "-") made.kind = Change::Kind::lifts;
  if (text.substr(1) == "palm") made.kind = Change::Kind::becomesPalm;
  char at = 0, comma = 0;
  std::istringstream(text.substr(1)) >> at >> made.x >> comma >> made.y;
  return made;
}

struct RecordingStory : Story {
  RecordingStory() {
    using W = const Words&;
    actions = {
        {"connect", [this](W words) { connect(words); }},
        {"disconnect", [this](W words) { kernel.disconnect(std::stoi(words[0])), pads.erase(words[0]); }},
        {"withhold", [this](W words) { kernel.withhold(std::stoi(words[0])); }},
        {"grant", [this](W words) { kernel.grant(std::stoi(words[0])); }},
        {"listen", [this](W) { listen(); }},
        {"frame", [this](W words) { frame(words, &MockTrackpad::frame); }},
        {"lost", [this](W words) { frame(words, &MockTrackpad::loseFrame); }},
    };
    observations = {
        {"taps", [this] { return takeTaps(); }},
        {"devices", [this] { return descriptors.poll(), std::to_string(port.createList()->size()); }},
        {"arrives", [this] { return yesOrNo(waitUntil([this] { return hasArrived(); })); }},
        {"access", [this] { return std::string(1, "-ru"[static_cast<int>(desktop::InputTrackpads().access())]); }},
    };
  }

  void connect(const Words& words) {
    using enum MockTrackpad::Kind;
    static const std::map<std::string, MockTrackpad::Kind> kKinds = {
        {"", fiveSlots}, {"two", twoSlots}, {"box", box}, {"one", onePosition}};
    pads[words[0]] = &kernel.connect(std::stoi(words[0]), kKinds.at(words.size() > 1 ? words[1] : ""));
  }
  void listen() {
    frames.recognize({3, 4, 5});
    const auto devices = port.createList();
    for (const MultitouchDevice device : *devices) {
      port.unregisterContactFrameCallback(device);
      port.registerContactFrameCallback(device, [this](auto source, auto records, auto count, auto timestamp) {
        frames.contactFrame(source, records, count, timestamp);
        const std::lock_guard guard(lock);
        seen[source] = timestamp;
      });
      port.start(device);
    }
  }
  static MockTrackpad::Time time(const Words& words) { return MockTrackpad::Time(std::stoi(words[1])); }
  static std::vector<Change> changes(const Words& words) {
    std::vector<Change> all;
    for (std::size_t i = 2; i < words.size(); ++i) all.push_back(change(words[i]));
    return all;
  }
  void frame(const Words& words, void (MockTrackpad::*report)(MockTrackpad::Time, const std::vector<Change>&)) {
    (pads.at(words[0])->*report)(time(words), changes(words));
    written[std::stoul(words[0]) + 1] = std::stod(words[1]) / 1000;
  }
  bool isAllSeen() {
    constexpr double kRounding = 1e-6;
    const std::lock_guard guard(lock);
    return std::ranges::all_of(written, [&](const auto& each) {
      return seen.contains(each.first) && std::abs(seen[each.first] - each.second) < kRounding;
    });
  }
  std::string takeTaps() {
    EXPECT_TRUE(waitUntil([this] { return isAllSeen(); }));
    const std::lock_guard guard(lock);
    return joined(std::exchange(taps, {}));
  }
  bool hasArrived() {
    descriptors.poll();
    return std::exchange(arrivals, 0) > 0;
  }

  MockTrackpads kernel;
  std::map<std::string, MockTrackpad*> pads;
  std::mutex lock;
  Words taps;
  /// The time of the last frame of each device.
  std::map<MultitouchDevice, double> seen, written;
  int arrivals = 0;
  TrackpadFrames frames{[this](std::int64_t fingers) {
    const std::lock_guard guard(lock);
    taps.push_back(std::to_string(fingers));
  }};
  PolledDescriptors descriptors;
  desktop::EvdevMultitouch port{
      [this](int descriptor, auto readable) { return descriptors.watch(descriptor, std::move(readable)); }};
  Subscription arrival = port.onArrival([this] { ++arrivals; });
};

TEST(TrackpadsTest, Recordings) { playStories<RecordingStory>("trackpad_recordings"); }

TEST(ContactDecoderTest, FramesAllocateNothing) {
  const UniqueCPtr<libevdev, libevdev_free> device(libevdev_new());
  const input_absinfo slots{.value = 0, .minimum = 0, .maximum = 4, .fuzz = 0, .flat = 0, .resolution = 0};
  for (const unsigned axis : {ABS_MT_SLOT, ABS_MT_TRACKING_ID, ABS_MT_POSITION_X, ABS_MT_POSITION_Y}) {
    libevdev_enable_event_code(device.get(), EV_ABS, axis, &slots);
  }
  desktop::ContactDecoder decoder(*device);
  for (const unsigned fingers : {0U, 1U, 4U, 5U, 2U, 0U}) {
    for (unsigned slot = 0; slot < 5; ++slot) {
      libevdev_set_slot_value(device.get(), slot, ABS_MT_TRACKING_ID, slot < fingers ? static_cast<int>(slot) : -1);
    }
    const std::size_t before = allocationCount();
    EXPECT_GE(decoder.decodeFrame().size(), fingers);
    EXPECT_EQ(allocationCount() - before, 0U) << fingers;
  }
}

}  // namespace
}  // namespace rondora::live

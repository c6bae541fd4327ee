#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <span>
#include <vector>

#include "input/gestures/trackpad_tap_recognizer.h"
#include "platform/multitouch.h"

namespace rondora {

/// The part of the trackpad monitor that the threads of frames use: the recognizers of each device, behind one lock.
/// Any thread. A frame that completes no tap allocates nothing once its device is known.
class TrackpadFrames {
 public:
  static constexpr double kMaxDuration = 0.35;  // seconds
  static constexpr float kMaxMovement = 0.04F;  // of the surface

  /// `tapped` receives the finger count of a tap, on the thread of its last frame and without the lock.
  explicit TrackpadFrames(std::function<void(std::int64_t)> tapped) : tapped_(std::move(tapped)) {}

  /// The counts to recognise, ascending; forgets all gestures. Without any, frames have no effect.
  void recognize(std::vector<std::int64_t> fingerCounts);
  /// Forgets the gestures and the devices.
  void discardRecognizers();

  /// A frame of `count` records of 96 bytes (see contact_record); null or less than 1 for no contacts.
  void contactFrame(MultitouchDevice device, const std::byte* records, std::int32_t count, double timestamp);
  void handleFrame(MultitouchDevice device, std::span<const TrackpadTapRecognizer::Touch> touches, double timestamp);

 private:
  using Recognizers = std::vector<TrackpadTapRecognizer>;

  Recognizers& recognizersOf(MultitouchDevice device);

  const std::function<void(std::int64_t)> tapped_;
  std::mutex lock_;
  /// The following are guarded by `lock_`.
  std::vector<std::int64_t> fingerCounts_;
  /// By device, in the order of the counts.
  std::map<MultitouchDevice, Recognizers> recognizers_;
};

}  // namespace rondora

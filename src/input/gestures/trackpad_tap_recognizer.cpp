#include "input/gestures/trackpad_tap_recognizer.h"

#include <algorithm>
#include <cmath>

namespace rondora {

const TrackpadTapRecognizer::Touch& TrackpadTapRecognizer::StartPositions::findOrAdd(const Touch& touch) {
  const auto end = first_.begin() + static_cast<std::ptrdiff_t>(count_);
  const auto found = std::find_if(first_.begin(), end, [&](const Touch& each) { return each.id == touch.id; });
  if (found != end) return *found;
  if (count_ == kInline) return further_.try_emplace(touch.id, touch).first->second;
  return first_[count_++] = touch;
}

void TrackpadTapRecognizer::StartPositions::clear() {
  count_ = 0;
  further_.clear();
}

bool TrackpadTapRecognizer::process(std::span<const Touch> touches, double timestamp) {
  if (touches.empty()) return finish(timestamp);
  if (!startTimestamp_) startTimestamp_ = timestamp;
  maxTouches_ = std::max(maxTouches_, static_cast<std::int64_t>(touches.size()));
  for (const Touch& touch : touches) track(touch);
  return false;
}

bool TrackpadTapRecognizer::finish(double timestamp) {
  const bool isTap =
      startTimestamp_ && maxTouches_ == fingerCount_ && !moved_ && timestamp - *startTimestamp_ <= maxDuration_;
  startTimestamp_.reset();
  maxTouches_ = 0;
  startPositions_.clear();
  moved_ = false;
  return isTap;
}

void TrackpadTapRecognizer::track(const Touch& touch) {
  if (moved_) return;  // the gesture is lost
  const Touch& start = startPositions_.findOrAdd(touch);
  moved_ = std::hypot(touch.x - start.x, touch.y - start.y) > maxMovement_;
}

}  // namespace rondora

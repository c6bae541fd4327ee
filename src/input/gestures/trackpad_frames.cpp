#include "input/gestures/trackpad_frames.h"

#include <array>
#include <cstring>
#include <optional>
#include <utility>

namespace rondora {
namespace {

using Touch = TrackpadTapRecognizer::Touch;

/// Enough for the touches of two hands and more; only a larger frame allocates.
constexpr std::size_t kInlineTouches = 32;

template <class T>
T fieldAt(const std::byte* record, std::size_t offset) {
  T value;
  std::memcpy(&value, record + offset, sizeof value);
  return value;
}

bool isTouching(const std::byte* record) {
  const auto state = fieldAt<std::int32_t>(record, contact_record::kStateOffset);
  return state >= contact_record::making && state <= contact_record::breaking;
}

Touch touchOf(const std::byte* record) {
  return {.id = fieldAt<std::int32_t>(record, contact_record::kIdentifierOffset),
          .x = fieldAt<float>(record, contact_record::kXOffset),
          .y = fieldAt<float>(record, contact_record::kYOffset)};
}

}  // namespace

void TrackpadFrames::recognize(std::vector<std::int64_t> fingerCounts) {
  const std::lock_guard guard(lock_);
  fingerCounts_ = std::move(fingerCounts);
  recognizers_.clear();
}

void TrackpadFrames::discardRecognizers() {
  const std::lock_guard guard(lock_);
  recognizers_.clear();
}

void TrackpadFrames::contactFrame(MultitouchDevice device, const std::byte* records, std::int32_t count,
                                  double timestamp) {
  const std::size_t size = records == nullptr || count < 1 ? 0 : static_cast<std::size_t>(count);
  std::array<Touch, kInlineTouches> few;
  std::vector<Touch> many(size > few.size() ? size : 0);
  const std::span<Touch> room = many.empty() ? std::span<Touch>(few) : many;
  std::size_t touchCount = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const std::byte* record = records + i * contact_record::kSize;
    if (isTouching(record)) room[touchCount++] = touchOf(record);
  }
  handleFrame(device, room.first(touchCount), timestamp);
}

void TrackpadFrames::handleFrame(MultitouchDevice device, std::span<const Touch> touches, double timestamp) {
  std::optional<std::int64_t> tap;
  {
    const std::lock_guard guard(lock_);
    if (fingerCounts_.empty()) return;
    for (TrackpadTapRecognizer& each : recognizersOf(device)) {
      if (each.process(touches, timestamp) && !tap) tap = each.fingerCount();
    }
  }
  if (tap) tapped_(*tap);
}

TrackpadFrames::Recognizers& TrackpadFrames::recognizersOf(MultitouchDevice device) {
  const auto [found, isNew] = recognizers_.try_emplace(device);
  if (isNew) {
    found->second.reserve(fingerCounts_.size());
    for (const std::int64_t count : fingerCounts_) found->second.emplace_back(count, kMaxDuration, kMaxMovement);
  }
  return found->second;
}

}  // namespace rondora

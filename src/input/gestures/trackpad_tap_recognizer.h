#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>

namespace rondora {

/// Decides from the contact frames of one trackpad whether the user tapped it with exactly N fingers: N at once at the
/// peak, none of which moved far, all lifted soon. Idle until a frame with contacts; the verdict comes with the next
/// frame without any.
class TrackpadTapRecognizer {
 public:
  struct Touch {
    /// Stable while the finger stays down.
    std::int32_t id = 0;
    /// Position on the surface, 0 to 1.
    float x = 0;
    float y = 0;
  };

  /// `maxDuration` in seconds from the first contact to the frame without any, `maxMovement` as a distance of
  /// positions; both still count as a tap.
  TrackpadTapRecognizer(std::int64_t fingerCount, double maxDuration, float maxMovement)
      : fingerCount_(fingerCount), maxDuration_(maxDuration), maxMovement_(maxMovement) {}

  std::int64_t fingerCount() const { return fingerCount_; }
  /// `timestamp` in seconds of the device's clock. True when this frame completes a tap.
  bool process(std::span<const Touch> touches, double timestamp);

 private:
  /// The place where each contact was first seen. Allocates only when a gesture has more than kInline contacts.
  class StartPositions {
   public:
    /// The place of the contact; adds it where it is new.
    const Touch& findOrAdd(const Touch& touch);
    void clear();

   private:
    static constexpr std::size_t kInline = 16;
    std::array<Touch, kInline> first_;
    std::size_t count_ = 0;
    std::map<std::int32_t, Touch> further_;
  };

  bool finish(double timestamp);
  void track(const Touch& touch);

  std::int64_t fingerCount_;
  double maxDuration_;
  float maxMovement_;
  std::optional<double> startTimestamp_;
  std::int64_t maxTouches_ = 0;
  StartPositions startPositions_;
  bool moved_ = false;
};

}  // namespace rondora

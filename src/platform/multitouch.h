#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "base/observable.h"

namespace rondora {

/// A trackpad while it is listed; 0 is none.
using MultitouchDevice = std::uintptr_t;

/// One contact of a frame: 96 bytes in the machine's byte order, of which these fields are defined.
namespace contact_record {

inline constexpr std::size_t kSize = 96;
inline constexpr std::size_t kIdentifierOffset = 16;  // std::int32_t, stable while the finger stays down
inline constexpr std::size_t kStateOffset = 20;       // std::int32_t, a State
inline constexpr std::size_t kXOffset = 32;           // float, 0 to 1 across the surface
inline constexpr std::size_t kYOffset = 36;           // float, 0 to 1 along the surface

enum State : std::int32_t {
  notTracking,
  approaching,
  hovering,
  making,
  touching,
  breaking,
  lingering,
  outOfRange,
};

}  // namespace contact_record

/// The raw contact frames of trackpads. Main thread, except for the frames.
class MultitouchDevices {
 public:
  /// Receives the device, its contact records (null if there are none), their number, and the time in seconds of the
  /// device's own clock. Called on a thread of the port.
  using FrameCallback =
      std::function<void(MultitouchDevice device, const std::byte* records, std::int32_t count, double timestamp)>;

  virtual ~MultitouchDevices() = default;

  /// False where the system offers no such frames; the other operations then do nothing.
  virtual bool isUsable() const = 0;
  /// The trackpads that can be read now.
  virtual std::optional<std::vector<MultitouchDevice>> createList() = 0;
  virtual void registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) = 0;
  virtual void unregisterContactFrameCallback(MultitouchDevice device) = 0;
  virtual void start(MultitouchDevice device) = 0;
  /// No frame of the device is delivered after this returns.
  virtual void stop(MultitouchDevice device) = 0;
  /// Called when a trackpad was connected or became readable.
  [[nodiscard]] virtual Subscription onArrival(std::function<void()> observer) = 0;
};

}  // namespace rondora

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "base/observable.h"

namespace rondora {

namespace tap_events {
inline constexpr std::uint32_t kKeyDown = 10;
inline constexpr std::uint32_t kKeyUp = 11;
inline constexpr std::uint32_t kFlagsChanged = 12;
inline constexpr std::uint32_t kDisabledByTimeout = 0xFFFFFFFE;
inline constexpr std::uint32_t kDisabledByUserInput = 0xFFFFFFFF;
}  // namespace tap_events

enum class TapVerdict : std::uint8_t { pass, swallow };

/// A key that a tap is made for: a virtual key code and a Carbon mask.
struct TapKey {
  std::int64_t keyCode = 0;
  std::int64_t carbonModifiers = 0;
};

/// A tap of the system's keyboard events. It ends with the object. Main thread.
class EventTap {
 public:
  virtual ~EventTap() = default;

  /// Delivers events from the main run loop until the result is destroyed.
  [[nodiscard]] virtual Subscription addToRunLoop() = 0;
  /// A new tap is disabled, and the system may disable one (`kDisabledByTimeout`, `kDisabledByUserInput`).
  virtual void enable(bool isEnabled) = 0;
  /// Takes back the keys that another program has taken since, without waiting for the outcome.
  virtual void retake() {}
  /// False when another program or the system keeps this key from the tap.
  virtual bool receives(const TapKey& /*key*/) const { return true; }
};

/// A tap of any process.
struct EventTapRecord {
  std::int32_t tappingProcess = 0;
  bool enabled = false;
  /// One bit for each event type, by its number.
  std::uint64_t eventsOfInterest = 0;
};

/// Active taps at the place where events enter the system, ahead of every other tap. Main thread.
class EventTaps {
 public:
  /// `flags` are event flags: held modifiers, for `kFlagsChanged` those held after the event. A press that is swallowed
  /// reaches no other program, nor do its repeats and its release; the release then has the flags of its press. Called
  /// for every key while the overlay is up. It must neither wait nor destroy the tap.
  using Callback = std::function<TapVerdict(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags)>;

  virtual ~EventTaps() = default;

  /// `eventMask` has one bit for each event type. A system without a filter for all events delivers those of `keys`.
  /// Null when the system refuses a tap.
  virtual std::unique_ptr<EventTap> create(std::uint64_t eventMask, std::span<const TapKey> keys,
                                           Callback callback) = 0;
  virtual std::vector<EventTapRecord> list() const = 0;
  /// This process, as `list` names it.
  virtual std::int32_t ownProcess() const = 0;
};

}  // namespace rondora

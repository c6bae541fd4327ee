#pragma once

#include <cstdint>
#include <functional>

#include "base/observable.h"
#include "platform/key_event.h"

namespace rondora {

inline constexpr std::uint32_t kKeyDownMask = 1024;
inline constexpr std::uint32_t kKeyDownAndKeyUpMask = 3072;
inline constexpr std::uint32_t kFlagsChangedMask = 4096;

/// Key events that the program itself receives; while its overlay is shown, these are all of them. Main thread.
class EventMonitors {
 public:
  /// Returns true to consume the event: later monitors do not receive it. May end its own monitor.
  using Handler = std::function<bool(const KeyEvent&)>;

  virtual ~EventMonitors() = default;

  /// `eventMask` is one of the masks above. Handlers are called in the order in which they were added. The result is
  /// empty when no monitor could be installed.
  [[nodiscard]] virtual Subscription addLocalMonitor(std::uint32_t eventMask, Handler handler) = 0;
  /// The modifiers physically held after the events handled so far, as event flags; locks are left out.
  virtual std::uint64_t currentModifierFlags() const = 0;
};

}  // namespace rondora

#pragma once

#include <cstdint>
#include <functional>

#include "base/observable.h"
#include "base/weak_self.h"
#include "model/hotkey_config.h"
#include "platform/event_monitors.h"
#include "platform/main_queue.h"

namespace rondora {

/// Reports when the modifiers of a trigger are no longer all held. The ports must outlive it. Main thread.
class ModifierReleaseWatch {
 public:
  /// The watch starts only if `isPanelVisible` returns true on the turn after `arm`.
  ModifierReleaseWatch(EventMonitors& eventMonitors, MainQueue& mainQueue, std::function<bool()> isPanelVisible);

  /// Replaces a pending start. The watch starts on the next turn of the main queue and calls `onReleased` at once if a
  /// modifier has gone up by then, else when the first one does. A hotkey without modifiers starts nothing.
  void arm(const HotkeyConfig& hotkey, std::function<void()> onReleased);
  void disarm();

 private:
  void start(std::uint64_t requiredFlags, std::function<void()> onReleased);

  EventMonitors& eventMonitors_;
  MainQueue& mainQueue_;
  std::function<bool()> isPanelVisible_;
  Subscription workItem_;
  Subscription monitor_;
  WeakSelf<ModifierReleaseWatch> weakSelf_{this};
};

}  // namespace rondora

#include "pie/controller/modifier_release_watch.h"

#include <utility>

#include "model/carbon_modifiers.h"

namespace rondora {

ModifierReleaseWatch::ModifierReleaseWatch(EventMonitors& eventMonitors, MainQueue& mainQueue,
                                           std::function<bool()> isPanelVisible)
    : eventMonitors_(eventMonitors), mainQueue_(mainQueue), isPanelVisible_(std::move(isPanelVisible)) {}

void ModifierReleaseWatch::arm(const HotkeyConfig& hotkey, std::function<void()> onReleased) {
  workItem_.reset();
  if (!hotkey.hasModifiers() || !onReleased) return;
  const std::uint64_t required = HotkeyConfig::cgEventModifiers(hotkey.carbonModifiers);
  workItem_ =
      mainQueue_.workItem(0, weakSelf_.bind([required, onReleased = std::move(onReleased)](ModifierReleaseWatch& self) {
        if (self.isPanelVisible_()) self.start(required, onReleased);
      }));
}

void ModifierReleaseWatch::disarm() {
  workItem_.reset();
  monitor_.reset();
}

/// `onReleased` is a copy: the call may disarm the watch.
void ModifierReleaseWatch::start(std::uint64_t requiredFlags, std::function<void()> onReleased) {
  monitor_.reset();
  if (!allHeld(eventMonitors_.currentModifierFlags(), requiredFlags)) return onReleased();
  monitor_ = eventMonitors_.addLocalMonitor(kFlagsChangedMask,
                                            [requiredFlags, onReleased = std::move(onReleased)](const KeyEvent& event) {
                                              if (allHeld(event.modifierFlags, requiredFlags)) return false;
                                              const auto released = onReleased;
                                              released();
                                              return false;
                                            });
}

}  // namespace rondora

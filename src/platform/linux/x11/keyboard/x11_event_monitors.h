#pragma once

#include <cstdint>

#include "base/observable.h"
#include "platform/event_monitors.h"
#include "platform/linux/x11/connection/callback_list.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"

namespace rondora::x11 {

/// The overlay's keys and the modifiers. Monitors are asked in the order in which they were added, until one consumes
/// the event: the first one added at start decides before all that come with a showing of the overlay.
class X11EventMonitors : public EventMonitors {
 public:
  X11EventMonitors(X11Keymap& keymap, X11KeyStream& keyboard);

  Subscription addLocalMonitor(std::uint32_t eventMask, Handler handler) override;
  std::uint64_t currentModifierFlags() const override { return keymap_.heldEventFlags(); }

 private:
  void handleKey(const X11Key& key);
  void handleHeldModifiers(std::uint8_t held, xcb_keycode_t key);

  X11Keymap& keymap_;
  CallbackList<const KeyEvent&> keyMonitors_;
  CallbackList<const KeyEvent&> flagsMonitors_;
  Subscription keyObserver_;
  Subscription modifierObserver_;
};

}  // namespace rondora::x11

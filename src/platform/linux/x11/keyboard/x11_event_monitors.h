#pragma once

#include <cstdint>

#include "base/observable.h"
#include "platform/event_monitors.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"

namespace rondora::x11 {

/// Monitors of the keys that go to the overlay or to a window of the program, and of the modifiers.
class X11EventMonitors : public EventMonitors {
 public:
  X11EventMonitors(X11Keymap& keymap, X11KeyStream& keys);

  Subscription addLocalMonitor(std::uint32_t eventMask, Handler handler) override;
  std::uint64_t currentModifierFlags() const override { return keymap_.heldEventFlags(); }

 private:
  bool handleKey(const X11Key& key) const;
  bool handleFn(const X11Key& key) const;
  void handleHeldModifiers(std::uint8_t held, xcb_keycode_t key);

  X11Keymap& keymap_;
  CallbackList<const KeyEvent&> keyMonitors_;
  CallbackList<const KeyEvent&> flagsMonitors_;
  Subscription keys_;
  Subscription modifierObserver_;
};

}  // namespace rondora::x11

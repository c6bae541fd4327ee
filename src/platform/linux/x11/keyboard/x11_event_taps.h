#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/observable.h"
#include "platform/event_taps.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/main_queue.h"
#include "platform/secure_input.h"

namespace rondora::x11 {

/// An event tap as passive XI2 grabs of its keys, which win over the window manager's core grabs. The Menu key stands
/// in for Fn: it is grabbed while the tap has a key with Fn, and the other keys of those combinations while it is held.
/// A Menu key that is tapped alone, and that the tap does not swallow, is typed when it is released. One tap at a time.
/// A window manager grabs its keys again, and so takes ours, when the keyboard map changes or another keyboard is used:
/// the tap retakes them. Secure input is an active grab of another client.
class X11EventTaps final : public EventTaps, public SecureInput {
 public:
  /// Arguments must outlive the object.
  X11EventTaps(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys, RawKeyReleases& rawReleases,
               MainQueue& mainQueue);
  ~X11EventTaps() override;

  std::unique_ptr<EventTap> create(std::uint64_t eventMask, std::span<const TapKey> keys, Callback callback) override;
  std::vector<EventTapRecord> list() const override;
  std::int32_t ownProcess() const override;
  bool isEnabled() const override;
  /// Another client keeps the key from the tap.
  bool isRefused(const TapKey& key) const;
  /// Called with true when Fn goes down, which makes grabs that outlast each key press, with false when it is up.
  [[nodiscard]] Subscription onHeldChanged(std::function<void(bool)> observer);

 private:
  class Tap;

  bool handleKey(const X11Key& key);
  bool handleFn(const X11Key& key);
  void pressFn();
  void releaseFn();
  void setFnHeld(bool isHeld);
  bool offer(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) const;
  void typeMenuKey() const;
  bool isAnyKeyDown() const;
  void retakeRepeatedly();

  X11Connection& connection_;
  X11Keymap& keymap_;
  X11KeyStream& keys_;
  RawKeyReleases& rawReleases_;
  MainQueue& mainQueue_;
  Tap* tap_ = nullptr;
  /// Never mapped: a grab for it is always refused.
  xcb_window_t probe_;
  /// By X key code: keys whose press came while Fn was held.
  std::bitset<256> pressedWithFn_;
  /// Outlasts a tap: the next one may be made while the key is down.
  bool isFnHeld_ = false;
  std::function<void(bool)> heldObserver_;
  /// Fn has been held alone so far, and the tap did not swallow it.
  bool mayTypeMenuKey_ = false;
  Subscription otherReleases_;
  int retakes_ = 0;
  Subscription retakeTimer_;
  Subscription keymapObserver_;
  Subscription grabs_;
  Subscription keyConsumer_;
};

}  // namespace rondora::x11

#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/event_taps.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/linux/x11/keyboard/xi2_keyboard.h"

namespace rondora::x11 {

/// The Menu key, which stands in for Fn.
xcb_keycode_t fnKey();

/// The passive XI2 grabs of a tap's keys, once with each combination of the locks. If one of the keys has Fn, the Menu
/// key is grabbed with any modifier, and the other keys of those combinations while it is held. Main thread.
class TapKeyGrabs {
 public:
  /// Grabs nothing yet. Arguments except `keys` must outlive the object.
  TapKeyGrabs(const X11Connection& connection, const X11Keymap& keymap, const Xi2Keyboard& keyboard,
              std::span<const TapKey> keys);
  ~TapKeyGrabs() { ungrabAll(); }
  TapKeyGrabs(const TapKeyGrabs&) = delete;
  TapKeyGrabs& operator=(const TapKeyGrabs&) = delete;

  /// Waits for one reply.
  void grabAll();
  void ungrabAll();
  /// Makes the grabs the newest ones, without waiting.
  void retake();
  /// Makes the grabs of one key again.
  void renew(xcb_keycode_t code);
  void setFnHeld(bool isHeld);

  bool bindsFn() const { return bindsFn_; }
  /// The tap receives the key. May wait for replies. A key that goes with Fn counts as granted until Fn is first held.
  bool isGranted(const TapKey& key) const;
  /// Another client keeps the key; false where no key of this keyboard makes the combination. May wait for replies.
  bool isRefused(const TapKey& key) const;
  /// One of the grabs that are made now is for this key in this state.
  bool contain(xcb_keycode_t code, std::uint16_t state) const;

 private:
  struct Grab {
    TapKey key;
    xcb_keycode_t code = 0;
    /// X masks.
    std::vector<std::uint32_t> modifiers;
    bool needsFn = false;
    bool isRefused = false;
    std::optional<Xi2Keyboard::PassiveGrab> request = std::nullopt;
  };

  void add(const TapKey& key);
  bool isDue(const Grab& grab) const { return isGrabbing_ && (!grab.needsFn || isFnHeld_); }
  void request(Grab& grab) const;
  void ungrab(const Grab& grab) const;
  void collect() const;
  const Grab* grabOf(const TapKey& key) const;

  const X11Connection& connection_;
  const X11Keymap& keymap_;
  const Xi2Keyboard& keyboard_;
  /// Replies arrive when they are needed.
  mutable std::vector<Grab> grabs_;
  bool bindsFn_ = false;
  bool isFnHeld_ = false;
  bool isGrabbing_ = false;
};

}  // namespace rondora::x11

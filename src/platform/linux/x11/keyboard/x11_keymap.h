#pragma once

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

#include <bitset>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "base/owned.h"
#include "base/weak_self.h"
#include "platform/key_event.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// The modifiers of the current keyboard mapping as X masks; 0 for a modifier that no key sets.
struct ModifierMasks {
  std::uint16_t shift = XCB_MOD_MASK_SHIFT;
  std::uint16_t control = XCB_MOD_MASK_CONTROL;
  std::uint16_t option = 0;
  std::uint16_t command = 0;
  std::uint16_t capsLock = XCB_MOD_MASK_LOCK;
  std::uint16_t numLock = 0;
  std::uint16_t scrollLock = 0;
  friend bool operator==(const ModifierMasks&, const ModifierMasks&) = default;

  std::uint16_t locks() const { return static_cast<std::uint16_t>(capsLock | numLock | scrollLock); }
  /// All combinations of the locks, the empty one first.
  std::vector<std::uint16_t> lockCombinations() const;
};

/// The mapping of the core keyboard; follows the server's, so layouts, groups and the modifier map are the user's own.
/// Also sets the connection's keyboard flags: detectable auto-repeat, XKB state in core events. Main thread.
class X11Keymap {
 public:
  X11Keymap(X11Connection& connection, MainQueue& mainQueue);

  /// Null when the server has no keymap.
  xkb_keymap* keymap() const { return keymap_.get(); }
  const ModifierMasks& masks() const { return masks_; }
  /// Nothing when the keyboard lacks one of the modifiers; no X modifier is Fn.
  std::optional<std::uint16_t> xModifiers(std::uint32_t carbonModifiers) const;
  /// Event flags of an X modifier mask; locks are left out.
  std::uint64_t eventFlags(std::uint32_t xModifiers) const;
  /// The modifiers physically held after the events handled so far, as event flags. A reply of the server would include
  /// events that are still queued: a release would then overtake the motion before it.
  std::uint64_t heldEventFlags() const { return eventFlags(heldModifiers_) | fnFlag(); }
  /// The Fn flag while the key that stands in for Fn is held.
  std::uint64_t fnFlag() const { return isFnHeld_ ? event_flags::kFunction : 0; }
  void setFnHeld(bool isHeld, xcb_keycode_t key);
  bool isModifierKey(xcb_keycode_t key) const { return modifierKeys_[key]; }

  /// The text that the key types in `state`, the state field of a core event.
  std::string characters(xcb_keycode_t key, std::uint16_t state);
  /// As `characters`, with Shift as the only modifier.
  std::string charactersIgnoringModifiers(xcb_keycode_t key, std::uint16_t state);
  KeyEvent keyEvent(KeyEventType type, xcb_keycode_t key, std::uint16_t state, bool isRepeat);

  /// Called after the mapping has been read again.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) {
    return changed_.subscribe(std::move(observer));
  }
  /// Called when a modifier went down or up, with the modifiers held after it (X mask) and the key.
  using HeldModifiersObserver = std::function<bool(std::uint8_t, xcb_keycode_t)>;
  [[nodiscard]] Subscription onHeldModifiersChanged(HeldModifiersObserver observer) {
    return heldModifiersChanged_.add(std::move(observer));
  }

 private:
  void setClientFlags() const;
  void selectEvents() const;
  void readHeldModifiers();
  bool handleEvent(const xcb_generic_event_t& event);
  void markStale();
  void refresh();
  void refreshIfStale();
  void readModifiers();
  void noteLevelKeys();
  void noteModifierKey(std::size_t modifier, xcb_keycode_t key);
  bool hasKeysym(xcb_keycode_t key, xkb_keysym_t first, xkb_keysym_t second) const;
  std::string textOf(xcb_keycode_t key, std::uint32_t modifiers, std::uint16_t state);

  X11Connection& connection_;
  MainQueue& mainQueue_;
  std::uint8_t firstEvent_ = 0;
  std::int32_t deviceId_ = 0;
  UniqueCPtr<xkb_context, xkb_context_unref> context_;
  UniqueCPtr<xkb_keymap, xkb_keymap_unref> keymap_;
  UniqueCPtr<xkb_state, xkb_state_unref> state_;
  ModifierMasks masks_;
  std::uint8_t heldModifiers_ = 0;
  bool isFnHeld_ = false;
  std::bitset<256> modifierKeys_;
  bool isStale_ = false;
  Signal<> changed_;
  CallbackList<std::uint8_t, xcb_keycode_t> heldModifiersChanged_;
  Subscription eventHandler_;
  WeakSelf<X11Keymap> weakSelf_{this};
};

}  // namespace rondora::x11

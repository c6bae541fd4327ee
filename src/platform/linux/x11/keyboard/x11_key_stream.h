#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>

#include "base/observable.h"
#include "platform/linux/x11/connection/callback_list.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/held_key_grabs.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

enum class KeyDirection { down, up };

/// A key of which a grab of ours told.
struct X11Key {
  xcb_keycode_t code = 0;
  /// The modifiers before the event, as the X server has them.
  std::uint16_t state = 0;
  KeyDirection direction = KeyDirection::down;
  bool isRepeat = false;
  /// The overlay holds the keyboard: the key is a word to it, whichever combination it makes.
  bool isForOverlay = false;
};

/// Follows each key that a grab of ours saw going down until it is up again, whoever is told of that: a hot key's press
/// comes by its passive grab, its repeats and release by the overlay's grab or, once that has ended, to another client
/// (then raw events tell). So a held key is never taken for pressed anew, and a new press never for a repeat. What a
/// key held beyond the overlay repeats is nobody's: it neither types into the window beneath nor starts anything. Main
/// thread.
class X11KeyStream {
 public:
  /// All outlive this.
  X11KeyStream(X11Connection& connection, RawKeyReleases& rawReleases, MainQueue& mainQueue);

  /// Each physical press comes once without `isRepeat`, its release once. The result of the callback does not matter.
  [[nodiscard]] Subscription addKeyObserver(CallbackList<const X11Key&>::Callback observer) {
    return keys_.add(std::move(observer));
  }

  /// Call it just before the request that grabs the keyboard.
  void beginOverlay();
  /// Call it just before the request that ungrabs the keyboard.
  void endOverlay();
  bool overlayHasKeyboard() const { return overlayHasKeyboard_; }
  /// Call it just before a key is typed into another program: no key that is still held takes it from there. The typed
  /// key ends the repeating of the others.
  void freeHeldKeys() { heldKeys_.releaseAll(); }

 private:
  bool handleEvent(const xcb_generic_event_t& event);
  void handlePress(const xcb_key_press_event_t& event);
  void handleHeldPress(const xcb_key_press_event_t& event);
  void handleRelease(const xcb_key_release_event_t& event);
  void noteUp(xcb_keycode_t key);
  void settled();
  void watchRawReleases();
  void stopWatchingWhenNothingIsDown();
  void forgetKeysThatAreUp();

  X11Connection& connection_;
  RawKeyReleases& rawReleases_;
  MainQueue& mainQueue_;
  HeldKeyGrabs heldKeys_;
  std::bitset<256> down_;
  std::uint16_t lastState_ = 0;
  bool overlayHasKeyboard_ = false;
  Subscription watch_;
  /// Runs while events from before the ungrab may still be on their way to us.
  Subscription settling_;
  CallbackList<const X11Key&> keys_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11

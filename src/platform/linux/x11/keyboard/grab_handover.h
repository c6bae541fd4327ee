#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <vector>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/modifier_keys.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/xi2_keyboard.h"

namespace rondora::x11 {

/// Hands the keyboard from a passive grab over to the focused client while the grabbed key is still down, and types the
/// keys that the grab has received in that client's place. Needs XTEST. Main thread; allocates nothing per key.
class GrabHandover {
 public:
  /// Arguments must outlive the object.
  GrabHandover(X11Connection& connection, const Xi2Keyboard& keyboard, RawKeyReleases& rawReleases);
  /// Releases what is still typed.
  ~GrabHandover();
  GrabHandover(const GrabHandover&) = delete;
  GrabHandover& operator=(const GrabHandover&) = delete;

  bool available() const { return available_; }

  /// Records a key event for the focused client. Beyond kMaxKeys it is lost.
  void add(xcb_keycode_t key, bool isDown);
  bool isEmpty() const { return keys_.empty(); }
  void clear() { keys_.clear(); }

  /// Ends the grab and types the recorded keys. The keys in `silenced`, which the user holds, are up afterwards for all
  /// clients, and neither repeat nor will the user's release be seen, except by RawKeyReleases.
  void handOver(const KeySet& silenced);
  /// Silences keys while a grab of this program is active: no other client sees their releases.
  void silence(const KeySet& keys);
  /// Releases the key if it was typed and not released since.
  void userReleased(xcb_keycode_t key);

 private:
  static constexpr std::size_t kMaxKeys = 64;

  struct Key {
    xcb_keycode_t code;
    bool isDown;
  };

  void rewind();
  void type(const Key& key);
  void fake(xcb_keycode_t key, bool isDown);

  X11Connection& connection_;
  const Xi2Keyboard& keyboard_;
  RawKeyReleases& rawReleases_;
  bool available_ = false;
  std::vector<Key> keys_;
  /// Keys of the XTEST keyboard that are down for the user.
  KeySet typed_;
  Subscription releases_;
};

}  // namespace rondora::x11

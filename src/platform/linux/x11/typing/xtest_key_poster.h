#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "base/observable.h"
#include "platform/key_event_poster.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/modifier_keys.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/linux/x11/typing/synthetic_typing.h"
#include "platform/linux/x11/typing/xtest_keyboard.h"

namespace rondora::x11 {

/// Types through the XTEST extension, on the connection that also holds the grabs: an ungrab takes effect before the
/// key posted after it. Main thread only; X11 has no shortcuts for spaces that another thread would press.
class XTestKeyPoster final : public KeyEventPoster {
 public:
  /// Arguments must outlive the object. Releases keys that an earlier run left pressed.
  XTestKeyPoster(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys, RawKeyReleases& rawReleases);
  ~XTestKeyPoster() override;

  /// The server has the XTEST extension and the keyboard extensions that typing needs.
  bool available() const { return keyboard_.available(); }

  std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode, bool isDown,
                                                const KeyFlags& flags) override;
  bool reachesApplications() const override { return !keys_.overlayHasKeyboard(); }
  bool post(const SyntheticKeyEvent& event, KeyEventTap tap) override;
  /// True before a key is pressed, false once it is released.
  [[nodiscard]] Subscription onTyping(std::function<void(bool isDown)> observer) const {
    return typed_.subscribe(std::move(observer));
  }

 private:
  void readKeymap();
  void followUser();
  void settle();

  X11Connection& connection_;
  X11Keymap& keymap_;
  X11KeyStream& keys_;
  RawKeyReleases& rawReleases_;
  XTestKeyboard keyboard_;
  SyntheticTyping typing_{keyboard_};
  Signal<bool> typed_;
  std::shared_ptr<const ModifierKeys> modifierKeys_;
  Subscription keymapObserver_;
  Subscription releaseWatch_;
};

}  // namespace rondora::x11

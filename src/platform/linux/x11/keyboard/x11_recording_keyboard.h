#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/recording_keyboard.h"

namespace rondora::x11 {

/// An active grab of the keyboard on the root window, during which no passive grab of any client activates. Clicks are
/// heard as raw events and reach their windows. An overlay that opens takes the keyboard over. Main thread.
class X11RecordingKeyboard final : public RecordingKeyboard {
 public:
  /// The references must outlive the object.
  X11RecordingKeyboard(X11Connection& connection, X11KeyStream& keys, RawKeyReleases& rawEvents)
      : connection_(connection), keys_(keys), rawEvents_(rawEvents) {}
  ~X11RecordingKeyboard() override { release(); }

  std::optional<Subscription> take(Observer observer) override;
  /// Called with true before the keyboard is requested, with false once it is not held any more.
  [[nodiscard]] Subscription onHeldChanged(std::function<void(bool)> observer);

 private:
  bool grab();
  bool grabInCore() const;
  void release();
  void lose();
  void setHeld(bool isHeld);
  void pressed(std::uint32_t button) const;

  X11Connection& connection_;
  X11KeyStream& keys_;
  RawKeyReleases& rawEvents_;
  bool isHeld_ = false;
  /// The server refuses the core protocol while a passive XI2 grab is active, such as one of the event tap.
  bool usesXi2_ = false;
  Observer observer_;
  std::function<void(bool)> heldObserver_;
  Subscription buttons_;
};

}  // namespace rondora::x11

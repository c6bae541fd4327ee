#pragma once

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {

/// Raw key releases and button presses, reported whichever client receives the event itself. Selected only while there
/// is an observer. Main thread.
class RawKeyReleases {
 public:
  explicit RawKeyReleases(X11Connection& connection);
  ~RawKeyReleases();

  /// False without the X Input extension: nothing is reported then.
  bool available() const { return inputExtension_ != 0; }
  /// The extension's major opcode; 0 without it.
  std::uint8_t inputExtension() const { return inputExtension_; }
  /// Reports every release after this request, some more than once. The callback's result is ignored.
  [[nodiscard]] Subscription watch(CallbackList<xcb_keycode_t>::Callback observer);
  /// Reports the button's number for every press after this request.
  [[nodiscard]] Subscription watchButtons(Signal<std::uint32_t>::Slot observer);
  /// The latest request, with this number, fakes a key of this program's own: the event that it causes is not the
  /// user's.
  void disown(std::uint32_t request);
  bool isDisowned(const xcb_generic_event_t& event) const {
    return std::find(disowned_.begin(), disowned_.end(), event.full_sequence) != disowned_.end();
  }

 private:
  bool handleEvent(const xcb_generic_event_t& event) const;
  Subscription counted(int& watchers, Subscription entry);
  void select();

  X11Connection& connection_;
  std::uint8_t inputExtension_ = 0;
  int keyWatchers_ = 0;
  int buttonWatchers_ = 0;
  std::uint32_t selected_ = 0;
  /// The latest requests, by their full sequence numbers; 0 for none.
  std::array<std::uint32_t, 256> disowned_{};
  std::size_t nextDisowned_ = 0;
  CallbackList<xcb_keycode_t> releases_;
  Signal<std::uint32_t> buttonPresses_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11

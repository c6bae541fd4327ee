#pragma once

#include <xcb/xcb.h>

#include <bitset>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// Who the grabbed pointer is reported to, in pixels of the root window.
class InputGrabSink {
 public:
  virtual ~InputGrabSink() = default;

  /// Also told once when the pointer has been grabbed: where it is then.
  virtual void grabbedPointerMoved(int x, int y) = 0;
  virtual void grabbedButtonPressed(int x, int y, xcb_button_t button) = 0;
  /// Keyboard or pointer stayed with another client; nothing is held any more.
  virtual void grabFailed() = 0;
};

/// Keyboard and pointer of the whole screen, always both: active grabs on the root window, so neither the size of a
/// window nor Enter and Leave matter. Keys go by X11KeyStream. Main thread.
class X11InputGrab {
 public:
  X11InputGrab(X11Connection& connection, X11KeyStream& keys, MainQueue& mainQueue);
  ~X11InputGrab();

  /// Takes the place of whoever had the grab. Asks with the time of the last event; while another client holds one of
  /// the two, asks again for about 0.2 s before `grabFailed`, and for about 3 s when only the keyboard is missing: the
  /// key of another client's hotkey gives it back when it goes up.
  void take(InputGrabSink& sink);
  /// Does nothing when `sink` no longer has the grab. A mouse button that is down stays ours until it is released, so
  /// that no other window sees half a click.
  void giveBack(const InputGrabSink& sink);
  /// The pointer's look while it is grabbed.
  void setCursor(xcb_cursor_t cursor);

 private:
  void attempt(xcb_timestamp_t time);
  void retryLater();
  void retry();
  void letGo();
  void ungrabPointer();
  bool handleEvent(const xcb_generic_event_t& event);
  void handleRelease(xcb_button_t button);

  X11Connection& connection_;
  X11KeyStream& keys_;
  MainQueue& mainQueue_;
  InputGrabSink* sink_ = nullptr;
  xcb_cursor_t cursor_ = XCB_CURSOR_NONE;
  bool hasKeyboard_ = false;
  bool hasPointer_ = false;
  int attempts_ = 0;
  Subscription retry_;
  /// Buttons that must go up before the pointer is given back.
  std::bitset<256> heldButtons_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11

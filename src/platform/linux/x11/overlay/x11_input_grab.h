#pragma once

#include <xcb/xcb.h>

#include <bitset>
#include <functional>
#include <optional>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// Receives the events of the grabbed pointer, in pixels of the root window.
class InputGrabSink {
 public:
  virtual ~InputGrabSink() = default;

  /// Called once, before any pointer event.
  virtual void keyboardGrabbed() = 0;
  /// Also called with the position that the pointer has when it is grabbed. While another client holds the pointer, its
  /// motion is polled.
  virtual void grabbedPointerMoved(int x, int y) = 0;
  virtual void grabbedButtonPressed(int x, int y, xcb_button_t button) = 0;
  /// Another client kept the keyboard; nothing is grabbed any more.
  virtual void grabFailed() = 0;
};

/// Grabs keyboard and pointer together, on the root window, so that neither the size of a window nor Enter and Leave
/// matter. X11KeyStream delivers the keys. Main thread.
class X11InputGrab {
 public:
  X11InputGrab(X11Connection& connection, X11KeyStream& keys, MainQueue& mainQueue);
  ~X11InputGrab();

  /// Sends the first attempt, which names the time of the last event, and waits for nothing. Replaces an earlier sink.
  void request(InputGrabSink& sink);
  /// Reports the outcome of `request`. The keyboard alone is enough: the pointer, which another client holds while it
  /// drags or selects, is taken as soon as it is free. While the keyboard is missing, retries for about 0.2 s before
  /// `grabFailed`; for about 3 s when the pointer is not missing, because the key of another client's hotkey ends that
  /// client's grab when it is released.
  void take(const InputGrabSink& sink);
  /// Does nothing when `sink` no longer has the grab. The pointer stays grabbed until all mouse buttons are up, so that
  /// no other window receives half a click.
  void release(const InputGrabSink& sink);
  /// Called with true before keyboard or pointer are requested, with false once neither is held any more.
  [[nodiscard]] Subscription onHeldChanged(std::function<void(bool)> observer);
  /// The shape of the pointer during the grab.
  void setCursor(xcb_cursor_t cursor);

 private:
  /// The requests of one attempt. Those for what is already held are missing.
  struct Attempt {
    /// One of both protocols at most.
    std::optional<xcb_grab_keyboard_cookie_t> keyboard;
    std::optional<Xi2Keyboard::ActiveGrab> xi2Keyboard;
    std::optional<xcb_grab_pointer_cookie_t> pointer;
    xcb_query_pointer_cookie_t place{};
    xcb_cursor_t cursor = XCB_CURSOR_NONE;
  };
  struct Outcome {
    bool isTimeTooOld = false;
    std::optional<PixelPosition> pointer;
  };

  void send(xcb_timestamp_t time);
  Outcome receive();
  void follow(const Outcome& outcome);
  void retry();
  void pointerAt(PixelPosition position);
  void changeCursor() const;
  void requestKeyboard(Attempt& attempt, xcb_timestamp_t time) const;
  void ungrab();
  void ungrabKeyboard();
  void ungrabPointer();
  bool handleEvent(const xcb_generic_event_t& event);
  void handleRelease(xcb_button_t button);
  void setHeld(bool isHeld);

  X11Connection& connection_;
  X11KeyStream& keys_;
  MainQueue& mainQueue_;
  InputGrabSink* sink_ = nullptr;
  xcb_cursor_t cursor_ = XCB_CURSOR_NONE;
  std::function<void(bool)> heldObserver_;
  bool isHeld_ = false;
  bool hasKeyboard_ = false;
  /// The keyboard is grabbed through XI2: the server refuses the core protocol while a passive grab of XI2 is active,
  /// and the other way round.
  bool usesXi2_ = false;
  /// The grab of the recording that the overlay ended may still be active, in either protocol.
  bool followsRecording_ = false;
  bool isKeyboardReported_ = false;
  bool hasPointer_ = false;
  int attempts_ = 0;
  /// Its replies have not been read.
  std::optional<Attempt> attempt_;
  /// The position last reported while another client holds the pointer.
  std::optional<PixelPosition> polled_;
  /// Runs until keyboard and pointer are held.
  Subscription retry_;
  /// Buttons that must go up before the pointer is ungrabbed.
  std::bitset<256> heldButtons_;
  Subscription keyPositions_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11

#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <optional>

#include "base/geometry.h"
#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/pointer.h"

namespace rondora::x11 {

/// The event of a key that was pressed just now tells where the pointer was then, so that the first question after it
/// need not go to the server.
class X11Pointer : public Pointer {
 public:
  X11Pointer(X11Connection& connection, X11InputGrab& inputGrab);
  ~X11Pointer() override;

  Point location() const override;
  void setCursor(CursorShape shape) override;

 private:
  struct Known {
    Point inPixels;
    std::chrono::steady_clock::time_point since;
  };

  void noteKey(const xcb_generic_event_t& event);
  std::optional<Point> askServer() const;

  X11Connection& connection_;
  X11InputGrab& inputGrab_;
  /// Good for one answer.
  mutable std::optional<Known> atKeyPress_;
  Subscription events_;
  xcb_cursor_t arrow_ = XCB_CURSOR_NONE;
  xcb_cursor_t pointingHand_ = XCB_CURSOR_NONE;
};

}  // namespace rondora::x11

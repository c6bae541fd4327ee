#pragma once

#include <xcb/xcb.h>

#include <optional>

#include "base/geometry.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/pointer.h"

namespace rondora::x11 {

/// Takes the pointer's position from the key press that was just handled, otherwise from the server.
class X11Pointer : public Pointer {
 public:
  /// Arguments must outlive the object.
  X11Pointer(X11Connection& connection, const X11KeyStream& keys, X11InputGrab& inputGrab);
  ~X11Pointer() override;

  Point location() const override;
  void setCursor(CursorShape shape) override;

 private:
  std::optional<PixelPosition> askServer() const;

  X11Connection& connection_;
  const X11KeyStream& keys_;
  X11InputGrab& inputGrab_;
  xcb_cursor_t arrow_ = XCB_CURSOR_NONE;
  xcb_cursor_t pointingHand_ = XCB_CURSOR_NONE;
};

}  // namespace rondora::x11

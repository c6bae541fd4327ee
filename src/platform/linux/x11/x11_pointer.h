#pragma once

#include <xcb/xcb.h>

#include "platform/linux/x11/x11_input_grab.h"
#include "platform/linux/x11/x_connection.h"
#include "platform/pointer.h"

namespace rondora::x11 {

class X11Pointer : public Pointer {
 public:
  X11Pointer(XConnection& connection, X11InputGrab& inputGrab);
  ~X11Pointer() override;

  Point location() const override;
  void setCursor(CursorShape shape) override;

 private:
  XConnection& connection_;
  X11InputGrab& inputGrab_;
  xcb_cursor_t arrow_ = XCB_CURSOR_NONE;
  xcb_cursor_t pointingHand_ = XCB_CURSOR_NONE;
};

}  // namespace rondora::x11

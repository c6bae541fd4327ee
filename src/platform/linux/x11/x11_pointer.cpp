#include "platform/linux/x11/x11_pointer.h"

#include <xcb/xcb_cursor.h>

#include <initializer_list>

#include "base/owned.h"

namespace rondora::x11 {
namespace {

/// The first of the names that the user's cursor theme knows.
xcb_cursor_t loadCursor(xcb_cursor_context_t* context, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (const xcb_cursor_t cursor = xcb_cursor_load_cursor(context, name); cursor != XCB_CURSOR_NONE) return cursor;
  }
  return XCB_CURSOR_NONE;
}

}  // namespace

X11Pointer::X11Pointer(XConnection& connection, X11InputGrab& inputGrab)
    : connection_(connection), inputGrab_(inputGrab) {
  xcb_cursor_context_t* context = nullptr;
  auto* screen = const_cast<xcb_screen_t*>(&connection.screen());
  if (xcb_cursor_context_new(connection.get(), screen, &context) < 0) return;
  const UniqueCPtr<xcb_cursor_context_t, xcb_cursor_context_free> owner(context);
  arrow_ = loadCursor(context, {"default", "left_ptr"});
  pointingHand_ = loadCursor(context, {"pointer", "pointing_hand", "hand2", "hand1"});
  inputGrab_.setCursor(arrow_);
}

X11Pointer::~X11Pointer() {
  inputGrab_.setCursor(XCB_CURSOR_NONE);
  for (const xcb_cursor_t cursor : {arrow_, pointingHand_}) {
    if (cursor != XCB_CURSOR_NONE) xcb_free_cursor(connection_.get(), cursor);
  }
}

Point X11Pointer::location() const {
  const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
  const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
  if (!reply) return {};
  return Point{static_cast<double>(reply->root_x), static_cast<double>(reply->root_y)} *
         (1 / connection_.pixelsPerPoint());
}

void X11Pointer::setCursor(CursorShape shape) {
  inputGrab_.setCursor(shape == CursorShape::pointingHand ? pointingHand_ : arrow_);
}

}  // namespace rondora::x11

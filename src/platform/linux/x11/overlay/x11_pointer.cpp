#include "platform/linux/x11/overlay/x11_pointer.h"

#include <xcb/xcb_cursor.h>

#include <initializer_list>

#include "base/owned.h"

namespace rondora::x11 {
namespace {

/// Longer than the handling of a key press, shorter than a deliberate movement.
constexpr double kFreshSeconds = 0.05;

/// Loads the first of the names that the user's cursor theme has.
xcb_cursor_t loadCursor(xcb_cursor_context_t* context, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (const xcb_cursor_t cursor = xcb_cursor_load_cursor(context, name); cursor != XCB_CURSOR_NONE) return cursor;
  }
  return XCB_CURSOR_NONE;
}

}  // namespace

X11Pointer::X11Pointer(X11Connection& connection, const X11KeyStream& keys, X11InputGrab& inputGrab)
    : connection_(connection), keys_(keys), inputGrab_(inputGrab) {
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

std::optional<PixelPosition> X11Pointer::askServer() const {
  const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
  const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
  if (!reply) return std::nullopt;
  return PixelPosition{reply->root_x, reply->root_y};
}

Point X11Pointer::location() const {
  auto pixels = keys_.pointerAtPress(kFreshSeconds);
  if (!pixels) pixels = askServer();
  if (!pixels) return {};
  return Point{static_cast<double>(pixels->x), static_cast<double>(pixels->y)} * (1 / connection_.pixelsPerPoint());
}

void X11Pointer::setCursor(CursorShape shape) {
  inputGrab_.setCursor(shape == CursorShape::pointingHand ? pointingHand_ : arrow_);
}

}  // namespace rondora::x11

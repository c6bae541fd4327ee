#include "platform/linux/x11/windows/window_frame.h"

#include "platform/linux/x11/connection/property_reply.h"

namespace rondora::x11 {
namespace {

/// No border is wider; a property may hold anything.
constexpr std::uint32_t kMaxExtent = 4096;

/// All 0 when the property is missing or senseless.
FrameExtents extentsOf(const X11Connection& connection, xcb_get_property_cookie_t cookie) {
  const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection.get(), cookie, nullptr));
  const auto values = values32(reply.get());
  if (values.size() < 4 || reply->type != XCB_ATOM_CARDINAL) return {};
  for (const std::uint32_t value : values) {
    if (value > kMaxExtent) return {};
  }
  const auto pixels = [&values](std::size_t side) { return static_cast<int>(values[side]); };
  return {pixels(0), pixels(1), pixels(2), pixels(3)};
}

}  // namespace

PixelRect WindowFrame::visible() const {
  return {client.x - decoration.left + shadow.left, client.y - decoration.top + shadow.top,
          client.width + decoration.horizontal() - shadow.horizontal(),
          client.height + decoration.vertical() - shadow.vertical()};
}

void internFrameAtoms(const X11Connection& connection) {
  connection.internAtoms({"_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS"});
}

// Translated: the window's own origin is relative to its frame.
WindowFrameCookies requestWindowFrame(const X11Connection& connection, xcb_window_t window) {
  xcb_connection_t* c = connection.get();
  const auto extents = [&](const char* name) {
    return xcb_get_property(c, 0, window, connection.atom(name), XCB_ATOM_ANY, 0, 4);
  };
  return {xcb_get_geometry(c, window), xcb_translate_coordinates(c, window, connection.root(), 0, 0),
          extents("_NET_FRAME_EXTENTS"), extents("_GTK_FRAME_EXTENTS")};
}

std::optional<WindowFrame> readWindowFrame(const X11Connection& connection, const WindowFrameCookies& cookies) {
  xcb_connection_t* c = connection.get();
  const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, cookies.geometry, nullptr));
  const Reply<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(c, cookies.origin, nullptr));
  const FrameExtents decoration = extentsOf(connection, cookies.decoration);
  const FrameExtents shadow = extentsOf(connection, cookies.shadow);
  if (!geometry || !origin) return std::nullopt;
  return WindowFrame{{origin->dst_x, origin->dst_y, geometry->width, geometry->height}, decoration, shadow};
}

std::optional<WindowFrame> windowFrame(const X11Connection& connection, xcb_window_t window) {
  return readWindowFrame(connection, requestWindowFrame(connection, window));
}

}  // namespace rondora::x11

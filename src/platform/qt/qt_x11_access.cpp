#include "platform/qt/qt_x11_access.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <string>

#include "base/owned.h"

namespace rondora {

namespace {

int defaultScreenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) == 0) return 0;
  const UniqueCPtr<char, std::free> owned(host);
  return screen;
}

template <class T>
using Reply = UniqueCPtr<T, std::free>;

xcb_window_t selectionOwner(xcb_connection_t* xcb, const std::string& name) {
  const auto asked = xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(xcb, asked, nullptr));
  if (!atom) return XCB_WINDOW_NONE;
  const Reply<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, atom->atom), nullptr));
  return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

}  // namespace

std::optional<QtX11Access> qtX11Access() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) return std::nullopt;
  return QtX11Access{x11->connection(), defaultScreenNumber()};
}

double qtPixelsPerPoint() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 1 : screen->devicePixelRatio();
}

QPoint qtPosition(Point point) {
  const double pixels = qtPixelsPerPoint();
  const QPointF pixel(point.x * pixels, point.y * pixels);
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QPointF origin = screen->geometry().topLeft();
    const double ratio = screen->devicePixelRatio();
    if (!QRectF(origin, QSizeF(screen->geometry().size()) * ratio).contains(pixel)) continue;
    return (origin + (pixel - origin) / ratio).toPoint();
  }
  return QPointF(point.x, point.y).toPoint();
}

bool qtIsComposited() {
  const auto access = qtX11Access();
  if (!access) return false;
  const std::string name = "_NET_WM_CM_S" + std::to_string(access->screenNumber);
  return selectionOwner(access->connection, name) != XCB_WINDOW_NONE;
}

}  // namespace rondora

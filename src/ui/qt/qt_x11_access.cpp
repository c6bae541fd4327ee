#include "ui/qt/qt_x11_access.h"

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

}  // namespace rondora

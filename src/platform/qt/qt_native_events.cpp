#include "platform/qt/qt_native_events.h"

#include <QCoreApplication>
#include <utility>

namespace rondora {

QtNativeEvents::QtNativeEvents(Handler handler) : handler_(std::move(handler)) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

QtNativeEvents::~QtNativeEvents() {
  if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

bool QtNativeEvents::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
  if (eventType != "xcb_generic_event_t") return false;
  return handler_(*static_cast<const xcb_generic_event_t*>(message));
}

}  // namespace rondora

#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <functional>

namespace rondora {

/// Passes every event of the toolkit's X connection to a handler before the toolkit sees it, while this object exists.
/// Main thread.
class QtNativeEvents : public QAbstractNativeEventFilter {
 public:
  /// Returns true to hide the event from the toolkit.
  using Handler = std::function<bool(const xcb_generic_event_t&)>;

  explicit QtNativeEvents(Handler handler);
  ~QtNativeEvents() override;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  Handler handler_;
};

}  // namespace rondora

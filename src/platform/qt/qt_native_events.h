#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <functional>

namespace rondora {

/// Shows every event of the toolkit's X connection before the toolkit handles it, as long as this object lives. Main
/// thread.
class QtNativeEvents : public QAbstractNativeEventFilter {
 public:
  /// Returns true when the toolkit must not see the event.
  using Handler = std::function<bool(const xcb_generic_event_t&)>;

  explicit QtNativeEvents(Handler handler);
  ~QtNativeEvents() override;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  Handler handler_;
};

}  // namespace rondora

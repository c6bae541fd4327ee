#pragma once

#include <QAction>

#include "platform/qt/reconnecting_bus.h"
#include "platform/session_events.h"

namespace rondora {

/// The login manager's Lock and PrepareForSleep on the system bus, and ActiveChanged of the session's screen savers.
class BusSessionEvents : public SessionEvents {
 public:
  /// Buses that are not connected announce nothing. Both must outlive the object.
  BusSessionEvents(ReconnectingBus& systemBus, ReconnectingBus& sessionBus);

  Subscription onLockOrSleep(std::function<void()> observer) override;
  Subscription onDidWake(std::function<void()> observer) override;

 private:
  void listenToLogin(QDBusConnection systemBus);
  void listenToScreenSavers(QDBusConnection sessionBus);

  /// Receivers of the signals: one for those without a value, two for those that say whether it begins or ends,
  /// of which each notices every signal of one kind.
  QAction happens_;
  QAction begins_;
  QAction ends_;
  Signal<> lockOrSleep_;
  Signal<> didWake_;
  Subscription systemBusReturns_;
  Subscription sessionBusReturns_;
};

}  // namespace rondora

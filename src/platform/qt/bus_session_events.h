#pragma once

#include <QAction>
#include <QDBusConnection>

#include "platform/session_events.h"

namespace rondora {

/// The login manager's Lock and PrepareForSleep on the system bus, and ActiveChanged of the session's screen savers.
class BusSessionEvents : public SessionEvents {
 public:
  /// Connections that are not connected announce nothing.
  BusSessionEvents(QDBusConnection systemBus, QDBusConnection sessionBus);

  Subscription onLockOrSleep(std::function<void()> observer) override;

 private:
  /// Receivers of the signals: one for those without a value, one for those that say whether it begins or ends.
  QAction happens_;
  QAction begins_;
  Signal<> lockOrSleep_;
};

}  // namespace rondora

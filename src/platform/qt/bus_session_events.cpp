#include "platform/qt/bus_session_events.h"

#include <utility>

namespace rondora {

namespace {

constexpr const char* kScreenSavers[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                         "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver"};

}  // namespace

BusSessionEvents::BusSessionEvents(ReconnectingBus& systemBus, ReconnectingBus& sessionBus)
    : systemBusReturns_(systemBus.onReconnected([&] { listenToLogin(systemBus.connection()); })),
      sessionBusReturns_(sessionBus.onReconnected([&] { listenToScreenSavers(sessionBus.connection()); })) {
  begins_.setCheckable(true);
  QObject::connect(&happens_, &QAction::triggered, &happens_, [this] { lockOrSleep_.send(); });
  QObject::connect(&begins_, &QAction::toggled, &begins_, [this](bool begins) {
    if (!begins) return;
    begins_.setChecked(false);
    lockOrSleep_.send();
  });
  ends_.setCheckable(true);
  ends_.setChecked(true);
  QObject::connect(&ends_, &QAction::toggled, &ends_, [this](bool continues) {
    if (continues) return;
    ends_.setChecked(true);
    didWake_.send();
  });
  listenToLogin(systemBus.connection());
  listenToScreenSavers(sessionBus.connection());
}

// Without a service's name in the rules the bus is not asked for its owner, and nothing waits.
void BusSessionEvents::listenToLogin(QDBusConnection systemBus) {
  systemBus.connect({}, {}, "org.freedesktop.login1.Session", "Lock", &happens_, SLOT(trigger()));
  systemBus.connect({}, {}, "org.freedesktop.login1.Manager", "PrepareForSleep", &begins_, SLOT(setChecked(bool)));
  systemBus.connect({}, {}, "org.freedesktop.login1.Manager", "PrepareForSleep", &ends_, SLOT(setChecked(bool)));
}

void BusSessionEvents::listenToScreenSavers(QDBusConnection sessionBus) {
  for (const char* screenSaver : kScreenSavers) {
    sessionBus.connect({}, {}, screenSaver, "ActiveChanged", &begins_, SLOT(setChecked(bool)));
  }
}

Subscription BusSessionEvents::onLockOrSleep(std::function<void()> observer) {
  return lockOrSleep_.subscribe(std::move(observer));
}

Subscription BusSessionEvents::onDidWake(std::function<void()> observer) {
  return didWake_.subscribe(std::move(observer));
}

}  // namespace rondora

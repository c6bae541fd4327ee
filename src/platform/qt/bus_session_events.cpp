#include "platform/qt/bus_session_events.h"

#include <utility>

namespace rondora {

namespace {

constexpr const char* kScreenSavers[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                         "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver"};

}  // namespace

// Without a service's name in the rules the bus is not asked for its owner, and nothing waits.
BusSessionEvents::BusSessionEvents(QDBusConnection systemBus, QDBusConnection sessionBus) {
  begins_.setCheckable(true);
  QObject::connect(&happens_, &QAction::triggered, &happens_, [this] { lockOrSleep_.send(); });
  QObject::connect(&begins_, &QAction::toggled, &begins_, [this](bool begins) {
    if (!begins) return;
    begins_.setChecked(false);
    lockOrSleep_.send();
  });
  systemBus.connect({}, {}, "org.freedesktop.login1.Session", "Lock", &happens_, SLOT(trigger()));
  systemBus.connect({}, {}, "org.freedesktop.login1.Manager", "PrepareForSleep", &begins_, SLOT(setChecked(bool)));
  for (const char* screenSaver : kScreenSavers) {
    sessionBus.connect({}, {}, screenSaver, "ActiveChanged", &begins_, SLOT(setChecked(bool)));
  }
}

Subscription BusSessionEvents::onLockOrSleep(std::function<void()> observer) {
  return lockOrSleep_.subscribe(std::move(observer));
}

}  // namespace rondora

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QTimer>

#include "base/observable.h"

namespace rondora {

/// Watches whether a panel shows the status items of the session bus. Never blocks. Main thread.
class StatusNotifierWatch {
 public:
  enum class Hosts {
    /// No reply yet.
    unknown,
    /// No watcher is on the bus.
    noWatcher,
    /// A watcher is on the bus, but no panel shows its items.
    none,
    present,
  };

  explicit StatusNotifierWatch(QDBusConnection bus);

  Hosts hosts() const { return hosts_; }
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) {
    return changed_.subscribe(std::move(observer));
  }

 private:
  void ask();
  void set(Hosts hosts);

  QDBusConnection bus_;
  Hosts hosts_ = Hosts::unknown;
  Signal<> changed_;
  QDBusServiceWatcher service_;
  /// Started by the watcher's own signals.
  QTimer askAgain_;
};

}  // namespace rondora

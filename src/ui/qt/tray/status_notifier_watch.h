#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QTimer>

#include "base/observable.h"

namespace rondora {

/// Whether a panel shows status items that are announced on the session bus. Never waits for an answer. Main thread.
class StatusNotifierWatch {
 public:
  enum class Hosts {
    /// No answer yet.
    unknown,
    /// Nobody keeps the list of items.
    noWatcher,
    /// The list is kept, and no panel shows it.
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

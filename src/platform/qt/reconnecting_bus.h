#pragma once

#include <QDBusConnection>
#include <QThreadPool>
#include <QTimer>
#include <functional>

#include "base/observable.h"

namespace rondora {

/// The connection to a message bus, made again after the bus was restarted. Main thread.
class ReconnectingBus {
 public:
  /// Begins with the toolkit's shared connection; one that is not connected stays so. `doesBusAnswer` says, on another
  /// thread, whether the bus would answer; it may block.
  ReconnectingBus(QDBusConnection::BusType type, std::function<bool()> doesBusAnswer);
  ReconnectingBus(const ReconnectingBus&) = delete;
  ReconnectingBus& operator=(const ReconnectingBus&) = delete;

  QDBusConnection connection() const { return connection_; }
  /// Called after `connection` was replaced: the new one owns no names, objects or subscriptions.
  [[nodiscard]] Subscription onReconnected(std::function<void()> observer);

 private:
  void watchConnection();
  void askWhetherBusAnswers();
  void connectAgain(bool isThere);

  QDBusConnection::BusType type_;
  std::function<bool()> doesBusAnswer_;
  QDBusConnection connection_;
  int connections_ = 0;
  Signal<> reconnected_;
  /// Runs while the connection is lost.
  QTimer retry_;
  /// A pool of its own: what blocks here must not delay painting.
  QThreadPool probes_;
};

}  // namespace rondora

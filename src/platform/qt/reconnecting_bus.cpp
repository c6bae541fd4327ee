#include "platform/qt/reconnecting_bus.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace rondora {

namespace {

constexpr std::chrono::milliseconds kRetryInterval{1000};  // while the bus is gone; doubled each time
constexpr std::chrono::milliseconds kMaxRetryInterval{60000};

QDBusConnection sharedConnection(QDBusConnection::BusType type) {
  return type == QDBusConnection::SystemBus ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
}

}  // namespace

ReconnectingBus::ReconnectingBus(QDBusConnection::BusType type, std::function<bool()> doesBusAnswer)
    : type_(type), doesBusAnswer_(std::move(doesBusAnswer)), connection_(sharedConnection(type)) {
  retry_.setSingleShot(true);
  QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { askWhetherBusAnswers(); });
  watchConnection();
}

Subscription ReconnectingBus::onReconnected(std::function<void()> observer) {
  return reconnected_.subscribe(std::move(observer));
}

void ReconnectingBus::watchConnection() {
  retry_.setInterval(kRetryInterval);
  connection_.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", &retry_,
                      SLOT(start()));
}

// The bus may accept and not answer, so another thread asks it first.
void ReconnectingBus::askWhetherBusAnswers() {
  probes_.start([this] {
    const bool isThere = doesBusAnswer_();
    QMetaObject::invokeMethod(
        &retry_, [this, isThere] { connectAgain(isThere); }, Qt::QueuedConnection);
  });
}

void ReconnectingBus::connectAgain(bool isThere) {
  const QString name = QString("rondora-%1-%2").arg(static_cast<int>(type_)).arg(++connections_);
  if (isThere) connection_ = QDBusConnection::connectToBus(type_, name);
  if (!isThere || !connection_.isConnected()) {
    QDBusConnection::disconnectFromBus(name);
    retry_.start(std::min(2 * retry_.intervalAsDuration(), kMaxRetryInterval));
    return;
  }
  watchConnection();
  reconnected_.send();
}

}  // namespace rondora

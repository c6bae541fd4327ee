#include "platform/qt/accessibility_status.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QVariant>
#include <utility>

namespace rondora {
namespace {

constexpr const char* kService = "org.a11y.Bus";
constexpr const char* kPath = "/org/a11y/bus";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";

QDBusMessage callOf(const char* interface, const char* method) {
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, interface, method);
  call.setAutoStartService(false);
  return call;
}

/// Calls `take` with the reply, an error too, unless `receiver` is gone.
void send(const QDBusConnection& bus, const QDBusMessage& call, QObject& receiver,
          std::function<void(const QDBusMessage&)> take) {
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), &receiver);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, take = std::move(take)] {
    watcher->deleteLater();
    take(watcher->reply());
  });
}

}  // namespace

AccessibilityStatus::AccessibilityStatus(ReconnectingBus& sessionBus, Observer observer)
    : bus_(sessionBus), observer_(std::move(observer)), busReturns_(sessionBus.onReconnected([this] { listen(); })) {
  QObject::connect(&changed_, &QAction::triggered, &changed_, [this] { ask(); });
  listen();
}

// Without a service's name in the rules the bus is not asked for its owner, and nothing waits.
void AccessibilityStatus::listen() {
  QDBusConnection connection = bus_.connection();
  connection.connect({}, kPath, kProperties, "PropertiesChanged", &changed_, SLOT(trigger()));
  connection.connect({}, {}, "org.freedesktop.DBus", "NameOwnerChanged", {kService}, {}, &changed_, SLOT(trigger()));
  ask();
}

/// A screen reader may be wanted while the switch for all of accessibility is off.
void AccessibilityStatus::ask() {
  QDBusMessage call = callOf(kProperties, "GetAll");
  call << "org.a11y.Status";
  send(bus_.connection(), call, changed_, [this](const QDBusMessage& reply) {
    const QVariantMap properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    const bool isOn = properties.value("IsEnabled").toBool() || properties.value("ScreenReaderEnabled").toBool();
    if (isOn) return askAddress();
    observer_(std::nullopt);
  });
}

void AccessibilityStatus::askAddress() {
  send(bus_.connection(), callOf(kService, "GetAddress"), changed_, [this](const QDBusMessage& reply) {
    const std::string address = reply.arguments().value(0).toString().toStdString();
    const bool isAddress = reply.type() == QDBusMessage::ReplyMessage && !address.empty();
    observer_(isAddress ? std::optional(address) : std::nullopt);
  });
}

}  // namespace rondora

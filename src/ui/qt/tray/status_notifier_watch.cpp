#include "ui/qt/tray/status_notifier_watch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

namespace rondora {

namespace {

constexpr const char* kService = "org.kde.StatusNotifierWatcher";
constexpr const char* kPath = "/StatusNotifierWatcher";

}  // namespace

StatusNotifierWatch::StatusNotifierWatch(QDBusConnection bus)
    : bus_(std::move(bus)), service_(kService, bus_, QDBusServiceWatcher::WatchForOwnerChange) {
  if (!bus_.isConnected()) {
    hosts_ = Hosts::noWatcher;
    return;
  }
  askAgain_.setSingleShot(true);
  QObject::connect(&askAgain_, &QTimer::timeout, &askAgain_, [this] { ask(); });
  QObject::connect(&service_, &QDBusServiceWatcher::serviceOwnerChanged, &askAgain_, [this] { ask(); });
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_.connect(kService, kPath, kService, signal, &askAgain_, SLOT(start()));
  }
  ask();
}

void StatusNotifierWatch::ask() {
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  question.setAutoStartService(false);
  question << QString(kService) << QString("IsStatusNotifierHostRegistered");
  auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question), &askAgain_);
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, &askAgain_, [this, answer] {
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    answer->deleteLater();
    if (reply.isError()) return set(Hosts::noWatcher);
    set(reply.value().variant().toBool() ? Hosts::present : Hosts::none);
  });
}

void StatusNotifierWatch::set(Hosts hosts) {
  if (std::exchange(hosts_, hosts) != hosts) changed_.send();
}

}  // namespace rondora

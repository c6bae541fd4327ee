#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <string>
#include <vector>

#include "platform/instance_channel.h"
#include "platform/qt/reconnecting_bus.h"

namespace rondora {

/// The program's name on the session bus and the object behind it; both return after the bus was restarted. Waits for
/// the bus for two seconds at most. Main thread.
class SessionBusChannel final : public QDBusVirtualObject, public InstanceChannel {
 public:
  /// `name` is the bus name to own and also the name of the interface; the object's path has the same parts.
  /// `bus` must outlive the object.
  SessionBusChannel(ReconnectingBus& bus, const std::string& name);
  ~SessionBusChannel() override;

  Claim claim() override;
  void release() override;
  bool askForSettings() override;
  void serve(SessionRequests requests) override;

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  void reply(const QDBusMessage& call) const;
  QDBusMessage answerTo(const QDBusMessage& call) const;
  QDBusMessage answerToTrigger(const QDBusMessage& call) const;

  /// Without waiting for the reply: the name is ours as soon as it is free.
  void claimAgain();

  ReconnectingBus& bus_;
  QString name_;
  QString path_;
  SessionRequests requests_;
  /// Calls from before `serve`.
  std::vector<QDBusMessage> waiting_;
  Subscription reconnected_;
};

}  // namespace rondora

#include "platform/qt/session_bus_channel.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>
#include <utility>

namespace rondora {

namespace {

constexpr int kReplyTimeoutMilliseconds = 10000;
constexpr const char* kShowSettings = "ShowSettings";
constexpr const char* kTrigger = "Trigger";

constexpr const char* kInterface = R"(
  <interface name="%1">
    <method name="ShowSettings"/>
    <method name="Trigger">
      <arg name="menuId" type="s" direction="in"/>
    </method>
  </interface>
)";

}  // namespace

SessionBusChannel::SessionBusChannel(QDBusConnection bus, const std::string& name)
    : bus_(std::move(bus)), name_(QString::fromStdString(name)), path_("/" + QString(name_).replace('.', '/')) {}

SessionBusChannel::~SessionBusChannel() { release(); }

// Registers the object before the name: a caller that finds the name also finds the object.
InstanceChannel::Claim SessionBusChannel::claim() {
  if (!bus_.isConnected()) return Claim::unavailable;
  if (!bus_.registerVirtualObject(path_, this)) return Claim::unavailable;
  const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply = bus_.interface()->registerService(
      name_, QDBusConnectionInterface::DontQueueService, QDBusConnectionInterface::DontAllowReplacement);
  if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) return Claim::first;
  bus_.unregisterObject(path_);
  return reply.isValid() ? Claim::taken : Claim::unavailable;
}

void SessionBusChannel::release() {
  if (!bus_.isConnected() || bus_.objectRegisteredAt(path_) != this) return;
  bus_.unregisterService(name_);
  bus_.unregisterObject(path_);
}

bool SessionBusChannel::askForSettings() {
  QDBusMessage call = QDBusMessage::createMethodCall(name_, path_, name_, kShowSettings);
  call.setAutoStartService(false);
  return bus_.call(call, QDBus::Block, kReplyTimeoutMilliseconds).type() == QDBusMessage::ReplyMessage;
}

void SessionBusChannel::serve(SessionRequests requests) { requests_ = std::move(requests); }

QString SessionBusChannel::introspect(const QString& path) const {
  return path == path_ ? QString(kInterface).arg(name_) : QString();
}

bool SessionBusChannel::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  const bool isOurs = message.interface().isEmpty() || message.interface() == name_;
  if (!isOurs || (message.member() != kShowSettings && message.member() != kTrigger)) return false;
  const QDBusMessage answer = answerTo(message);
  if (message.isReplyRequired()) connection.send(answer);
  return true;
}

QDBusMessage SessionBusChannel::answerTo(const QDBusMessage& call) const {
  if (!requests_.showSettings || !requests_.trigger) {
    return call.createErrorReply(QDBusError::Failed, "the program is still starting");
  }
  if (call.member() == kTrigger) return answerToTrigger(call);
  if (!call.signature().isEmpty())
    return call.createErrorReply(QDBusError::InvalidArgs, "ShowSettings takes no arguments");
  requests_.showSettings();
  return call.createReply();
}

QDBusMessage SessionBusChannel::answerToTrigger(const QDBusMessage& call) const {
  if (call.signature() != QLatin1String("s")) {
    return call.createErrorReply(QDBusError::InvalidArgs, "Trigger takes one string, the id of a menu");
  }
  const std::string menuId = call.arguments().constFirst().toString().toStdString();
  if (requests_.trigger(menuId)) return call.createReply();
  return call.createErrorReply(name_ + ".Error.UnknownMenu", "no menu has this id");
}

}  // namespace rondora

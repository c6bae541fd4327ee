#include "platform/qt/session_bus_channel.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QVariant>
#include <cstdint>
#include <utility>

namespace rondora {

namespace {

constexpr int kReplyTimeout = 2000;  // milliseconds, also of the bus itself

// Flags and reply of the method RequestName of org.freedesktop.DBus.
constexpr std::uint32_t kQueue = 0;
constexpr std::uint32_t kDoNotQueue = 4;
constexpr std::uint32_t kPrimaryOwner = 1;
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

QDBusMessage callOfBus(const char* method, const QList<QVariant>& arguments) {
  QDBusMessage call =
      QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method);
  call.setArguments(arguments);
  return call;
}

}  // namespace

SessionBusChannel::SessionBusChannel(ReconnectingBus& bus, const std::string& name)
    : bus_(bus), name_(QString::fromStdString(name)), path_("/" + QString(name_).replace('.', '/')) {}

SessionBusChannel::~SessionBusChannel() { release(); }

// Registers the object before the name: a caller that finds the name also finds the object.
InstanceChannel::Claim SessionBusChannel::claim() {
  QDBusConnection connection = bus_.connection();
  if (!connection.isConnected()) return Claim::unavailable;
  if (!connection.registerVirtualObject(path_, this)) return Claim::unavailable;
  const QDBusMessage reply =
      connection.call(callOfBus("RequestName", {name_, QVariant::fromValue(kDoNotQueue)}), QDBus::Block, kReplyTimeout);
  const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
  if (isReply && reply.arguments().value(0).toUInt() == kPrimaryOwner) {
    reconnected_ = bus_.onReconnected([this] { claimAgain(); });
    return Claim::first;
  }
  connection.unregisterObject(path_);
  return isReply ? Claim::taken : Claim::unavailable;
}

void SessionBusChannel::claimAgain() {
  QDBusConnection connection = bus_.connection();
  connection.registerVirtualObject(path_, this);
  connection.send(callOfBus("RequestName", {name_, QVariant::fromValue(kQueue)}));
}

// Does not wait for the bus, which may hang.
void SessionBusChannel::release() {
  reconnected_.reset();
  QDBusConnection connection = bus_.connection();
  if (!connection.isConnected() || connection.objectRegisteredAt(path_) != this) return;
  connection.send(callOfBus("ReleaseName", {name_}));
  connection.unregisterObject(path_);
}

bool SessionBusChannel::askForSettings() {
  QDBusMessage call = QDBusMessage::createMethodCall(name_, path_, name_, kShowSettings);
  call.setAutoStartService(false);
  return bus_.connection().call(call, QDBus::Block, kReplyTimeout).type() == QDBusMessage::ReplyMessage;
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

#include "platform/qt/session_bus_channel.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QList>
#include <QVariant>
#include <cstdint>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {

// Looked up by the toolkit in the namespace of the type.
QDBusArgument& operator<<(QDBusArgument& argument, const MenuListing& menu) {
  argument.beginStructure();
  argument << toQString(menu.id) << toQString(menu.name) << toQString(menu.hotkey) << menu.isLive;
  argument.endStructure();
  return argument;
}

// Listings are sent only, but the toolkit wants both directions.
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuListing&) { return argument; }

namespace {

constexpr int kReplyTimeout = 2000;  // milliseconds, also of the bus itself

// Flags and reply of the method RequestName of org.freedesktop.DBus.
constexpr std::uint32_t kQueue = 0;
constexpr std::uint32_t kDoNotQueue = 4;
constexpr std::uint32_t kPrimaryOwner = 1;
constexpr const char* kPropertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* kShowSettings = "ShowSettings";
constexpr const char* kTrigger = "Trigger";
constexpr const char* kListMenus = "ListMenus";

constexpr const char* kInterface = R"xml(
  <interface name="%1">
    <method name="ShowSettings"/>
    <method name="Trigger">
      <arg name="menu" type="s" direction="in"/>
    </method>
    <method name="ListMenus">
      <arg name="menus" type="a(sssb)" direction="out"/>
    </method>
  </interface>
)xml";

/// The part after the interface's name.
const char* errorName(TriggerReply reply) {
  switch (reply) {
    case TriggerReply::ambiguous:
      return ".Error.AmbiguousMenu";
    case TriggerReply::switchedOff:
      return ".Error.MenuSwitchedOff";
    case TriggerReply::empty:
      return ".Error.EmptyMenu";
    case TriggerReply::unknown:
    case TriggerReply::opens:
      break;
  }
  return ".Error.UnknownMenu";
}

QDBusArgument listed(const std::vector<MenuListing>& menus) {
  QDBusArgument list;
  list << QList<MenuListing>(menus.begin(), menus.end());
  return list;
}

QDBusMessage callOfBus(const char* method, const QList<QVariant>& arguments) {
  QDBusMessage call =
      QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method);
  call.setArguments(arguments);
  return call;
}

}  // namespace

SessionBusChannel::SessionBusChannel(ReconnectingBus& bus, const std::string& name)
    : bus_(bus), name_(QString::fromStdString(name)), path_("/" + QString(name_).replace('.', '/')) {
  qDBusRegisterMetaType<MenuListing>();
}

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

void SessionBusChannel::serve(SessionRequests requests) {
  requests_ = std::move(requests);
  for (const QDBusMessage& call : std::exchange(waiting_, {})) reply(call);
}

QString SessionBusChannel::introspect(const QString& path) const {
  return path == path_ ? QString(kInterface).arg(name_) : QString();
}

bool SessionBusChannel::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
  const bool asksForProperties = message.interface() == kPropertiesInterface && message.member() == "GetAll" &&
                                 message.arguments().value(0).toString() == name_;
  if (asksForProperties) return bus_.connection().send(message.createReply(QVariantMap()));
  if (!message.interface().isEmpty() && message.interface() != name_) return false;
  if (requests_.showSettings) {
    reply(message);
  } else {
    waiting_.push_back(message);
  }
  return true;
}

void SessionBusChannel::reply(const QDBusMessage& call) const {
  const QDBusMessage answer = answerTo(call);
  if (call.isReplyRequired()) bus_.connection().send(answer);
}

QDBusMessage SessionBusChannel::answerTo(const QDBusMessage& call) const {
  if (call.member() == kTrigger) return answerToTrigger(call);
  if (call.member() != kListMenus && call.member() != kShowSettings) {
    return call.createErrorReply(QDBusError::UnknownMethod, "the interface has no method " + call.member());
  }
  if (!call.signature().isEmpty()) {
    return call.createErrorReply(QDBusError::InvalidArgs, call.member() + " takes no arguments");
  }
  if (call.member() == kListMenus) return call.createReply(QVariant::fromValue(listed(requests_.listMenus())));
  requests_.showSettings();
  return call.createReply();
}

QDBusMessage SessionBusChannel::answerToTrigger(const QDBusMessage& call) const {
  if (call.signature() != QLatin1String("s")) {
    return call.createErrorReply(QDBusError::InvalidArgs, "Trigger takes one string, the id or the name of a menu");
  }
  const TriggerReply reply = requests_.trigger(call.arguments().constFirst().toString().toStdString());
  if (reply == TriggerReply::opens) return call.createReply();
  return call.createErrorReply(name_ + errorName(reply), toQString(explain(reply)));
}

}  // namespace rondora

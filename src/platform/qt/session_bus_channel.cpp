#include "platform/qt/session_bus_channel.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

namespace rondora {

namespace {

constexpr int kReplyTimeout = 2000;                        // milliseconds, also of the bus itself
constexpr std::chrono::milliseconds kRetryInterval{1000};  // while the bus is gone; doubled each time
constexpr std::chrono::milliseconds kMaxRetryInterval{60000};

// Flag and reply of the method RequestName of org.freedesktop.DBus.
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

SessionBusChannel::SessionBusChannel(QDBusConnection bus, const std::string& name, std::function<bool()> doesBusAnswer)
    : bus_(std::move(bus)),
      name_(QString::fromStdString(name)),
      path_("/" + QString(name_).replace('.', '/')),
      doesBusAnswer_(std::move(doesBusAnswer)) {
  retry_.setSingleShot(true);
  QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { askWhetherBusAnswers(); });
}

SessionBusChannel::~SessionBusChannel() { release(); }

// Registers the object before the name: a caller that finds the name also finds the object.
InstanceChannel::Claim SessionBusChannel::claim() {
  if (!bus_.isConnected()) return Claim::unavailable;
  if (!bus_.registerVirtualObject(path_, this)) return Claim::unavailable;
  const QDBusMessage reply =
      bus_.call(callOfBus("RequestName", {name_, QVariant::fromValue(kDoNotQueue)}), QDBus::Block, kReplyTimeout);
  const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
  if (isReply && reply.arguments().value(0).toUInt() == kPrimaryOwner) {
    retry_.setInterval(kRetryInterval);
    watchConnection();
    return Claim::first;
  }
  bus_.unregisterObject(path_);
  return isReply ? Claim::taken : Claim::unavailable;
}

// Does not wait for the bus, which may hang.
void SessionBusChannel::release() {
  retry_.stop();
  if (!bus_.isConnected() || bus_.objectRegisteredAt(path_) != this) return;
  bus_.send(callOfBus("ReleaseName", {name_}));
  bus_.unregisterObject(path_);
}

void SessionBusChannel::watchConnection() {
  bus_.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", &retry_, SLOT(start()));
}

// The bus may accept and not answer, so another thread asks it first.
void SessionBusChannel::askWhetherBusAnswers() {
  probes_.start([this] {
    const bool isThere = doesBusAnswer_();
    QMetaObject::invokeMethod(
        &retry_, [this, isThere] { connectAgain(isThere); }, Qt::QueuedConnection);
  });
}

void SessionBusChannel::connectAgain(bool isThere) {
  if (isThere) {
    const QString connection = "rondora-" + QString::number(++connections_);
    bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection);
    if (claim() == Claim::first) return;
    QDBusConnection::disconnectFromBus(connection);
  }
  retry_.start(std::min(2 * retry_.intervalAsDuration(), kMaxRetryInterval));
}

bool SessionBusChannel::askForSettings() {
  QDBusMessage call = QDBusMessage::createMethodCall(name_, path_, name_, kShowSettings);
  call.setAutoStartService(false);
  return bus_.call(call, QDBus::Block, kReplyTimeout).type() == QDBusMessage::ReplyMessage;
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

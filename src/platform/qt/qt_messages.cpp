#include "platform/qt/qt_messages.h"

#include <QLatin1String>
#include <QString>
#include <optional>
#include <utility>

namespace rondora {

namespace {

struct Receiver {
  Log* log;
  std::function<void()> serverLost;
};

/// Global, because the toolkit's handler is a plain function.
std::optional<Receiver> receiver;

void handleMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (!receiver) return;
  if (message.startsWith(QLatin1String("The X11 connection broke"))) return receiver->serverLost();
  const bool isError = type == QtCriticalMsg || type == QtFatalMsg;
  receiver->log->write(isError ? LogLevel::error : LogLevel::standard, message.toStdString());
}

}  // namespace

QtMessages::QtMessages(Log& log, std::function<void()> serverLost) {
  receiver = Receiver{&log, std::move(serverLost)};
  qInstallMessageHandler(handleMessage);
}

QtMessages::~QtMessages() {
  qInstallMessageHandler(nullptr);
  receiver.reset();
}

}  // namespace rondora

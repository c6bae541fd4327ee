#include "platform/qt/qt_application_shell.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QWidget>
#include <utility>

namespace rondora {

namespace {

/// Without it the toolkit closes every window before it ends the event loop.
class QuitFilter : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != qApp || event->type() != QEvent::Quit) return false;
    QCoreApplication::exit();
    return true;
  }
};

void neverRestart(QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); }

}  // namespace

QtApplicationShell::QtApplicationShell() : context_(std::make_unique<QuitFilter>()) {
  qApp->installEventFilter(context_.get());
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(qApp, &QGuiApplication::lastWindowClosed, context_.get(), [this] {
    if (shouldTerminateAfterLastWindowClosed_ && shouldTerminateAfterLastWindowClosed_()) terminate();
  });
  QObject::connect(qApp, &QGuiApplication::applicationStateChanged, context_.get(), [this](Qt::ApplicationState state) {
    if (state == Qt::ApplicationActive) didBecomeActive_.send();
  });
  // Direct: the hint must be set before the reply to the session manager goes out.
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, context_.get(), neverRestart, Qt::DirectConnection);
  QObject::connect(qApp, &QGuiApplication::saveStateRequest, context_.get(), neverRestart, Qt::DirectConnection);
}

QtApplicationShell::~QtApplicationShell() = default;

void QtApplicationShell::setMainMenu(std::vector<MenuEntry> entries) { mainMenu_ = std::move(entries); }

void QtApplicationShell::activateIgnoringOtherApps() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->windowType() != Qt::Window || !widget->isVisible()) continue;
    widget->raise();
    widget->activateWindow();
  }
}

void QtApplicationShell::terminate() { QCoreApplication::quit(); }

void QtApplicationShell::openOwnApplication(const OpenConfiguration& /*configuration*/, std::function<void()> opened) {
  isNewInstanceRequested_ = true;
  opened();
}

void QtApplicationShell::setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) {
  shouldTerminateAfterLastWindowClosed_ = std::move(shouldTerminate);
}

Subscription QtApplicationShell::onDidBecomeActive(std::function<void()> observer) {
  return didBecomeActive_.subscribe(std::move(observer));
}

}  // namespace rondora

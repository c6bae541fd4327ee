#include "ui/qt/qt_application_shell.h"

#include <QApplication>
#include <QProcess>
#include <QWidget>
#include <utility>

namespace rondora {

QtApplicationShell::QtApplicationShell() {
  QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &context_, [this](Qt::ApplicationState state) {
    if (state == Qt::ApplicationActive) didBecomeActive_.send();
  });
}

void QtApplicationShell::setActivationPolicy(ActivationPolicy policy) {
  QGuiApplication::setQuitOnLastWindowClosed(policy == ActivationPolicy::regular);
}

void QtApplicationShell::setMainMenu(std::vector<MenuEntry> entries) { mainMenu_ = std::move(entries); }

void QtApplicationShell::activateIgnoringOtherApps() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->windowType() != Qt::Window || !widget->isVisible()) continue;
    widget->raise();
    widget->activateWindow();
  }
}

void QtApplicationShell::terminate() { QCoreApplication::quit(); }

void QtApplicationShell::relaunch() {
  QProcess::startDetached(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
  QCoreApplication::quit();
}

Subscription QtApplicationShell::onDidBecomeActive(std::function<void()> observer) {
  return didBecomeActive_.subscribe(std::move(observer));
}

}  // namespace rondora

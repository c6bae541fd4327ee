#include "ui/qt/qt_status_bar.h"

#include <QAction>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMenu>
#include <QPalette>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <utility>

#include "ui/qt/qt_conversions.h"
#include "ui/qt/status_bar_icon.h"
#include "ui/qt/symbol_images.h"

namespace rondora {

namespace {

constexpr const char* kWatcherService = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr int kWatcherAnswerMilliseconds = 500;

Color menuTextColor(const QMenu& menu) {
  const QColor color = menu.palette().color(QPalette::Text);
  return {color.redF(), color.greenF(), color.blueF(), 1};
}

QIcon menuIcon(const std::string& symbol, Color tint) {
  QIcon icon;
  for (const int side : {16, 24, 32}) icon.addPixmap(QPixmap::fromImage(symbolImage(symbol, side, tint)));
  return icon;
}

enum class WatcherState { absent, withoutHost, withHost };

WatcherState watcherState() {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected() || !bus.interface()->isServiceRegistered(kWatcherService)) return WatcherState::absent;
  QDBusMessage question =
      QDBusMessage::createMethodCall(kWatcherService, kWatcherPath, "org.freedesktop.DBus.Properties", "Get");
  question << QString(kWatcherService) << QString("IsStatusNotifierHostRegistered");
  const QDBusMessage answer = bus.call(question, QDBus::Block, kWatcherAnswerMilliseconds);
  const QVariant value = answer.arguments().value(0).value<QDBusVariant>().variant();
  return value.toBool() ? WatcherState::withHost : WatcherState::withoutHost;
}

class QtStatusItem : public StatusItem {
 public:
  explicit QtStatusItem(const StatusItemDescription& description) {
    for (const MenuEntry& entry : description.menu) addEntry(entry);
    menu_.setAccessibleName(toQString(description.accessibilityLabel));
    icon_.setObjectName(toQString(description.autosaveName));
    icon_.setIcon(StatusBarIcon::make());
    icon_.setToolTip(toQString(description.toolTip));
    icon_.setContextMenu(&menu_);
    QObject::connect(&icon_, &QSystemTrayIcon::activated, &menu_, [this](QSystemTrayIcon::ActivationReason reason) {
      if (reason == QSystemTrayIcon::Trigger) openMenu();
    });
    icon_.show();
  }

  void setMenuTitle(std::size_t index, const std::string& title) override {
    const auto actions = menu_.actions();
    const auto position = static_cast<qsizetype>(index);
    if (position < actions.size()) actions.at(position)->setText(escaped(title));
  }

  /// The item's own visibility says nothing: it is true even where there is no tray at all.
  std::optional<std::string> visibilityProblem() const override {
    switch (watcherState()) {
      case WatcherState::withHost:
        return std::nullopt;
      case WatcherState::withoutHost:
        return "no panel of the desktop shows status items";
      case WatcherState::absent:
        break;
    }
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return "the desktop has no system tray";
    if (icon_.geometry().isEmpty()) return "the system tray has not taken the item in";
    return std::nullopt;
  }

 private:
  static QString escaped(const std::string& title) { return toQString(title).replace('&', "&&"); }

  void addEntry(const MenuEntry& entry) {
    if (entry.isSeparator) {
      menu_.addSeparator();
      return;
    }
    QAction* action = menu_.addAction(escaped(entry.title));
    if (!entry.symbol.empty()) action->setIcon(menuIcon(entry.symbol, menuTextColor(menu_)));
    action->setIconVisibleInMenu(true);
    QObject::connect(action, &QAction::triggered, &menu_, [run = entry.action] {
      if (run) run();
    });
  }

  void openMenu() {
    if (!menu_.isVisible()) menu_.popup(QCursor::pos());
  }

  QMenu menu_;
  QSystemTrayIcon icon_;
};

}  // namespace

std::unique_ptr<StatusItem> QtStatusBar::makeStatusItem(const StatusItemDescription& description) {
  return std::make_unique<QtStatusItem>(description);
}

}  // namespace rondora

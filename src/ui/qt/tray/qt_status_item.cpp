#include "ui/qt/tray/qt_status_item.h"

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/painting/symbol_images.h"

namespace rondora {

namespace {

using Hosts = StatusNotifierWatch::Hosts;

/// A panel draws the menu in its own colours, which it does not publish: this grey has a contrast of 4.5 : 1 to white
/// and to black (WCAG 2.1, 1.4.3).
constexpr Color kLegibleGrey{0.463, 0.463, 0.463, 1};

QString escaped(const std::string& title) { return toQString(title).replace('&', "&&"); }

Color toColor(const QColor& color) { return {color.redF(), color.greenF(), color.blueF(), 1}; }

QIcon menuIcon(const std::string& symbol, const QPalette& palette) {
  const Color highlighted = toColor(palette.color(QPalette::HighlightedText));
  QIcon icon;
  for (const int side : {16, 24, 32}) {
    icon.addPixmap(QPixmap::fromImage(symbolImage(symbol, side, kLegibleGrey)));
    icon.addPixmap(QPixmap::fromImage(symbolImage(symbol, side, highlighted)), QIcon::Active);
  }
  return icon;
}

}  // namespace

QtStatusItem::QtStatusItem(const StatusItemDescription& description, const EmbeddingTray& embeddingTray,
                           StatusNotifierWatch& notifierWatch)
    : embeddingTray_(embeddingTray),
      notifierWatch_(notifierWatch),
      role_(description.role),
      toolTip_(toQString(description.toolTip)) {
  for (const MenuEntry& entry : description.menu) addEntry(entry);
  menu_.setAccessibleName(toQString(description.accessibilityLabel));
  embeddingTrayObserver_ = embeddingTray_.onChanged([this] { handleTrays(); });
  notifierObserver_ = notifierWatch_.onChanged([this] { handleTrays(); });
  handleTrays();
}

void QtStatusItem::addEntry(const MenuEntry& entry) {
  if (entry.isSeparator) {
    menu_.addSeparator();
    return;
  }
  QAction* action = menu_.addAction(escaped(entry.title));
  if (!entry.symbol.empty()) action->setIcon(menuIcon(entry.symbol, menu_.palette()));
  action->setIconVisibleInMenu(true);
  QObject::connect(action, &QAction::triggered, &menu_, [run = entry.action] {
    if (run) run();
  });
}

void QtStatusItem::setMenuTitle(std::size_t index, const std::string& title) {
  const auto actions = menu_.actions();
  const auto position = static_cast<qsizetype>(index);
  if (position < actions.size()) actions.at(position)->setText(escaped(title));
}

void QtStatusItem::setToolTip(const std::string& toolTip) {
  toolTip_ = toQString(toolTip);
  if (icon_) icon_->setToolTip(toolTip_);
}

void QtStatusItem::handleTrays() {
  if (notifierWatch_.hosts() == Hosts::unknown) return;
  enterTray();
  traysChanged_.send();
}

void QtStatusItem::enterTray() {
  const Hosts hosts = notifierWatch_.hosts();
  if (icon_ || (hosts != Hosts::present && !embeddingTray_.isThere())) return;
  isOnTheBus_ = hosts == Hosts::present;
  icon_.emplace(applicationIcon());
  icon_->setToolTip(toolTip_);
  icon_->setContextMenu(&menu_);
  QObject::connect(&*icon_, &QSystemTrayIcon::activated, &menu_, [this](QSystemTrayIcon::ActivationReason reason) {
    // The toolkit reports a click soon after another one as a double click, even on a menu.
    const bool isClick = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
    if (isClick && role_ == StatusItemRole::menuButton) openMenu();
  });
  icon_->show();
}

StatusItemVisibility QtStatusItem::visibility() const {
  const Hosts hosts = notifierWatch_.hosts();
  if (hosts == Hosts::unknown) return StatusItemVisibility::unknown;
  const bool goesByBus = icon_ ? isOnTheBus_ : hosts == Hosts::none;
  if (goesByBus) return hosts == Hosts::present ? StatusItemVisibility::visible : StatusItemVisibility::noPanel;
  if (!embeddingTray_.isThere()) return StatusItemVisibility::noTray;
  const bool isEmbedded = icon_ && !icon_->geometry().isEmpty();
  return isEmbedded ? StatusItemVisibility::visible : StatusItemVisibility::notTaken;
}

void QtStatusItem::openMenu() {
  if (!menu_.isVisible()) menu_.popup(QCursor::pos());
}

}  // namespace rondora

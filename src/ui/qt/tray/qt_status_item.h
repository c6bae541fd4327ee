#pragma once

#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>
#include <optional>
#include <string>

#include "ui/qt/tray/qt_status_bar.h"

namespace rondora {

/// An icon with a menu, which enters the tray as soon as one exists. Of the description, the trays apply:
/// - tool tip and menu; `role`: a menu button opens its menu on a click, as on the other button.
/// - `length` and `imagePosition` of an icon alone. Neither protocol has a cell for a title.
///
/// They have no means for `autosaveName` (a tray knows the item by the application's name) and none to pass role or
/// accessibility label on to screen readers; the label is the menu's.
class QtStatusItem final : public StatusItem {
 public:
  /// Both trays must outlive the item.
  QtStatusItem(const StatusItemDescription& description, const EmbeddingTray& embeddingTray,
               StatusNotifierWatch& notifierWatch);

  void setMenuTitle(std::size_t index, const std::string& title) override;
  void setToolTip(const std::string& toolTip) override;
  /// Ignores QSystemTrayIcon::isVisible, which is true even without a tray.
  StatusItemVisibility visibility() const override;
  Subscription onVisibilityMayHaveChanged(std::function<void()> observer) const override {
    return traysChanged_.subscribe(std::move(observer));
  }

 private:
  void addEntry(const MenuEntry& entry);
  void handleTrays();
  void enterTray();
  void openMenu();

  const EmbeddingTray& embeddingTray_;
  StatusNotifierWatch& notifierWatch_;
  StatusItemRole role_;
  QString toolTip_;
  QMenu menu_;
  /// Created once a tray exists: with its first icon the toolkit settles on one of the two protocols.
  std::optional<QSystemTrayIcon> icon_;
  bool isOnTheBus_ = false;
  Signal<> traysChanged_;
  Subscription embeddingTrayObserver_;
  Subscription notifierObserver_;
};

}  // namespace rondora

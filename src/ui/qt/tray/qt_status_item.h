#pragma once

#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>
#include <QTimer>
#include <optional>
#include <string>

#include "ui/qt/tray/qt_status_bar.h"

namespace rondora {

/// An icon with a menu, which enters the tray as soon as one exists.
class QtStatusItem final : public StatusItem {
 public:
  /// Both trays must outlive the item.
  QtStatusItem(const StatusItemDescription& description, const EmbeddingTray& embeddingTray,
               StatusNotifierWatch& notifierWatch);

  void setMenuTitle(std::size_t index, const std::string& title) override;
  /// Ignores QSystemTrayIcon::isVisible, which is true even without a tray.
  std::optional<std::string> visibilityProblem() const override;
  Subscription onVisibilityChanged(std::function<void()> observer) override;

 private:
  void addEntry(const MenuEntry& entry);
  void traysChanged();
  void enterTray();
  void compareVisibility();
  void openMenu();

  const EmbeddingTray& embeddingTray_;
  StatusNotifierWatch& notifierWatch_;
  QString name_;
  QString toolTip_;
  QMenu menu_;
  /// Created once a tray exists: with its first icon the toolkit settles on one of the two protocols.
  std::optional<QSystemTrayIcon> icon_;
  bool isOnTheBus_ = false;
  bool knowsTrays_ = false;
  Signal<> visibilityChanged_;
  std::optional<std::string> lastProblem_;
  /// Debounce: a panel that restarts is absent briefly, and embeds the item a moment after its return.
  QTimer settled_;
  Subscription embeddingTrayObserver_;
  Subscription notifierObserver_;
};

}  // namespace rondora

#pragma once

#include <QMenu>
#include <QString>
#include <QSystemTrayIcon>
#include <QTimer>
#include <optional>
#include <string>

#include "ui/qt/tray/qt_status_bar.h"

namespace rondora {

/// An icon with a menu, in the tray as soon as there is one.
class QtStatusItem : public StatusItem {
 public:
  /// The trays outlive the item.
  QtStatusItem(const StatusItemDescription& description, const EmbeddingTray& embeddingTray,
               StatusNotifierWatch& notifierWatch);

  void setMenuTitle(std::size_t index, const std::string& title) override;
  /// The toolkit's own word says nothing: to it an item is visible even where there is no tray at all.
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
  /// Made when there is a tray: the toolkit settles for one of the two protocols when the first icon is made.
  std::optional<QSystemTrayIcon> icon_;
  bool isOnTheBus_ = false;
  bool knowsTrays_ = false;
  Signal<> visibilityChanged_;
  std::optional<std::string> lastProblem_;
  /// A panel that starts anew is away for a moment, and takes the item in a moment after it has come.
  QTimer settled_;
  Subscription embeddingTrayObserver_;
  Subscription notifierObserver_;
};

}  // namespace rondora

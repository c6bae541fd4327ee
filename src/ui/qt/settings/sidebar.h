#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>
#include <map>

#include "settings/settings_models.h"
#include "ui/qt/settings/icon_button.h"

namespace rondora {

/// The settings' list of menus and pages, with the search over menus and items above it.
class Sidebar : public QWidget {
 public:
  /// The arguments must outlive the object.
  Sidebar(const SettingsModels& models, const ItemIcons& icons);

  /// Shows the present texts and menus.
  void refresh();
  /// Puts the focus into the search field.
  void search();
  /// Clears the search; false when there is none.
  bool endSearch();
  QListWidget& menus() { return *menus_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refreshMenus();
  void refreshHits();
  void refreshPages();
  void menuChosen();
  void openRow(QListWidget& list);
  void showContextMenu(const QPoint& at);
  std::optional<Uuid> chosenMenu() const;
  void moveChosen(int places);
  void rowsMoved();
  QIcon menuIcon(const MenuList::Row& row) const;
  QString text(StringKey key) const;

  SettingsModels models_;
  const ItemIcons& icons_;
  QLineEdit* search_;
  QLabel* heading_;
  QListWidget* menus_;
  QListWidget* hits_;
  QLabel* nothing_;
  QListWidget* pages_;
  IconButton* add_;
  IconButton* duplicate_;
  IconButton* remove_;
  IconButton* up_;
  IconButton* down_;
  IconButton* undo_;
  IconButton* redo_;
  bool isRefreshing_ = false;
};

}  // namespace rondora

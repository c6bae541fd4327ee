#pragma once

#include <QLabel>
#include <QListWidget>
#include <QWidget>

#include "settings/settings_models.h"
#include "ui/qt/settings/icon_button.h"

namespace rondora {

/// The items of a standard menu in ring order, with the buttons that add, copy, move and remove them.
class ItemList : public QWidget {
 public:
  /// The arguments must outlive the object.
  ItemList(const SettingsModels& models, const ItemIcons& icons);

  /// Shows the present texts and items.
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refreshRows();
  void rowChosen();
  void rowsMoved();
  void moveChosen(int places);
  void withChosen(void (MenuEditor::*edit)(const Uuid&));
  void showContextMenu(const QPoint& at);
  QString text(StringKey key) const;

  SettingsModels models_;
  const ItemIcons& icons_;
  QLabel* heading_;
  QListWidget* rows_;
  QLabel* empty_;
  IconButton* add_;
  IconButton* duplicate_;
  IconButton* copy_;
  IconButton* paste_;
  IconButton* remove_;
  IconButton* up_;
  IconButton* down_;
  bool isRefreshing_ = false;
};

}  // namespace rondora

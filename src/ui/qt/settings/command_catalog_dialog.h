#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>

#include "settings/commands/app_command_sets.h"
#include "ui/qt/settings/command_rows.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// Adds commands from the menus of the application whose set is chosen: the user searches, and adds as many as wanted.
/// The arrow keys move through the list while the search keeps the focus.
class CommandCatalogDialog : public QDialog {
 public:
  /// The references must outlive the object.
  CommandCatalogDialog(AppCommandSets& sets, const LocalizationStore& localization, const ItemIcons& icons,
                       QWidget* parent);

  /// Adds the current command; the dialog stays.
  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void makeLayout();
  void present();
  /// After a change of the menus.
  void listAgain();
  void chooseRow(int row);
  void currentChanged();
  bool pressInSearch(QKeyEvent& press);
  QString text(StringKey key) const;

  AppCommandSets& sets_;
  const LocalizationStore& localization_;
  QLineEdit* search_;
  QStackedWidget* pages_;
  QListView* view_;
  CommandRows* rows_;
  QLabel* nothing_;
  QLabel* note_;
  QPushButton* again_;
  QPushButton* add_;
  QPushButton* close_;
  std::string application_;
  Subscription changed_;
};

}  // namespace rondora

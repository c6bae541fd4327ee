#pragma once

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>

#include "settings/commands/app_command_sets.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

class CommandEntriesView;
class IconButton;

/// The sets of application commands: which one is shown, its entries and what can be added to it.
class AppCommandsPanel : public QWidget {
 public:
  /// Each opens a window above `parent` and calls the answer when the user has chosen there.
  struct Questions {
    std::function<void(QWidget& parent, std::function<void(std::string bundleIdentifier)>)> application;
    std::function<void(QWidget& parent, const PieMenuItem& item, std::function<void(std::string icon)>)> icon;
  };

  /// The references must outlive the object.
  AppCommandsPanel(AppCommandSets& sets, const LocalizationStore& localization, const ItemIcons& icons,
                   Questions questions);

  /// Shows the present texts and values.
  void refresh();

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void makeLayout();
  void refreshSets();
  void refreshButtons();
  void fillAddMenu();
  void addApplication();
  void chooseIcon();
  void openCatalog();
  QString text(StringKey key) const;

  AppCommandSets& sets_;
  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  Questions questions_;
  QComboBox* set_;
  QLabel* setLabel_;
  IconButton* addSet_;
  IconButton* removeSet_;
  QLabel* note_;
  QLabel* heading_;
  QMenu* addMenu_;
  IconButton* add_;
  IconButton* icon_;
  IconButton* remove_;
  IconButton* up_;
  IconButton* down_;
  CommandEntriesView* entries_;
  QPushButton* suggest_;
  QLabel* suggestNote_;
  QPushButton* reset_;
  Subscription changed_;
  Subscription decoded_;
};

}  // namespace rondora

#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QToolButton>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "settings/icons/icon_choice.h"
#include "ui/qt/settings/icon_grid.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// A dialog in which the user chooses an item's icon: symbols and emoji in a grid, by section or search, and icons from
/// elsewhere. Destroys itself when it is closed.
class IconPicker : public QDialog {
 public:
  using Answer = std::function<void(std::string)>;
  /// Each opens a window above the picker and calls the answer when the user has chosen there.
  struct Questions {
    /// The answer is the application's identifier.
    std::function<void(QWidget& picker, Answer)> application;
    /// The answer is the file's absolute path.
    std::function<void(QWidget& picker, Answer)> imageFile;
  };

  /// `chosen` is called with the `icon` text when the picker has closed. `icons` must outlive the object.
  IconPicker(std::unique_ptr<IconChoice> choice, const ItemIcons& icons, Questions questions, Answer chosen,
             QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  IconGrid* makeGrid();
  void layOut();
  void fillSections();
  QWidget* makeOthers();
  QWidget* makeButtons();

  void showSection(int section);
  void search(const QString& query);
  void showCells();
  /// The pictures outside the grid.
  void showPictures();
  void typeIntoSearch(QKeyEvent& event);
  void choose(std::string icon);
  void press(const IconChoice::Other& other);

  std::unique_ptr<IconChoice> choice_;
  const ItemIcons& icons_;
  Questions questions_;
  Answer chosen_;
  QLineEdit* search_;
  QTabBar* sections_;
  QLabel* heading_;
  /// The name of the highlighted icon, or why there are none.
  QLabel* note_;
  IconGrid* grid_;
  std::vector<std::pair<QToolButton*, IconReference>> others_;
  Subscription decoded_;
};

}  // namespace rondora

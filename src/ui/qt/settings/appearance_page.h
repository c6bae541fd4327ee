#pragma once

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QWidget>
#include <vector>

#include "settings/appearance/appearance_editor.h"
#include "ui/qt/settings/appearance_row_view.h"
#include "ui/qt/settings/item_icons.h"
#include "ui/qt/settings/unscrolled.h"

namespace rondora {

/// The page on which the look of a menu is edited, or given to all menus.
class AppearancePage : public QWidget {
 public:
  /// `preview` shows the ring while it is edited: beside the fields, in a narrow window above them. The page takes it;
  /// it may be null. The references must outlive the object.
  AppearancePage(AppearanceEditor& editor, const LocalizationStore& localization, const ItemIcons& icons,
                 QWidget* preview);

  /// Shows the present texts and values.
  void refresh();
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void placeHeader(QVBoxLayout& column);
  void placeBody(QVBoxLayout& column, QWidget* preview);
  /// Puts the preview beside the fields or above them.
  void arrange();
  void alignEntries();
  void showMenus();
  void showRows();
  void rebuild(const std::vector<AppearanceRow>& rows);

  AppearanceEditor& editor_;
  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  QLabel* title_;
  Unscrolled<QComboBox>* menus_;
  QLabel* menusLabel_;
  QPushButton* copyToAll_;
  QPushButton* resetAll_;
  QBoxLayout* body_ = nullptr;
  QWidget* previewHolder_ = nullptr;
  bool isArranged_ = false;
  /// The fields scroll in it.
  QScrollArea* fields_ = nullptr;
  /// Holds the grid.
  QVBoxLayout* fieldsColumn_ = nullptr;
  QWidget* grid_ = nullptr;
  std::vector<AppearanceEditor::Menu> shownMenus_;
  std::vector<QLabel*> headings_;
  std::vector<AppearanceGroup> groups_;
  std::vector<std::string_view> keys_;
  std::vector<AppearanceRowView*> rows_;
};

}  // namespace rondora

#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include "settings/appearance/appearance_editor.h"
#include "ui/qt/settings/choice_box.h"
#include "ui/qt/settings/color_field.h"
#include "ui/qt/settings/icon_button.h"
#include "ui/qt/settings/number_field.h"

namespace rondora {

/// A field of the appearance page on a line of the page's grid: its label, its control, and a button that resets it.
class AppearanceRowView : public QObject {
 public:
  static constexpr int kColumns = 3;

  /// The object belongs to the grid's widget, as its controls do. The references must outlive it.
  AppearanceRowView(QGridLayout& grid, int line, AppearanceEditor& editor, const LocalizationStore& localization,
                    const ItemIcons& icons, const AppearanceRow& row);

  void show(const AppearanceRow& row);
  /// In Tab order.
  QWidget& lastControl() const { return *reset_; }
  /// Of a number; 0 for others.
  int entryWidth() const { return number_ == nullptr ? 0 : number_->entry().sizeHint().width(); }
  void setEntryWidth(int width) {
    if (number_ != nullptr) number_->entry().setMinimumWidth(width);
  }

 private:
  void makeControl(const AppearanceRow& row);
  QWidget& control() const;

  AppearanceEditor& editor_;
  const LocalizationStore& localization_;
  /// Null beside a switch, which has its own.
  QLabel* label_ = nullptr;
  IconButton* reset_;
  // One of them.
  NumberField* number_ = nullptr;
  QCheckBox* toggle_ = nullptr;
  ChoiceBox* choices_ = nullptr;
  ColorField* color_ = nullptr;
};

}  // namespace rondora

#pragma once

#include <QDoubleSpinBox>
#include <QSlider>
#include <QWidget>
#include <functional>

#include "settings/appearance/appearance_editor.h"
#include "ui/qt/settings/unscrolled.h"

namespace rondora {

/// A number as a slider and as an entry with its unit.
class NumberField : public QWidget {
 public:
  NumberField();

  /// Called for the user's changes only.
  std::function<void(double)> onChanged;

  /// Shows the number of the row within its range.
  void show(const AppearanceRow& row);
  void setName(const QString& name);
  /// The control that a label belongs to.
  QWidget& entry() { return entry_; }

 private:
  /// Keeps signs and units behind their number in languages that run from right to left.
  struct Entry : Unscrolled<QDoubleSpinBox> {
    Entry();
  };

  Unscrolled<QSlider> slider_;
  Entry entry_;
  /// Positions of the slider in one unit shown.
  double perUnit_ = 1;
};

}  // namespace rondora

#include "ui/qt/settings/number_field.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr int kMinSlider = 90;  // points
constexpr int kPagesOfRange = 10;

}  // namespace

NumberField::Entry::Entry() { lineEdit()->setLayoutDirection(Qt::LeftToRight); }

NumberField::NumberField() {
  slider_.setOrientation(Qt::Horizontal);
  slider_.setMinimumWidth(kMinSlider);
  slider_.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  // While a number is typed, its beginning is not yet a value.
  entry_.setKeyboardTracking(false);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(settings_look::kRowGap);
  row->addWidget(&slider_, 1);
  row->addWidget(&entry_);
  connect(&slider_, &QSlider::valueChanged, this, [this](int position) {
    if (onChanged) onChanged(position / perUnit_);
  });
  connect(&entry_, &QDoubleSpinBox::valueChanged, this, [this](double value) {
    if (onChanged) onChanged(value);
  });
}

void NumberField::show(const AppearanceRow& row) {
  const QSignalBlocker slider(slider_);
  const QSignalBlocker entry(entry_);
  perUnit_ = std::pow(10, row.unit.decimals);
  const auto position = [this](double number) { return static_cast<int>(std::lround(number * perUnit_)); };
  slider_.setRange(position(row.range.least), position(row.range.most));
  slider_.setSingleStep(std::max(1, position(row.step)));
  slider_.setPageStep(std::max(slider_.singleStep(), (slider_.maximum() - slider_.minimum()) / kPagesOfRange));
  slider_.setValue(position(row.number));
  entry_.setDecimals(row.unit.decimals);
  entry_.setSuffix(toQString(row.unit.symbol));
  entry_.setRange(row.range.least, row.range.most);
  entry_.setSingleStep(row.step);
  if (std::lround(entry_.value() * perUnit_) != position(row.number)) entry_.setValue(row.number);
  slider_.setAccessibleDescription(entry_.text());
}

void NumberField::setName(const QString& name) {
  slider_.setAccessibleName(name);
  entry_.setAccessibleName(name);
}

}  // namespace rondora

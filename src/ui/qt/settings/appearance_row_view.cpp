#include "ui/qt/settings/appearance_row_view.h"

#include <QSignalBlocker>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

AppearanceRowView::AppearanceRowView(QGridLayout& grid, int line, AppearanceEditor& editor,
                                     const LocalizationStore& localization, const ItemIcons& icons,
                                     const AppearanceRow& row)
    : QObject(grid.parentWidget()), editor_(editor), localization_(localization) {
  makeControl(row);
  reset_ = new IconButton(icons, "arrow.uturn.backward", [this, key = row.key] {
    // The button disappears, and the focus with it.
    control().setFocus();
    editor_.reset(key);
  });
  // Lines do not move when a button appears.
  QSizePolicy policy = reset_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  reset_->setSizePolicy(policy);
  if (toggle_ != nullptr) {
    grid.addWidget(toggle_, line, 0, 1, 2);
  } else {
    label_ = settings_look::makeLabelFor(control());
    grid.addWidget(label_, line, 0, color_ == nullptr ? Qt::Alignment() : Qt::AlignTop);
    if (number_ != nullptr) grid.addWidget(number_, line, 1);
    if (choices_ != nullptr) grid.addWidget(choices_, line, 1, Qt::AlignLeading);
    if (color_ != nullptr) grid.addWidget(color_, line, 1);
  }
  grid.addWidget(reset_, line, 2, color_ == nullptr ? Qt::AlignVCenter : Qt::AlignTop);
  show(row);
}

void AppearanceRowView::makeControl(const AppearanceRow& row) {
  const auto key = row.key;
  switch (row.kind) {
    case AppearanceRow::Kind::number:
      number_ = new NumberField;
      number_->onChanged = [this, key](double number) { editor_.setNumber(key, number); };
      return;
    case AppearanceRow::Kind::toggle:
      toggle_ = new QCheckBox;
      QObject::connect(toggle_, &QCheckBox::toggled, toggle_, [this, key](bool isOn) { editor_.setOn(key, isOn); });
      return;
    case AppearanceRow::Kind::choice:
      choices_ = new ChoiceBox;
      QObject::connect(choices_, &QComboBox::activated, choices_,
                       [this, key](int choice) { editor_.choose(key, static_cast<std::size_t>(choice)); });
      return;
    case AppearanceRow::Kind::color:
      color_ = new ColorField(localization_);
      color_->onChosen = [this, key](const ColorField::Choice& color) { editor_.setColor(key, color.value_or("")); };
      return;
  }
}

QWidget& AppearanceRowView::control() const {
  if (number_ != nullptr) return number_->entry();
  if (toggle_ != nullptr) return *toggle_;
  if (choices_ != nullptr) return *choices_;
  return *color_;
}

void AppearanceRowView::show(const AppearanceRow& row) {
  const QString title = toQString(row.title);
  const QString reason = toQString(row.withoutEffect);
  if (label_ != nullptr) settings_look::nameControl(*label_, title);
  if (number_ != nullptr) {
    number_->setName(title);
    number_->show(row);
  }
  if (toggle_ != nullptr) {
    toggle_->setText(title);
    settings_look::showChecked(*toggle_, row.isOn);
  }
  if (choices_ != nullptr) {
    const QSignalBlocker blocker(choices_);
    choices_->clear();
    for (const std::string& choice : row.choices) choices_->addItem(toQString(choice));
    choices_->setCurrentIndex(static_cast<int>(row.chosen));
  }
  if (color_ != nullptr) {
    color_->setName(title);
    color_->setColor(row.color);
  }
  QWidget& whole = number_ != nullptr ? *number_ : control();
  for (QWidget* widget : {static_cast<QWidget*>(label_), &whole}) {
    if (widget == nullptr) continue;
    widget->setEnabled(reason.isEmpty());
    widget->setToolTip(reason);
  }
  control().setAccessibleDescription(reason);
  reset_->setName(toQString(localization_.text(StringKey::lookResetName, row.title)));
  reset_->setVisible(!row.isDefault);
}

}  // namespace rondora

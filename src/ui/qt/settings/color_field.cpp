#include "ui/qt/settings/color_field.h"

#include <QColorDialog>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "settings/colors/color_text.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/picture_button.h"

namespace rondora {
namespace {

constexpr int kIconSide = 14;
/// The disc is centred, apart from the text beside it.
constexpr QSize kIcon(kIconSide + 6, kIconSide);
/// Room beside the code for the field's frame.
constexpr int kFrame = 18;
constexpr auto kWidestCode = "#DDDDDD";
constexpr auto kExample = "#007AFF";

QIcon discIcon(const QColor& color, const QWidget& widget) {
  const double scale = widget.devicePixelRatioF();
  QPixmap picture(kIcon * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  ColorSwatch::paintDisc(painter, QRectF((kIcon.width() - kIconSide) / 2.0, 0, kIconSide, kIconSide), color,
                         widget.palette());
  return picture;
}

/// Labels do, the one of Chinese and Japanese included.
bool endsInColon(const QString& name) { return name.endsWith(':') || name.endsWith(QChar(0xFF1A)); }

}  // namespace

ColorField::ColorField(const LocalizationStore& localization, std::optional<StringKey> automatic)
    : localization_(localization),
      automaticText_(automatic),
      code_(new QLineEdit),
      other_(new PictureButton),
      problem_(settings_look::makeProblem()) {
  // Radio buttons exclude each other within their parent.
  auto* choices = new QWidget;
  auto* row = new QHBoxLayout(choices);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  choices->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  if (automatic) {
    automatic_ = new QRadioButton;
    row->addWidget(automatic_);
    row->addSpacing(settings_look::kRowGap);
    connect(automatic_, &QRadioButton::toggled, this, [this](bool isOn) {
      if (isOn) choose(std::nullopt);
    });
  }
  for (std::size_t i = 0; i < swatches_.size(); ++i) {
    swatches_[i] = new ColorSwatch(QColor(toQString(kItemColorPalette[i])));
    row->addWidget(swatches_[i]);
    connect(swatches_[i], &ColorSwatch::toggled, this, [this, i](bool isOn) {
      if (isOn) choose(std::string(kItemColorPalette[i]));
    });
  }
  row->addStretch();

  code_->setLayoutDirection(Qt::LeftToRight);
  code_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(code_, &QLineEdit::textEdited, this, [this] { codeEdited(); });
  connect(code_, &QLineEdit::editingFinished, this,
          [this] { showProblem(!colorFromText(code_->text().toStdString())); });
  other_->setAutoDefault(false);
  other_->setIconSize(kIcon);
  connect(other_, &QPushButton::clicked, this, [this] { openWindow(); });

  auto* free = new QHBoxLayout;
  free->setSpacing(settings_look::kRowGap);
  free->addWidget(code_);
  free->addWidget(other_);
  free->addStretch();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kSmallGap);
  column->addWidget(choices);
  column->addLayout(free);
  column->addWidget(problem_);
  setFocusProxy(automatic_ != nullptr ? static_cast<QWidget*>(automatic_) : swatches_.front());
  refresh();
}

QString ColorField::text(StringKey key) const { return toQString(localization_.text(key)); }

void ColorField::setName(const QString& name) {
  name_ = name;
  refresh();
}

void ColorField::refresh() {
  const auto named = [this](const QString& part) {
    if (name_.isEmpty()) return part;
    return name_ + (endsInColon(name_) ? " " : ": ") + part;
  };
  setAccessibleName(name_);
  if (automatic_ != nullptr) {
    automatic_->setText(text(*automaticText_));
    automatic_->setAccessibleName(named(automatic_->text()));
  }
  for (std::size_t i = 0; i < swatches_.size(); ++i) {
    const QString color = toQString(colorName(kItemColorPalette[i], localization_));
    swatches_[i]->setAccessibleName(named(color));
    swatches_[i]->setToolTip(color);
  }
  code_->setAccessibleName(named(text(StringKey::colorCode)));
  code_->setToolTip(text(StringKey::colorCode));
  other_->setText(text(StringKey::colorOther));
  other_->setAccessibleName(named(other_->text()));
  showProblem(!problem_->isHidden());
  showChoice();
}

void ColorField::setColor(const Choice& color) {
  if (color_ == color) return;
  color_ = color;
  showChoice();
}

void ColorField::showChoice() {
  QAbstractButton* chosen = color_ ? nullptr : automatic_;
  for (std::size_t i = 0; color_ && i < swatches_.size(); ++i) {
    if (isSameColor(kItemColorPalette[i], *color_)) chosen = swatches_[i];
  }
  check(chosen);
  const auto written = colorFromText(code_->text().toStdString());
  const bool isWriting = code_->hasFocus() && code_->isModified() && (!written || written == color_);
  if (!isWriting && code_->text() != toQString(color_.value_or(""))) {
    code_->setText(toQString(color_.value_or("")));
    showProblem(false);
  }
  code_->setFixedWidth(code_->fontMetrics().horizontalAdvance(QString::fromLatin1(kWidestCode)) + kFrame);
  const QColor shown(toQString(color_.value_or("")));
  other_->setIcon(shown.isValid() ? discIcon(shown, *this) : QIcon());
  other_->setMinimumWidth(other_->sizeHint().width() + settings_look::kRowGap);
}

// A group of exclusive buttons lets none of them be unchecked.
void ColorField::check(QAbstractButton* chosen) {
  std::vector<QAbstractButton*> buttons(swatches_.begin(), swatches_.end());
  if (automatic_ != nullptr) buttons.push_back(automatic_);
  for (QAbstractButton* each : buttons) each->setAutoExclusive(false);
  for (QAbstractButton* each : buttons) settings_look::showChecked(*each, chosen != nullptr && each == chosen);
  for (QAbstractButton* each : buttons) each->setAutoExclusive(true);
}

void ColorField::choose(const Choice& color) {
  color_ = color;
  code_->setModified(false);
  showChoice();
  if (onChosen) onChosen(color);
}

void ColorField::codeEdited() {
  const auto color = colorFromText(code_->text().toStdString());
  if (!color) return;
  showProblem(false);
  if (color == color_) return;
  color_ = color;
  showChoice();
  if (onChosen) onChosen(color);
}

void ColorField::showProblem(bool isShown) {
  const bool isNone = code_->text().isEmpty() && !color_;
  settings_look::showText(
      *problem_, isShown && !isNone ? toQString(localization_.text(StringKey::colorCodeInvalid, kExample)) : QString());
  code_->setAccessibleDescription(problem_->text());
}

void ColorField::openWindow() {
  auto* window = new QColorDialog(QColor(toQString(color_.value_or(std::string(kDefaultItemColor)))), this);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowTitle(endsInColon(name_) ? name_.chopped(1) : name_);
  connect(window, &QColorDialog::colorSelected, this,
          [this](const QColor& color) { choose(color.name(QColor::HexRgb).toUpper().toStdString()); });
  window->open();
}

void ColorField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const auto type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::FontChange) showChoice();
}

}  // namespace rondora

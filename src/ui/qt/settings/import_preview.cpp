#include "ui/qt/settings/import_preview.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr int kMaxListHeight = 280;
constexpr int kMarkSide = 14;
/// Of the changes in one menu.
constexpr int kIndent = 22;
constexpr std::array<const char*, 3> kMarks = {"plus", "minus", "pencil"};

}  // namespace

ImportPreview::ImportPreview(const LocalizationStore& localization, const ItemIcons& icons)
    : localization_(localization),
      icons_(icons),
      title_(settings_look::makeHeading()),
      changes_(new FittedList(kMaxListHeight)),
      apply_(new QPushButton),
      cancel_(new QPushButton) {
  setFrameShape(QFrame::StyledPanel);
  changes_->setFrameShape(QFrame::NoFrame);
  changes_->setIconSize({kIndent + kMarkSide, kMarkSide});
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {apply_, cancel_}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  auto* column = new QVBoxLayout(this);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(title_);
  column->addWidget(changes_);
  column->addLayout(buttons);
}

void ImportPreview::show(const SettingsBackup::Preview& preview) {
  const QString title = toQString(preview.title);
  title_->setText(title);
  changes_->setAccessibleName(title);
  const bool changesSomething = !preview.changes.empty();
  changes_->setVisible(changesSomething);
  apply_->setVisible(changesSomething);
  apply_->setText(toQString(localization_.text(StringKey::backupApply)));
  apply_->setAccessibleDescription(title);
  const StringKey cancel = changesSomething ? StringKey::hotkeyCancel : StringKey::settingsClose;
  cancel_->setText(toQString(localization_.text(cancel)));
  cancel_->setAccessibleDescription(title);
  setVisible(true);
  if (preview.changes == shown_ && changes_->count() > 0) return;
  shown_ = preview.changes;
  fill();
}

void ImportPreview::fill() {
  const int row = changes_->currentRow();
  changes_->clear();
  for (const DocumentChange& change : shown_) {
    addRow(change, false);
    for (const DocumentChange& part : change.parts) addRow(part, true);
  }
  changes_->fit();
  if (row >= 0) changes_->setCurrentRow(std::min(row, changes_->count() - 1));
}

void ImportPreview::addRow(const DocumentChange& change, bool isPart) {
  changes_->addItem(new QListWidgetItem(icon(change.kind, isPart), toQString(change.text)));
}

/// The room before the mark of a change within a menu also sets its text off.
QIcon ImportPreview::icon(DocumentChange::Kind kind, bool isPart) const {
  const auto reference = IconReference::parse(kMarks.at(static_cast<std::size_t>(kind)));
  const double scale = devicePixelRatioF();
  const int before = isPart ? kIndent : 0;
  const QSize room(before + kMarkSide, kMarkSide);
  const int left = isRightToLeft() ? 0 : before;
  const auto drawn = [&](QPalette::ColorRole role) {
    QPixmap pixmap(room * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter(&pixmap).drawPixmap(left, 0, icons_.picture(reference, kMarkSide, palette().color(role), scale));
    return pixmap;
  };
  QIcon icon(drawn(QPalette::Text));
  icon.addPixmap(drawn(QPalette::HighlightedText), QIcon::Selected);
  return icon;
}

void ImportPreview::takeFocus() { (changes_->isHidden() ? static_cast<QWidget*>(cancel_) : changes_)->setFocus(); }

void ImportPreview::follow(QWidget& predecessor) {
  setTabOrder(&predecessor, changes_);
  setTabOrder(changes_, apply_);
  setTabOrder(apply_, cancel_);
}

void ImportPreview::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QFrame::keyPressEvent(event);
  cancel_->click();
}

void ImportPreview::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  const auto type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::LayoutDirectionChange) fill();
}

}  // namespace rondora

#include "ui/qt/settings/hotkey_field.h"

#include <QCursor>
#include <QEvent>
#include <QGridLayout>
#include <algorithm>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

HotkeyField::HotkeyField(HotkeyList list, const LocalizationStore& localization, const ItemIcons& icons)
    : list_(std::move(list)),
      localization_(localization),
      record_(new QPushButton),
      remove_(new IconButton(icons, "xmark", [this] { list_.remove(menuId_); })),
      note_(settings_look::makeProblem()) {
  record_->setAutoDefault(false);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(settings_look::kSmallGap);
  grid->setColumnStretch(0, 1);
  grid->addWidget(record_, 0, 0);
  grid->addWidget(remove_, 0, 1);
  grid->addWidget(note_, 1, 0, 1, 2);
  connect(
      record_, &QPushButton::clicked, this, [this] { list_.toggleRecording(menuId_); }, Qt::QueuedConnection);
}

void HotkeyField::setMenu(const std::string& menuId) {
  if (menuId == menuId_) return;
  cancel();
  menuId_ = menuId;
  refresh();
}

const HotkeyRow* HotkeyField::row() const {
  const auto found = std::ranges::find(rows_, menuId_, &HotkeyRow::menuId);
  return found == rows_.end() ? nullptr : &*found;
}

void HotkeyField::refresh() {
  const HotkeyRow* shown = row();
  setEnabled(shown != nullptr);
  if (shown == nullptr) return;
  const bool isNone = !shown->isAssigned && !shown->isRecording;
  record_->setText(isNone ? toQString(localization_.text(StringKey::hotkeyRecord)) : toQString(shown->hotkey));
  record_->setAccessibleName(toQString(shown->recordName));
  record_->setAccessibleDescription(
      toQString(shown->note.empty() ? shown->hotkey : shown->hotkey + ". " + shown->note));
  remove_->setName(toQString(shown->removeName));
  remove_->setEnabled(shown->isAssigned && !shown->isRecording);
  settings_look::showText(*note_, toQString(shown->note));
}

void HotkeyField::cancel() {
  const HotkeyRow* shown = row();
  if (shown != nullptr && shown->isRecording) list_.cancelRecording();
}

// A click on the button itself ends the recording as any press of the button does.
void HotkeyField::cancelUnlessOnButton() {
  if (!record_->rect().contains(record_->mapFromGlobal(QCursor::pos()))) cancel();
}

void HotkeyField::showEvent(QShowEvent* event) {
  window()->installEventFilter(this);
  subscription_ = list_.watch([this](const HotkeyRows& rows) {
    rows_ = rows;
    refresh();
  });
  clicks_ = list_.onClick([this] { cancelUnlessOnButton(); });
  QWidget::showEvent(event);
}

void HotkeyField::hideEvent(QHideEvent* event) {
  cancel();
  subscription_.reset();
  clicks_.reset();
  QWidget::hideEvent(event);
}

bool HotkeyField::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window() && event->type() == QEvent::WindowDeactivate) cancel();
  return QWidget::eventFilter(watched, event);
}

}  // namespace rondora

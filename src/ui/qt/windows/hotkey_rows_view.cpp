#include "ui/qt/windows/hotkey_rows_view.h"

#include <QCursor>
#include <QEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/windows/interface_language.h"

namespace rondora {

namespace {

constexpr int kSpacing = 6;
constexpr QSize kMaxHint(480, 190);
constexpr int kMinHeight = 90;
/// Leaves room for the hotkey and the buttons in the narrowest window.
constexpr int kMaxNameWidth = 180;
/// Each menu has a line for its hotkey and one for a note.
constexpr int kLinesOfRow = 2;

QLabel* plainLabel() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  return label;
}

/// Menus of the same ids in the same order can be shown by the same widgets.
bool haveSameMenus(const HotkeyRows& some, const HotkeyRows& others) {
  return std::ranges::equal(some, others, {}, &HotkeyRow::menuId, &HotkeyRow::menuId);
}

}  // namespace

HotkeyRowsView::HotkeyRowsView(HotkeyList list) : list_(std::move(list)) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void HotkeyRowsView::setTexts(Texts texts) {
  if (texts_ == texts) return;
  texts_ = std::move(texts);
  for (std::size_t i = 0; i < rows_.size(); ++i) fill(rows_[i], shown_[i]);
}

void HotkeyRowsView::present(const HotkeyRows& rows) {
  const bool fits = haveSameMenus(rows, shown_) && widget() != nullptr;
  const HotkeyRows before = std::exchange(shown_, rows);
  if (!fits) return rebuild();
  for (std::size_t i = 0; i < rows_.size(); ++i) fill(rows_[i], shown_[i]);
  showNotes(before);
}

/// Scrolls to a note that is new, once the rows have their places.
void HotkeyRowsView::showNotes(const HotkeyRows& before) {
  widget()->layout()->activate();
  updateGeometry();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (shown_[i].note.empty() || shown_[i].note == before[i].note) continue;
    QMetaObject::invokeMethod(
        rows_[i].note, [this, note = rows_[i].note] { ensureWidgetVisible(note); }, Qt::QueuedConnection);
  }
}

void HotkeyRowsView::rebuild() {
  rows_.clear();
  auto* page = new QWidget;
  page->setAutoFillBackground(false);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kSpacing);
  grid->setColumnStretch(1, 1);
  // Apart from the scroll bar.
  grid->setColumnMinimumWidth(4, 1);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    placeRow(*grid, static_cast<int>(i) * kLinesOfRow, shown_[i].menuId);
    fill(rows_.back(), shown_[i]);
  }
  setWidget(page);
  enterTabOrder();
  updateGeometry();
  if (onRebuilt) onRebuilt();
}

// Otherwise widgets added later are last in the Tab order.
void HotkeyRowsView::enterTabOrder() {
  QWidget* previous = predecessor_;
  for (const Row& row : rows_) {
    for (QWidget* button : {row.record, row.remove}) {
      if (previous != nullptr) setTabOrder(previous, button);
      previous = button;
    }
  }
}

QWidget& HotkeyRowsView::last() const { return rows_.empty() ? *predecessor_ : *rows_.back().remove; }

void HotkeyRowsView::placeRow(QGridLayout& grid, int line, const std::string& menuId) {
  Row row{plainLabel(), plainLabel(), plainLabel(), new QPushButton, new QPushButton};
  row.note->setWordWrap(true);
  for (QPushButton* button : {row.record, row.remove}) button->setAutoDefault(false);
  // Later: the row may be replaced while its button is calling.
  connect(
      row.record, &QPushButton::clicked, this, [this, menuId] { list_.toggleRecording(menuId); }, Qt::QueuedConnection);
  connect(
      row.remove, &QPushButton::clicked, this, [this, menuId] { list_.remove(menuId); }, Qt::QueuedConnection);
  grid.addWidget(row.menu, line, 0);
  grid.addWidget(row.hotkey, line, 1);
  grid.addWidget(row.record, line, 2);
  grid.addWidget(row.remove, line, 3);
  grid.addWidget(row.note, line + 1, 0, 1, 4);
  rows_.push_back(row);
}

void HotkeyRowsView::fill(const Row& row, const HotkeyRow& content) const {
  for (QLabel* label : {row.menu, row.hotkey, row.note}) label->setAlignment(leadingAlignment());
  const QString name = toQString(content.menu);
  row.menu->setText(row.menu->fontMetrics().elidedText(name, Qt::ElideRight, kMaxNameWidth));
  row.menu->setToolTip(row.menu->text() == name ? QString() : name);
  row.hotkey->setText(toQString(content.hotkey));
  row.note->setText(toQString(content.note));
  row.note->setVisible(!content.note.empty());
  row.record->setText(toQString(content.isRecording ? texts_.cancel : texts_.record));
  row.record->setAccessibleName(toQString(content.isRecording ? texts_.cancel : content.recordName));
  row.record->setAccessibleDescription(
      toQString(content.note.empty() ? content.hotkey : content.hotkey + ". " + content.note));
  row.remove->setText(toQString(texts_.remove));
  row.remove->setAccessibleName(toQString(content.removeName));
  row.remove->setEnabled(content.isAssigned && !content.isRecording);
}

bool HotkeyRowsView::isRecording() const {
  return std::ranges::any_of(shown_, [](const HotkeyRow& row) { return row.isRecording; });
}

// A click on the button itself ends the recording as any press of the button does.
void HotkeyRowsView::cancelUnlessOnButton() {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const QPushButton& button = *rows_[i].record;
    if (shown_[i].isRecording && button.rect().contains(button.mapFromGlobal(QCursor::pos()))) return;
  }
  cancel();
}

void HotkeyRowsView::cancel() {
  if (isRecording()) list_.cancelRecording();
}

void HotkeyRowsView::subscribe() {
  if (!list_.watch) return;
  subscription_ = list_.watch([this](const HotkeyRows& rows) { present(rows); });
  clicks_ = list_.onClick([this] { cancelUnlessOnButton(); });
}

void HotkeyRowsView::showEvent(QShowEvent* event) {
  window()->installEventFilter(this);
  subscribe();
  QScrollArea::showEvent(event);
}

void HotkeyRowsView::hideEvent(QHideEvent* event) {
  cancel();
  subscription_.reset();
  clicks_.reset();
  QScrollArea::hideEvent(event);
}

bool HotkeyRowsView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window() && event->type() == QEvent::WindowDeactivate) cancel();
  return QScrollArea::eventFilter(watched, event);
}

QSize HotkeyRowsView::sizeHint() const {
  if (widget() == nullptr) return {kMaxHint.width(), 0};
  const QLayout& rows = *widget()->layout();
  const int width = std::max(viewport()->width(), 1);
  // Without a note no row wraps.
  const int height = rows.hasHeightForWidth() ? rows.totalHeightForWidth(width) : rows.totalSizeHint().height();
  return {kMaxHint.width(), std::min(height, kMaxHint.height())};
}

QSize HotkeyRowsView::minimumSizeHint() const { return {0, std::min(sizeHint().height(), kMinHeight)}; }

}  // namespace rondora

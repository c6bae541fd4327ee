#include "ui/qt/settings/command_entries_view.h"

#include <QCursor>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/two_line_delegate.h"

namespace rondora {
namespace {

constexpr int kVisibleRows = 8;
constexpr int kFewestRows = 4;

}  // namespace

CommandEntriesView::CommandEntriesView(AppCommandSets& sets, const ItemIcons& icons) : sets_(sets), icons_(icons) {
  setItemDelegate(new TwoLineDelegate(this));
  setIconSize({settings_look::kListIcon, settings_look::kListIcon});
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setDragDropMode(QAbstractItemView::InternalMove);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  connect(this, &QListWidget::currentRowChanged, this, [this] { rowChosen(); });
  connect(this, &QListWidget::itemActivated, this, [this] {
    if (onOpen) onOpen();
  });
}

void CommandEntriesView::refresh() {
  const QScopedValueRollback guard(isRefreshing_, true);
  const auto entries = sets_.entries();
  const int wanted = static_cast<int>(entries.size());
  while (count() > wanted) delete takeItem(count() - 1);
  while (count() < wanted) addItem(new QListWidgetItem);
  for (int i = 0; i < wanted; ++i) {
    const AppCommandSets::Entry& entry = entries[static_cast<std::size_t>(i)];
    QListWidgetItem& row = *item(i);
    const QString title = toQString(entry.title);
    const QString second = toQString(entry.problem.empty() ? entry.menus : entry.problem);
    const QString key = toQString(entry.keyEquivalent);
    row.setText(toQString(entry.title));
    row.setToolTip(entry.problem.empty() ? title : toQString(entry.menus));
    row.setIcon(
        icons_.ofRow(IconReference::parse(entry.icon), settings_look::kListIcon, palette(), devicePixelRatioF()));
    row.setData(TwoLineDelegate::kSecondLine, toQString(entry.problem.empty() ? entry.menus : entry.problem));
    row.setData(TwoLineDelegate::kMark, toQString(entry.keyEquivalent));
    row.setData(TwoLineDelegate::kIsQuiet, !entry.problem.empty());
    row.setData(Qt::AccessibleTextRole, key.isEmpty() ? title + ", " + second : title + ", " + second + ", " + key);
  }
  const auto chosen = sets_.chosenPlace();
  setCurrentRow(chosen ? static_cast<int>(*chosen) : -1);
  if (!chosen) clearSelection();
  updateGeometry();
}

void CommandEntriesView::rowChosen() {
  if (isRefreshing_) return;
  const auto entries = sets_.entries();
  const int row = currentRow();
  const bool isEntry = row >= 0 && row < static_cast<int>(entries.size());
  sets_.chooseEntry(isEntry ? std::optional(entries[static_cast<std::size_t>(row)].id) : std::nullopt);
}

void CommandEntriesView::removeChosen() {
  if (const auto chosen = sets_.chosenEntry()) sets_.removeEntry(*chosen);
}

void CommandEntriesView::moveChosen(int places) {
  const auto chosen = sets_.chosenEntry();
  const auto place = sets_.chosenPlace();
  const int target = place ? static_cast<int>(*place) + places : -1;
  if (chosen && target >= 0) sets_.moveEntry(*chosen, static_cast<std::size_t>(target));
}

void CommandEntriesView::keyPressEvent(QKeyEvent* event) {
  const bool isAlt = (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
  if (event->key() == Qt::Key_Delete) return removeChosen();
  if (isAlt && event->key() == Qt::Key_Up) return moveChosen(-1);
  if (isAlt && event->key() == Qt::Key_Down) return moveChosen(1);
  QListWidget::keyPressEvent(event);
}

/// The view's own would remove the row that was moved.
void CommandEntriesView::startDrag(Qt::DropActions /*supportedActions*/) {
  const QRect row = visualItemRect(currentItem());
  auto* drag = new QDrag(this);
  drag->setMimeData(model()->mimeData(selectedIndexes()));
  drag->setPixmap(viewport()->grab(row));
  drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
  drag->exec(Qt::MoveAction);
}

/// The document moves the entry, and the rows follow it.
void CommandEntriesView::dropEvent(QDropEvent* event) {
  const auto chosen = sets_.chosenEntry();
  const auto from = sets_.chosenPlace();
  const QModelIndex target = indexAt(event->position().toPoint());
  int to = target.isValid() ? target.row() : count();
  if (target.isValid() && dropIndicatorPosition() == BelowItem) ++to;
  if (from && to > static_cast<int>(*from)) --to;
  event->accept();
  setState(NoState);
  viewport()->update();
  if (event->source() == this && chosen) sets_.moveEntry(*chosen, static_cast<std::size_t>(std::max(to, 0)));
}

QSize CommandEntriesView::sizeHint() const {
  const int row = sizeHintForRow(0) > 0 ? sizeHintForRow(0) : 2 * settings_look::kListIcon;
  return {0, std::min(std::max(count(), kFewestRows), kVisibleRows) * row + 2 * frameWidth()};
}

QSize CommandEntriesView::minimumSizeHint() const {
  const int row = sizeHintForRow(0) > 0 ? sizeHintForRow(0) : 2 * settings_look::kListIcon;
  return {0, kFewestRows * row + 2 * frameWidth()};
}

}  // namespace rondora

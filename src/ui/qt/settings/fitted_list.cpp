#include "ui/qt/settings/fitted_list.h"

#include <QFocusEvent>
#include <algorithm>

#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr int kRowSpacing = 2;

}  // namespace

FittedList::FittedList(int maxHeight) : maxHeight_(maxHeight) {
  setWordWrap(true);
  setSpacing(kRowSpacing);
  setResizeMode(QListView::Adjust);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setIconSize({settings_look::kListIcon, settings_look::kListIcon});
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize FittedList::sizeHint() const {
  const int rows = contentsSize().height() + 2 * frameWidth();
  return {QListWidget::sizeHint().width(), std::clamp(rows, fontMetrics().height() * 2, maxHeight_)};
}

void FittedList::fit() {
  doItemsLayout();
  updateGeometry();
}

void FittedList::resizeEvent(QResizeEvent* event) {
  QListWidget::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) fit();
}

// Without a current row the keyboard's place in the list is not visible.
void FittedList::focusInEvent(QFocusEvent* event) {
  if (currentRow() < 0 && count() > 0) setCurrentRow(0);
  QListWidget::focusInEvent(event);
}

}  // namespace rondora

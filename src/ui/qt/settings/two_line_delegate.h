#pragma once

#include <QStyledItemDelegate>

namespace rondora {

/// Draws a row of a list: its icon, its text, and beneath the text a quieter line; at the trailing edge a short mark.
class TwoLineDelegate : public QStyledItemDelegate {
 public:
  enum Role { kSecondLine = Qt::UserRole + 100, kMark, kIsQuiet };

  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace rondora

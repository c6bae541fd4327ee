#include "ui/qt/settings/two_line_delegate.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <utility>

namespace rondora {
namespace {

constexpr int kMargin = 7;
constexpr int kGap = 9;
constexpr double kSmallScale = 0.85;
constexpr float kQuiet = 0.72F;

QFont small(QFont font) {
  font.setPointSizeF(font.pointSizeF() * kSmallScale);
  return font;
}

}  // namespace

void TwoLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  const QIcon icon = row.icon;
  const QString text = std::exchange(row.text, QString());
  row.icon = QIcon();
  row.features &= ~QStyleOptionViewItem::HasDecoration;
  const QStyle* style = row.widget == nullptr ? QApplication::style() : row.widget->style();
  style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

  painter->save();
  const bool isSelected = (row.state & QStyle::State_Selected) != 0;
  const auto group = (row.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
  const QColor color = row.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
  QColor quiet = color;
  // On the colour of a choice even a text of full strength has little contrast.
  if (!isSelected) quiet.setAlphaF(kQuiet);
  const bool isRightToLeft = row.direction == Qt::RightToLeft;
  const auto visual = [&](const QRect& rect) { return QStyle::visualRect(row.direction, row.rect, rect); };
  const int leading = (isRightToLeft ? Qt::AlignRight : Qt::AlignLeft) | int{Qt::AlignVCenter} | int{Qt::AlignAbsolute};
  // Each text runs in its own direction, also in a list that runs in the other.
  painter->setLayoutDirection(Qt::LayoutDirectionAuto);

  QRect rest = row.rect.adjusted(kMargin, 0, -kMargin, 0);
  const QSize iconSize = row.decorationSize;
  icon.paint(painter, visual(QRect(rest.topLeft(), QSize(iconSize.width(), rest.height()))), Qt::AlignCenter,
             isSelected ? QIcon::Selected : QIcon::Normal);
  rest.setLeft(rest.left() + iconSize.width() + kGap);
  const QString mark = index.data(kMark).toString();
  if (!mark.isEmpty()) {
    const int width = row.fontMetrics.horizontalAdvance(mark) + kGap;
    painter->setPen(quiet);
    painter->setFont(row.font);
    painter->drawText(visual(QRect(rest.right() - width, rest.top(), width, rest.height())), Qt::AlignCenter, mark);
    rest.setRight(rest.right() - width - kGap);
  }
  const QString second = index.data(kSecondLine).toString();
  const QFont smallFont = small(row.font);
  const int firstHeight = row.fontMetrics.height();
  const int secondHeight = second.isEmpty() ? 0 : QFontMetrics(smallFont).height();
  int top = rest.top() + (rest.height() - firstHeight - secondHeight) / 2;
  painter->setFont(row.font);
  painter->setPen(index.data(kIsQuiet).toBool() ? quiet : color);
  const QRect first(rest.left(), top, rest.width(), firstHeight);
  painter->drawText(visual(first), leading, row.fontMetrics.elidedText(text, Qt::ElideRight, first.width()));
  if (!second.isEmpty()) {
    painter->setFont(smallFont);
    painter->setPen(quiet);
    const QRect below(rest.left(), top + firstHeight, rest.width(), secondHeight);
    painter->drawText(visual(below), leading,
                      QFontMetrics(smallFont).elidedText(second, Qt::ElideRight, below.width()));
  }
  painter->restore();
}

QSize TwoLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const bool hasSecond = !index.data(kSecondLine).toString().isEmpty();
  const int text = option.fontMetrics.height() + (hasSecond ? QFontMetrics(small(option.font)).height() : 0);
  return {0, std::max(text, option.decorationSize.height()) + 2 * kMargin - (hasSecond ? 4 : 0)};
}

}  // namespace rondora

#include "ui/qt/settings/application_rows.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace rondora {
namespace {

constexpr int kPadding = 6;
constexpr double kDetailScale = 0.92;
/// The share of the text colour in quiet letters.
constexpr float kQuiet = 0.72F;

QFont quietFont(QFont font) {
  font.setPointSizeF(font.pointSizeF() * kDetailScale);
  return font;
}

/// The text in its own direction at the leading edge of the rectangle, or at the trailing one.
void drawText(QPainter& painter, const QRect& rect, const QString& text, bool isTrailing = false) {
  const bool isRight = (painter.layoutDirection() == Qt::RightToLeft) != isTrailing;
  const Qt::Alignment edge = Qt::AlignAbsolute | Qt::AlignVCenter | (isRight ? Qt::AlignRight : Qt::AlignLeft);
  const int direction = text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
  painter.drawText(rect, static_cast<int>(edge) | direction | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
}

QColor textColor(const QStyleOptionViewItem& option) {
  const bool isActive = (option.state & QStyle::State_Active) != 0;
  const bool isSelected = (option.state & QStyle::State_Selected) != 0;
  return option.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                              isSelected ? QPalette::HighlightedText : QPalette::Text);
}

}  // namespace

void ApplicationRows::show(std::vector<ApplicationRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

QModelIndex ApplicationRows::find(const QString& identifier) const {
  const auto found = std::ranges::find(rows_, identifier, &ApplicationRow::identifier);
  return found == rows_.end() ? QModelIndex() : index(static_cast<int>(found - rows_.begin()));
}

int ApplicationRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ApplicationRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ApplicationRow& row = rows_.at(static_cast<std::size_t>(index.row()));
  switch (role) {
    case Qt::DisplayRole:
      return row.name;
    case Qt::AccessibleTextRole: {
      QStringList texts{row.name, row.detail, row.mark};
      texts.removeAll(QString());
      return texts.join(", ");
    }
    case Qt::ToolTipRole:
      return "<p>" + row.name.toHtmlEscaped() + "<br>" + row.identifier.toHtmlEscaped() + "</p>";
    case kDetailRole:
      return row.detail;
    case kMarkRole:
      return row.mark;
    case kIdentifierRole:
      return row.identifier;
    default:
      return {};
  }
}

void ApplicationRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  QStyleOptionViewItem background = option;
  initStyleOption(&background, index);
  background.text.clear();
  option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);

  painter->save();
  painter->setLayoutDirection(option.direction);
  const QRect row = option.rect.adjusted(kPadding, 0, -kPadding, 0);
  const auto place = [&](const QRect& rect) { return QStyle::visualRect(option.direction, row, rect); };
  const QRect icon(row.left(), row.center().y() - iconSide_ / 2, iconSide_, iconSide_);
  const QString identifier = index.data(ApplicationRows::kIdentifierRole).toString();
  painter->drawPixmap(place(icon),
                      icons_.application(identifier.toStdString(), iconSide_, option.widget->devicePixelRatioF()));

  const QString mark = index.data(ApplicationRows::kMarkRole).toString();
  const QString detail = index.data(ApplicationRows::kDetailRole).toString();
  const QFontMetrics quietMetrics(quietFont(option.font));
  const int markWidth = mark.isEmpty() ? 0 : quietMetrics.horizontalAdvance(mark) + kPadding;
  QRect text = row.adjusted(iconSide_ + 2 * kPadding, 0, -markWidth, 0);
  const int nameHeight = QFontMetrics(option.font).height();
  const int detailHeight = detail.isEmpty() ? 0 : quietMetrics.height();
  text = QRect(text.left(), row.center().y() - (nameHeight + detailHeight) / 2, text.width(), nameHeight);
  QColor color = textColor(option);
  painter->setPen(color);
  painter->setFont(option.font);
  drawText(*painter, place(text), index.data().toString());
  // On the colour of the selection quiet letters would be too faint.
  if ((option.state & QStyle::State_Selected) == 0) color.setAlphaF(kQuiet);
  painter->setPen(color);
  painter->setFont(quietFont(option.font));
  drawText(*painter, place(QRect(text.left(), text.bottom() + 1, text.width(), detailHeight)), detail);
  drawText(*painter, place(QRect(row.right() - markWidth, row.top(), markWidth, row.height())), mark, true);
  painter->restore();
}

QSize ApplicationRowPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const bool hasDetail = hasEqualRows_ || !index.data(ApplicationRows::kDetailRole).toString().isEmpty();
  const int lines =
      QFontMetrics(option.font).height() + (hasDetail ? QFontMetrics(quietFont(option.font)).height() : 0);
  return {0, std::max(iconSide_, lines) + kPadding};
}

}  // namespace rondora

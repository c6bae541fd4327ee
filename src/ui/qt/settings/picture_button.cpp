#include "ui/qt/settings/picture_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

namespace rondora {
namespace {

constexpr int kGap = 6;
constexpr int kLeastLetters = 12;

}  // namespace

QSize PictureButton::minimumSizeHint() const {
  const QSize whole = sizeHint();
  const int least = iconSize().width() + kGap + kLeastLetters * fontMetrics().averageCharWidth();
  return {std::min(whole.width(), least), whole.height()};
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.icon = {};
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  const QRect room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
  const int picture = icon().isNull() ? 0 : iconSize().width() + kGap;
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width() - picture);
  const int width = picture + fontMetrics().horizontalAdvance(shown);
  const int start = room.left() + std::max(0, (room.width() - width) / 2);
  const auto visual = [&](const QRect& rect) { return QStyle::visualRect(layoutDirection(), room, rect); };
  if (picture > 0) {
    const QRect place(start, room.top(), iconSize().width(), room.height());
    icon().paint(&painter, visual(place), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }
  const QRect place(start + picture, room.top(), width - picture, room.height());
  style()->drawItemText(&painter, visual(place), Qt::AlignCenter, palette(), isEnabled(), shown, QPalette::ButtonText);
}

}  // namespace rondora

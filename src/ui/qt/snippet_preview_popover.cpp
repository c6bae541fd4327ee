#include "ui/qt/snippet_preview_popover.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QStringList>
#include <QToolTip>
#include <algorithm>

#include "ui/qt/interface_language.h"
#include "ui/qt/qt_conversions.h"

namespace rondora {

namespace {

constexpr QPoint kDistanceFromPointer(20, 24);
constexpr int kWidestText = 320;
constexpr int kPadding = 8;
constexpr qsizetype kLongestText = 600;
constexpr qsizetype kMostLines = 12;
constexpr QChar kEllipsis(0x2026);

QString shortened(std::string_view text) {
  QString result = toQString(text.substr(0, 4 * kLongestText)).left(kLongestText).trimmed();
  QStringList lines = result.split('\n');
  const bool tooMany = lines.size() > kMostLines;
  if (tooMany) result = lines.mid(0, kMostLines).join('\n');
  return tooMany || text.size() > static_cast<std::size_t>(4 * kLongestText) ? result + kEllipsis : result;
}

}  // namespace

QtSnippetPreviewPopover::QtSnippetPreviewPopover()
    : note_(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                         Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint) {
  note_.setAttribute(Qt::WA_ShowWithoutActivating);
  note_.setTextFormat(Qt::PlainText);
  note_.setWordWrap(true);
  note_.setMargin(kPadding);
  note_.setFrameStyle(QFrame::Box | QFrame::Plain);
  note_.setPalette(QToolTip::palette());
  note_.setForegroundRole(QPalette::ToolTipText);
  note_.setBackgroundRole(QPalette::ToolTipBase);
  note_.setMaximumWidth(kWidestText);
}

void QtSnippetPreviewPopover::show(std::string_view text) {
  const QString shown = shortened(text);
  if (shown.isEmpty()) return hide();
  note_.setFont(interfaceFontFor(shown));
  note_.setLayoutDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  note_.setText(shown);
  note_.adjustSize();
  moveToPointer();
  note_.show();
  note_.raise();
}

void QtSnippetPreviewPopover::hide() { note_.hide(); }

void QtSnippetPreviewPopover::moveToPointer() {
  const QPoint pointer = QCursor::pos();
  const QScreen* screen = QGuiApplication::screenAt(pointer);
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect area = screen->availableGeometry();
  QPoint corner = pointer + kDistanceFromPointer;
  if (corner.y() + note_.height() > area.bottom()) corner.setY(pointer.y() - kDistanceFromPointer.y() - note_.height());
  corner.setX(std::clamp(corner.x(), area.left(), std::max(area.left(), area.right() - note_.width())));
  corner.setY(std::clamp(corner.y(), area.top(), std::max(area.top(), area.bottom() - note_.height())));
  note_.move(corner);
}

}  // namespace rondora

#include "ui/qt/windows/snippet_note.h"

#include <QAbstractTextDocumentLayout>
#include <QBitmap>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"
#include "platform/qt/qt_x11_access.h"
#include "ui/qt/interface/interface_language.h"

namespace rondora {

namespace {

constexpr int kPadding = 12;
constexpr int kSpaceAboveHint = 8;
constexpr double kCornerRadius = 9;
constexpr double kHintFontScale = 0.86;
constexpr double kTabWidth = 4;  // in spaces
constexpr QChar kEllipsis(0x2026);
/// Characters dropped before the ellipsis, so that it does not wrap to a line of its own.
constexpr int kRoomOfEllipsis = 3;

const QColor kBackground(30, 31, 36);
const QColor kBorder(255, 255, 255, 56);
const QColor kText(244, 244, 247);
const QColor kHintText(172, 174, 182);

void setText(QTextDocument& document, const QString& text, double fontScale, int width) {
  QFont font = interfaceFontFor(text);
  font.setPointSizeF(font.pointSizeF() * fontScale);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTabStopDistance(kTabWidth * QFontMetricsF(font).horizontalAdvance(' '));
  document.setDocumentMargin(0);
  document.setDefaultFont(font);
  document.setDefaultTextOption(option);
  document.setPlainText(text);
  document.setTextWidth(width);
}

/// End position of the text that fits into `lines` lines; negative when all of it fits.
int endOfLines(const QTextDocument& document, int lines) {
  document.size();  // lays out
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QTextLayout& layout = *block.layout();
    if (layout.lineCount() > lines || (layout.lineCount() == lines && block.next().isValid())) {
      const QTextLine last = layout.lineAt(lines - 1);
      return block.position() + last.textStart() + last.textLength();
    }
    lines -= layout.lineCount();
  }
  return -1;
}

void paintText(QPainter& painter, QTextDocument& document, QPoint corner, const QColor& color) {
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, color);
  painter.save();
  painter.translate(corner);
  document.documentLayout()->draw(&painter, context);
  painter.restore();
}

int heightOf(const QTextDocument& document) { return static_cast<int>(std::ceil(document.size().height())); }

}  // namespace

SnippetNote::SnippetNote()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                           Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TranslucentBackground);
}

void SnippetNote::setPreview(const SnippetPreview& preview) {
  const QString snippet = toQString(preview.text);
  const QString hint = toQString(preview.hint);
  setText(snippet_, snippet, 1, preview.maxLineWidth);
  if (const int end = endOfLines(snippet_, preview.maxLines); end >= 0) {
    setText(snippet_, snippet.left(end - kRoomOfEllipsis).trimmed() + kEllipsis, 1, preview.maxLineWidth);
  }
  setText(hint_, hint, kHintFontScale, preview.maxLineWidth);
  const double width = std::ceil(std::max(snippet_.idealWidth(), hint_.idealWidth()));
  snippet_.setTextWidth(width);
  hint_.setTextWidth(width);
  const int hintHeight = hint.isEmpty() ? 0 : kSpaceAboveHint + heightOf(hint_);
  resize(static_cast<int>(width) + 2 * kPadding, heightOf(snippet_) + hintHeight + 2 * kPadding);
  cutCorners();
  update();
}

/// Without a compositor transparent corners would be black: the window gets the shape of the note.
void SnippetNote::cutCorners() {
  if (qtIsComposited()) return clearMask();
  QBitmap shape(size());
  shape.clear();
  QPainter painter(&shape);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::color1);
  painter.drawRoundedRect(rect(), kCornerRadius, kCornerRadius);
  painter.end();
  setMask(shape);
}

int SnippetNote::hintTop() const { return kPadding + heightOf(snippet_) + kSpaceAboveHint; }

void SnippetNote::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  // Along the edge of a shape nothing but the note's own colour lies beneath the border.
  if (!mask().isEmpty()) painter.fillRect(rect(), kBackground);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(kBorder);
  painter.setBrush(kBackground);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
  paintText(painter, snippet_, {kPadding, kPadding}, kText);
  if (!hint_.isEmpty()) paintText(painter, hint_, {kPadding, hintTop()}, kHintText);
}

}  // namespace rondora

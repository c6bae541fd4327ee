#include "ui/qt/painting/prepared_text.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/interface/qt_conversions.h"

namespace rondora {

namespace {

/// More than any label shows; limits the cost of a hostile title.
constexpr qsizetype kMaxTextLength = 1000;
constexpr double kMaxFontPixels = 512;

QFont::Weight toQWeight(FontWeight weight) {
  switch (weight) {
    case FontWeight::regular:
      return QFont::Normal;
    case FontWeight::medium:
      return QFont::Medium;
    case FontWeight::semibold:
      return QFont::DemiBold;
    case FontWeight::bold:
      return QFont::Bold;
  }
  return QFont::Normal;
}

Qt::Alignment toQAlignment(TextAlignment alignment, bool rightToLeft) {
  if (alignment == TextAlignment::center) return Qt::AlignHCenter;
  const bool atLeft = (alignment == TextAlignment::leading) != rightToLeft;
  return atLeft ? Qt::AlignLeft : Qt::AlignRight;
}

QFont makeFont(const QString& text, FontWeight weight, double pixels) {
  QFont font = interfaceFontFor(text);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::clamp(pixels, 1.0, kMaxFontPixels)))));
  font.setWeight(toQWeight(weight));
  font.setHintingPreference(QFont::PreferVerticalHinting);
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  return font;
}

QTextOption makeOption(TextAlignment alignment, bool rightToLeft) {
  QTextOption option(toQAlignment(alignment, rightToLeft));
  option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  return option;
}

QString singleParagraph(std::string_view utf8) {
  return toQString(utf8.substr(0, 4 * kMaxTextLength)).simplified().left(kMaxTextLength);
}

const QString& softBreak() {
  static const QString text = toQString(kSoftBreak);
  return text;
}

/// Without the soft breaks of words that fit into a line anyway.
QString softened(const QString& text, const QFontMetricsF& metrics, double width) {
  if (!text.contains(softBreak())) return text;
  QStringList words = text.split(' ');
  for (QString& word : words) {
    const QString whole = QString(word).remove(softBreak());
    if (metrics.horizontalAdvance(whole) <= width) word = whole;
  }
  return words.join(' ');
}

/// `text` cut to `length` characters, a third of them from its end if the middle is elided.
QString shortened(const QString& text, qsizetype length, TextElision elision) {
  constexpr QChar kEllipsis(0x2026);
  QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
  const qsizetype tail = elision == TextElision::middle ? length / 3 : 0;
  boundaries.setPosition(length - tail + 1);
  const qsizetype headEnd = std::max<qsizetype>(boundaries.toPreviousBoundary(), 0);
  boundaries.setPosition(text.size() - tail - 1);
  const qsizetype tailStart = tail == 0 ? text.size() : boundaries.toNextBoundary();
  return text.left(headEnd).trimmed() + kEllipsis + text.mid(tailStart).trimmed();
}

}  // namespace

PreparedText::PreparedText(const TextCommand& command, double pixelsPerPoint) : color_(toQColor(command.color)) {
  const QString text = singleParagraph(command.text);
  area_ = {toQRect(command.rect, pixelsPerPoint), std::nullopt, 0, std::max(command.maximumLines, 1)};
  if (command.disc) {
    area_.center = toQPoint(command.disc->center, pixelsPerPoint);
    area_.radius = command.disc->radius * pixelsPerPoint;
  }
  option_ = makeOption(command.alignment, text.isRightToLeft());
  layout_.setCacheEnabled(true);
  layOut(text, command, pixelsPerPoint);
  origin_ = {0, std::round(area_.rect.top() + (area_.rect.height() - height_) / 2)};
}

void PreparedText::layOut(const QString& text, const TextCommand& command, double pixelsPerPoint) {
  useFont(text, command, command.pointSize * pixelsPerPoint);
  if (fits(text, QTextOption::WordWrap)) return;
  if (command.smallerPointSize > 0) {
    useFont(text, command, command.smallerPointSize * pixelsPerPoint);
    if (fits(text, QTextOption::WordWrap)) return;
  }
  if (!fits(text, QTextOption::WrapAtWordBoundaryOrAnywhere)) elide(text, command.elision);
}

void PreparedText::useFont(const QString& text, const TextCommand& command, double pixels) {
  layout_.setFont(makeFont(text, command.weight, pixels));
  lineHeight_ = QFontMetricsF(layout_.font()).height();
  lines_ = std::clamp(static_cast<int>(area_.rect.height() / lineHeight_), 1, area_.maximumLines);
}

/// Where a line from `top`, counted from the rectangle's, may lie.
PreparedText::Slot PreparedText::slotAt(double top, double height) const {
  if (!area_.center) return {area_.rect.left(), area_.rect.width()};
  constexpr double kLeading = 0.15;  // of a line, above and below its letters
  const double fromCenter = area_.rect.top() + top - area_.center->y();
  const double upper = std::abs(fromCenter + kLeading * height);
  const double lower = std::abs(fromCenter + (1 - kLeading) * height);
  const double far = std::min(std::max(upper, lower), area_.radius);
  const double half = std::sqrt(area_.radius * area_.radius - far * far);
  const double left = std::max(area_.rect.left(), area_.center->x() - half);
  return {left, std::max(1.0, std::min(area_.rect.right(), area_.center->x() + half) - left)};
}

bool PreparedText::fits(const QString& text, QTextOption::WrapMode wrap) {
  option_.setWrapMode(wrap);
  layout_.setTextOption(option_);
  const Slot widest = slotAt((area_.rect.height() - lineHeight_) / 2, lineHeight_);
  layout_.setText(softened(text, QFontMetricsF(layout_.font()), widest.width));
  for (int count = 1; count <= lines_; ++count) {
    if (fillLines(count)) return true;
  }
  return false;
}

/// True when the whole text lies in that many lines and no word is wider than its line.
bool PreparedText::fillLines(int count) {
  const double top = (area_.rect.height() - count * lineHeight_) / 2;
  const bool mayBreakWords = option_.wrapMode() != QTextOption::WordWrap;
  bool areNarrow = true;
  height_ = 0;
  qsizetype end = 0;
  layout_.beginLayout();
  for (int i = 0; i < count; ++i) {
    QTextLine line = layout_.createLine();
    if (!line.isValid()) break;
    const Slot slot = slotAt(top + i * lineHeight_, lineHeight_);
    line.setLineWidth(slot.width);
    line.setPosition({slot.left, height_});
    height_ += std::max(line.height(), lineHeight_);
    areNarrow = areNarrow && (mayBreakWords || line.naturalTextWidth() <= slot.width + 0.5);
    end = line.textStart() + line.textLength();
  }
  layout_.endLayout();
  return areNarrow && end >= layout_.text().size();
}

/// Keeps as much as fits.
void PreparedText::elide(const QString& text, TextElision elision) {
  qsizetype fitting = 0;
  qsizetype tooLong = text.size();
  while (tooLong - fitting > 1) {
    const qsizetype middle = (fitting + tooLong) / 2;
    (fits(shortened(text, middle, elision), option_.wrapMode()) ? fitting : tooLong) = middle;
  }
  fits(shortened(text, fitting, elision), option_.wrapMode());
}

QStringList PreparedText::lines() const {
  QStringList lines;
  for (int i = 0; i < layout_.lineCount(); ++i) {
    const QTextLine line = layout_.lineAt(i);
    lines << layout_.text().mid(line.textStart(), line.textLength()).remove(softBreak()).trimmed();
  }
  return lines;
}

void PreparedText::paint(QPainter& painter) const {
  painter.setPen(color_);
  layout_.draw(&painter, origin_);
}

}  // namespace rondora

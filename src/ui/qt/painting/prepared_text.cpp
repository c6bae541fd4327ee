#include "ui/qt/painting/prepared_text.h"

#include <QFontMetricsF>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/qt_conversions.h"
#include "ui/qt/windows/interface_language.h"

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

QFont makeFont(const TextCommand& command, const QString& text, double pixelsPerPoint) {
  QFont font = interfaceFontFor(text);
  font.setPixelSize(
      std::max(1, static_cast<int>(std::lround(std::clamp(command.pointSize * pixelsPerPoint, 1.0, kMaxFontPixels)))));
  font.setWeight(toQWeight(command.weight));
  font.setHintingPreference(QFont::PreferVerticalHinting);
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  return font;
}

QTextOption makeOption(TextAlignment alignment, bool rightToLeft) {
  QTextOption option(toQAlignment(alignment, rightToLeft));
  option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return option;
}

QString singleParagraph(std::string_view utf8) {
  return toQString(utf8.substr(0, 4 * kMaxTextLength)).simplified().left(kMaxTextLength);
}

}  // namespace

PreparedText::PreparedText(const TextCommand& command, double pixelsPerPoint) : color_(toQColor(command.color)) {
  const QString text = singleParagraph(command.text);
  layout_.setFont(makeFont(command, text, pixelsPerPoint));
  layout_.setTextOption(makeOption(command.alignment, text.isRightToLeft()));
  layout_.setCacheEnabled(true);
  layOut(text, toQRect(command.rect, pixelsPerPoint), std::max(command.maximumLines, 1));
}

void PreparedText::layOut(const QString& text, const QRectF& rect, int maximumLines) {
  layout_.setText(text);
  double height = breakLines(rect.width(), maximumLines);
  if (!showsWholeText()) height = elide(rect.width(), maximumLines);
  origin_ = {rect.left(), std::round(rect.top() + (rect.height() - height) / 2)};
}

double PreparedText::breakLines(double width, int maximumLines) {
  double height = 0;
  layout_.beginLayout();
  for (int count = 0; count < maximumLines; ++count) {
    QTextLine line = layout_.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout_.endLayout();
  return height;
}

bool PreparedText::showsWholeText() const {
  if (layout_.lineCount() == 0) return true;
  const QTextLine last = layout_.lineAt(layout_.lineCount() - 1);
  return last.textStart() + last.textLength() >= layout_.text().size();
}

/// Shortens the last line until it does not wrap: measured text and laid out text differ slightly.
double PreparedText::elide(double width, int maximumLines) {
  const QString text = layout_.text();
  const int start = layout_.lineAt(layout_.lineCount() - 1).textStart();
  const QFontMetricsF metrics(layout_.font());
  const double step = std::max(1.0, width / 40);
  double height = 0;
  for (int i = 0; i * step < width; ++i) {
    const QString line =
        metrics.elidedText(text.mid(start), Qt::ElideRight, width - i * step).replace(' ', QChar::Nbsp);
    layout_.setText(text.left(start) + line);
    height = breakLines(width, maximumLines);
    if (showsWholeText()) break;
  }
  return height;
}

void PreparedText::paint(QPainter& painter) const {
  painter.setPen(color_);
  layout_.draw(&painter, origin_);
}

}  // namespace rondora

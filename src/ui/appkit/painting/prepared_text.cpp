#include "ui/appkit/painting/prepared_text.h"

#include <memory>
#include <string>

#include "base/unicode.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/painting/text_fitting.h"

namespace rondora::appkit {
namespace {

// Lines are laid out one by one; with one of these each has the direction of the whole text.
constexpr std::string_view kLeftToRightMark = "\u200E";
constexpr std::string_view kRightToLeftMark = "\u200F";

/// More than any label shows; limits the cost of a hostile title.
constexpr std::size_t kMeasuredCharacters = 1000;

/// 0 is flush left, 1 flush right.
double flushOf(TextAlignment alignment, bool isRightToLeft) {
  if (alignment == TextAlignment::center) return 0.5;
  return (alignment == TextAlignment::leading) != isRightToLeft ? 0 : 1;
}

}  // namespace

PreparedText::PreparedText(const TextCommand& command) : color_(command.color) {
  const std::string text = shortened(command.text, kMeasuredCharacters);
  const FittedText fitted = fitText(command, [&](double pointSize) {
    return std::make_unique<CoreTextMeter>(interfaceFont(pointSize, command.weight), text);
  });
  const Font font = interfaceFont(fitted.pointSize, command.weight);
  const double ascent = lineMetrics(font, text).ascent;
  const std::string mark(fitted.isRightToLeft ? kRightToLeftMark : kLeftToRightMark);
  const double flush = flushOf(command.alignment, fitted.isRightToLeft);
  for (const FittedLine& each : fitted.lines) {
    Line line = makeLine(font, mark + each.text);
    if (!line) continue;
    const double offset = CTLineGetPenOffsetForFlush(line.get(), flush, each.slot.size.width);
    const Point baseline{each.slot.left() + offset, each.slot.top() + ascent};
    lines_.push_back({std::move(line), baseline});
  }
}

void PreparedText::paint(CGContextRef context) const {
  const ContextState state(context);
  CGContextSetRGBFillColor(context, color_.red, color_.green, color_.blue, color_.alpha);
  CGContextSetTextMatrix(context, CGAffineTransformMakeScale(1, -1));
  for (const PlacedLine& each : lines_) {
    CGContextSetTextPosition(context, each.baseline.x, each.baseline.y);
    CTLineDraw(each.line.get(), context);
  }
}

}  // namespace rondora::appkit

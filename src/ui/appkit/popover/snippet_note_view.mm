#include "ui/appkit/popover/snippet_note_view.h"

#include <algorithm>
#include <cmath>

#include "base/display_list.h"
#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/painting/core_graphics_shapes.h"

namespace {

using rondora::Color;
using rondora::FillCommand;
using rondora::Path;
using rondora::SolidPaint;
using rondora::StrokeCommand;

constexpr double kPadding = 12;
constexpr double kSpaceAboveHint = 8;
constexpr double kCornerRadius = 9;
constexpr double kHalfBorder = 0.5;
/// More than any text needs.
constexpr double kUnlimited = 100000;

constexpr Color kBackground{0.118, 0.122, 0.141, 1};
constexpr Color kBorder{1, 1, 1, 0.22};
constexpr Color kText{0.957, 0.957, 0.969, 1};
constexpr Color kHintText{0.675, 0.682, 0.714, 1};

NSStringDrawingOptions drawingOptions() {
  return static_cast<NSStringDrawingOptions>(NSStringDrawingUsesLineFragmentOrigin) |
         static_cast<NSStringDrawingOptions>(NSStringDrawingTruncatesLastVisibleLine);
}

NSAttributedString* makeText(const std::string& text, NSFont* font, const Color& color) {
  NSColor* ink = [NSColor colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha];
  return
      [[NSAttributedString alloc] initWithString:rondora::macos::nsString(text)
                                      attributes:@{NSFontAttributeName : font, NSForegroundColorAttributeName : ink}];
}

NSSize sizeOf(NSAttributedString* text, NSSize limit) {
  const NSSize size = [text boundingRectWithSize:limit options:drawingOptions() context:nil].size;
  return {std::ceil(std::min(size.width, limit.width)), std::ceil(std::min(size.height, limit.height))};
}

/// Of a line of text.
double heightIn(NSFont* font) { return sizeOf(makeText("x", font, kText), {kUnlimited, kUnlimited}).height; }

}  // namespace

@implementation RondoraSnippetNoteView {
  NSAttributedString* snippet_;
  NSAttributedString* hint_;
  NSSize snippetSize_;
  NSSize hintSize_;
}

- (NSSize)setPreview:(const rondora::SnippetPreview&)preview {
  NSFont* font = [NSFont systemFontOfSize:NSFont.systemFontSize];
  const double width = preview.maxLineWidth;
  snippet_ = makeText(preview.text, font, kText);
  hint_ = makeText(preview.hint, [NSFont systemFontOfSize:NSFont.smallSystemFontSize], kHintText);
  snippetSize_ = sizeOf(snippet_, {width, preview.maxLines * heightIn(font)});
  hintSize_ = preview.hint.empty() ? NSSize{0, 0} : sizeOf(hint_, {width, kUnlimited});
  self.needsDisplay = YES;
  const double spaceAboveHint = preview.hint.empty() ? 0 : kSpaceAboveHint;
  return {std::max(snippetSize_.width, hintSize_.width) + 2 * kPadding,
          snippetSize_.height + spaceAboveHint + hintSize_.height + 2 * kPadding};
}

- (BOOL)isFlipped {
  return YES;
}

- (void)drawRect:(NSRect)__unused dirtyRect {
  const NSSize size = self.bounds.size;
  const Path outline = Path::roundedRect(
      {{kHalfBorder, kHalfBorder}, {size.width - 2 * kHalfBorder, size.height - 2 * kHalfBorder}}, kCornerRadius);
  const rondora::appkit::ShapePainter painter{NSGraphicsContext.currentContext.CGContext};
  painter.fill(FillCommand{outline, SolidPaint{kBackground}});
  painter.stroke(StrokeCommand{outline, SolidPaint{kBorder}, 2 * kHalfBorder});
  [snippet_ drawWithRect:{{kPadding, kPadding}, snippetSize_} options:drawingOptions() context:nil];
  const double hintTop = size.height - kPadding - hintSize_.height;
  [hint_ drawWithRect:{{kPadding, hintTop}, hintSize_} options:drawingOptions() context:nil];
}

@end

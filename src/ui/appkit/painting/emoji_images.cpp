#include "ui/appkit/painting/emoji_images.h"

#include <algorithm>

#include "ui/appkit/painting/core_text_meter.h"

namespace rondora::appkit {
namespace {

/// The interface's font would have a monochrome glyph for a character that is not marked as an emoji.
Font emojiFont(double pointSize) {
  return Font::adopt(CTFontCreateWithName(CFSTR("AppleColorEmoji"), pointSize, nullptr));
}

/// What is drawn, from the start of the baseline, y up.
CGRect boundsOf(const Line& line, CGContextRef context) {
  const CGRect drawn = CTLineGetImageBounds(line.get(), context);
  if (drawn.size.width > 0 && drawn.size.height > 0) return drawn;
  CGFloat ascent = 0;
  CGFloat descent = 0;
  const double width = CTLineGetTypographicBounds(line.get(), &ascent, &descent, nullptr);
  return {{0, -descent}, {width, ascent + descent}};
}

}  // namespace

Image emojiImage(std::string_view text, int side) {
  const Line line = makeLine(emojiFont(side), text);
  if (!line) return {};
  Bitmap bitmap(side, side);
  CGContextRef context = bitmap.context();
  const CGRect drawn = boundsOf(line, context);
  const double extent = std::max(drawn.size.width, drawn.size.height);
  if (!(extent > 0)) return {};
  CGContextTranslateCTM(context, side / 2.0, side / 2.0);
  CGContextScaleCTM(context, side / extent, side / extent);
  CGContextSetTextMatrix(context, CGAffineTransformMakeScale(1, -1));
  CGContextSetTextPosition(context, -(drawn.origin.x + drawn.size.width / 2), drawn.origin.y + drawn.size.height / 2);
  CTLineDraw(line.get(), context);
  return bitmap.image();
}

}  // namespace rondora::appkit

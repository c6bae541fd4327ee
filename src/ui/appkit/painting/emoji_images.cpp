#include "ui/appkit/painting/emoji_images.h"

#include <algorithm>

#include "ui/appkit/painting/core_text_meter.h"

namespace rondora::appkit {

Image emojiImage(std::string_view text, int side) {
  const Line line = makeLine(interfaceFont(side, FontWeight::regular), text);
  if (!line) return {};
  CGFloat ascent = 0;
  CGFloat descent = 0;
  const double width = CTLineGetTypographicBounds(line.get(), &ascent, &descent, nullptr);
  const double extent = std::max(width, ascent + descent);
  if (width <= 0 || extent <= 0) return {};
  Bitmap bitmap(side, side);
  CGContextRef context = bitmap.context();
  CGContextTranslateCTM(context, side / 2.0, side / 2.0);
  CGContextScaleCTM(context, side / extent, side / extent);
  CGContextSetTextMatrix(context, CGAffineTransformMakeScale(1, -1));
  CGContextSetTextPosition(context, -width / 2, (ascent - descent) / 2);
  CTLineDraw(line.get(), context);
  return bitmap.image();
}

}  // namespace rondora::appkit

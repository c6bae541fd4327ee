#include "ui/appkit/painting/bitmap.h"

#include <algorithm>
#include <cstddef>

namespace rondora::appkit {
namespace {

constexpr std::size_t kBitsPerComponent = 8;
/// Premultiplied 0xAARRGGBB in native byte order.
constexpr std::uint32_t kPixelFormat = static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                       static_cast<std::uint32_t>(kCGBitmapByteOrder32Little);

Context makeUnflippedContext(PixelBuffer pixels) {
  if (pixels.pixels == nullptr || pixels.width <= 0 || pixels.height <= 0) return {};
  const auto colors = macos::CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  return Context::adopt(CGBitmapContextCreate(
      pixels.pixels, static_cast<std::size_t>(pixels.width), static_cast<std::size_t>(pixels.height), kBitsPerComponent,
      static_cast<std::size_t>(pixels.stride) * sizeof(std::uint32_t), colors.get(), kPixelFormat));
}

}  // namespace

Context makeContext(PixelBuffer pixels) {
  Context context = makeUnflippedContext(pixels);
  if (!context) return context;
  CGContextTranslateCTM(context.get(), 0, pixels.height);
  CGContextScaleCTM(context.get(), 1, -1);
  CGContextSetInterpolationQuality(context.get(), kCGInterpolationHigh);
  // It is for texts on an opaque ground.
  CGContextSetShouldSmoothFonts(context.get(), false);
  return context;
}

Image makeImage(PixelBuffer pixels) {
  const Context context = makeUnflippedContext(pixels);
  return context ? Image::adopt(CGBitmapContextCreateImage(context.get())) : Image();
}

PixelRect sizeOf(const Image& image) {
  if (!image) return {};
  return {0, 0, static_cast<int>(CGImageGetWidth(image.get())), static_cast<int>(CGImageGetHeight(image.get()))};
}

CGRect toCGRect(const Rect& rect) { return {{rect.left(), rect.top()}, {rect.size.width, rect.size.height}}; }

CGRect toCGRect(const PixelRect& rect) {
  return {{static_cast<CGFloat>(rect.x), static_cast<CGFloat>(rect.y)},
          {static_cast<CGFloat>(rect.width), static_cast<CGFloat>(rect.height)}};
}

void drawImage(CGContextRef context, const Image& image, CGRect rect) {
  if (!image) return;
  const ContextState state(context);
  CGContextTranslateCTM(context, rect.origin.x, rect.origin.y + rect.size.height);
  CGContextScaleCTM(context, 1, -1);
  CGContextDrawImage(context, {{0, 0}, rect.size}, image.get());
}

Bitmap::Bitmap(int width, int height)
    : width_(std::max(width, 1)),
      height_(std::max(height, 1)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)),
      context_(makeContext(buffer())) {}

PixelBuffer Bitmap::buffer() { return {pixels_.data(), width_, height_, width_}; }

}  // namespace rondora::appkit

#include "platform/macos/pictures/image_io_pictures.h"

#include <CoreGraphics/CoreGraphics.h>
#include <ImageIO/ImageIO.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/macos/conversions/picture_fitting.h"
#include "platform/macos/foundation/cf_ref.h"
#include "platform/macos/foundation/cf_values.h"
#include "platform/macos/pictures/vector_drawings.h"

namespace rondora::macos {
namespace {

namespace fs = std::filesystem;
using Source = PictureRequest::Source;
using Image = CFRef<CGImageRef>;

constexpr std::uintmax_t kMaxFileBytes = 16 << 20;
constexpr int kMaxFileSide = 4096;
/// The tile behind a web site's picture: corners and picture as parts of its side, and a light grey.
constexpr double kTileCorner = 0.22;
constexpr double kTilePicture = 0.68;
constexpr CGFloat kTileGrey = 0.97;
constexpr std::size_t kBitsPerComponent = 8;
constexpr std::size_t kBytesPerPixel = 4;
/// Premultiplied 0xAARRGGBB in native byte order.
constexpr std::uint32_t kPixelFormat = static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                       static_cast<std::uint32_t>(kCGBitmapByteOrder32Little);

CFRef<CFDataRef> makeData(const std::string& bytes) {
  return CFRef<CFDataRef>::adopt(CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()),
                                              static_cast<CFIndex>(bytes.size())));
}

bool isSmallFile(const std::string& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return !error && size <= kMaxFileBytes && fs::path(path).is_absolute();
}

CFRef<CGImageSourceRef> openFile(const std::string& path) {
  if (!isSmallFile(path)) return {};
  const auto url = CFRef<CFURLRef>::adopt(CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), false));
  return url ? CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithURL(url.get(), nullptr))
             : CFRef<CGImageSourceRef>();
}

CFRef<CGImageSourceRef> openRequested(const PictureRequest& request) {
  switch (request.source) {
    case Source::bytes: {
      const auto data = makeData(request.content);
      return data ? CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithData(data.get(), nullptr))
                  : CFRef<CGImageSourceRef>();
    }
    case Source::imageFile:
    case Source::siteFile:
      return openFile(request.content);
    case Source::themeIcon:
      break;
  }
  return {};
}

/// As the file states it, before anything is decoded.
PictureSize sizeOf(CGImageSourceRef source, std::size_t index) {
  const auto properties = CFRef<CFDictionaryRef>::adopt(CGImageSourceCopyPropertiesAtIndex(source, index, nullptr));
  const PropertyList list = propertyListOf(properties.get());
  return {integerOf<int>(list.find(textOf(kCGImagePropertyPixelWidth))).value_or(0),
          integerOf<int>(list.find(textOf(kCGImagePropertyPixelHeight))).value_or(0)};
}

/// Turned as the file says, reduced to `side` pixels while it is read, and never enlarged.
Image readReduced(CGImageSourceRef source, std::size_t index, int side) {
  const auto number = CFRef<CFNumberRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &side));
  const void* keys[] = {kCGImageSourceCreateThumbnailFromImageAlways, kCGImageSourceCreateThumbnailWithTransform,
                        kCGImageSourceThumbnailMaxPixelSize};
  const void* values[] = {kCFBooleanTrue, kCFBooleanTrue, number.get()};
  const auto options = CFRef<CFDictionaryRef>::adopt(CFDictionaryCreate(kCFAllocatorDefault, keys, values,
                                                                        std::size(keys), &kCFTypeDictionaryKeyCallBacks,
                                                                        &kCFTypeDictionaryValueCallBacks));
  return Image::adopt(CGImageSourceCreateThumbnailAtIndex(source, index, options.get()));
}

Image readPicture(const PictureRequest& request) {
  if (request.source == Source::imageFile && isSmallFile(request.content)) {
    if (Image drawing = readDrawing(request.content, request.side)) return drawing;
  }
  const auto source = openRequested(request);
  if (!source) return {};
  const int maxSide = request.source == Source::bytes ? PictureDecoder::kMaxSide : kMaxFileSide;
  const std::size_t count = std::min<std::size_t>(CGImageSourceGetCount(source.get()), PictureDecoder::kMaxPictures);
  std::vector<PictureSize> sizes;
  for (std::size_t i = 0; i < count; ++i) sizes.push_back(sizeOf(source.get(), i));
  const auto best = bestPicture(sizes, request.side, maxSide);
  return best ? readReduced(source.get(), *best, request.side) : Image();
}

PictureSize sizeOf(const Image& image) {
  return {static_cast<int>(CGImageGetWidth(image.get())), static_cast<int>(CGImageGetHeight(image.get()))};
}

/// A canvas over `pixels`, which it fills with transparency.
CFRef<CGContextRef> makeCanvas(std::string& pixels, PictureSize size) {
  const auto width = static_cast<std::size_t>(size.width);
  const auto height = static_cast<std::size_t>(size.height);
  pixels.assign(width * height * kBytesPerPixel, '\0');
  const auto colours = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  auto canvas = CFRef<CGContextRef>::adopt(CGBitmapContextCreate(pixels.data(), width, height, kBitsPerComponent,
                                                                 width * kBytesPerPixel, colours.get(), kPixelFormat));
  if (canvas) CGContextSetInterpolationQuality(canvas.get(), kCGInterpolationHigh);
  return canvas;
}

CGRect rectOf(CGPoint origin, PictureSize size) {
  return {origin, {static_cast<CGFloat>(size.width), static_cast<CGFloat>(size.height)}};
}

PictureResult drawFitted(const Image& image, int side) {
  const PictureSize size = fittedSize(sizeOf(image), side);
  PictureResult result{PictureResult::Outcome::decoded, size.width, size.height, {}};
  const auto canvas = makeCanvas(result.bytes, size);
  if (!canvas) return {};
  CGContextDrawImage(canvas.get(), rectOf({0, 0}, size), image.get());
  return result;
}

PictureResult drawTile(const Image& image, int side) {
  PictureResult result{PictureResult::Outcome::decoded, side, side, {}};
  const auto canvas = makeCanvas(result.bytes, {side, side});
  if (!canvas) return {};
  const auto shape = CFRef<CGPathRef>::adopt(
      CGPathCreateWithRoundedRect(rectOf({0, 0}, {side, side}), kTileCorner * side, kTileCorner * side, nullptr));
  CGContextAddPath(canvas.get(), shape.get());
  CGContextSetRGBFillColor(canvas.get(), kTileGrey, kTileGrey, kTileGrey, 1);
  CGContextFillPath(canvas.get());
  const PictureSize size = fittedSize(sizeOf(image), static_cast<int>(side * kTilePicture));
  CGContextDrawImage(canvas.get(), rectOf({(side - size.width) / 2.0, (side - size.height) / 2.0}, size), image.get());
  return result;
}

PictureResult packPng(const Image& image) {
  const auto data = CFRef<CFMutableDataRef>::adopt(CFDataCreateMutable(kCFAllocatorDefault, 0));
  const auto destination = CFRef<CGImageDestinationRef>::adopt(
      CGImageDestinationCreateWithData(data.get(), CFSTR("public.png"), 1, nullptr));
  if (!destination) return {};
  CGImageDestinationAddImage(destination.get(), image.get(), nullptr);
  if (!CGImageDestinationFinalize(destination.get())) return {};
  const PictureSize size = sizeOf(image);
  return {PictureResult::Outcome::decoded, size.width, size.height,
          std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(data.get())),
                      static_cast<std::size_t>(CFDataGetLength(data.get())))};
}

}  // namespace

PictureResult decodePicture(const PictureRequest& request) {
  const Image image = readPicture(request);
  if (!image) return {};
  switch (request.source) {
    case Source::bytes:
      return packPng(image);
    case Source::siteFile:
      return drawTile(image, request.side);
    case Source::imageFile:
    case Source::themeIcon:
      break;
  }
  return drawFitted(image, request.side);
}

}  // namespace rondora::macos

#include "platform/macos/applications/appkit_application_icons.h"

#include <AppKit/AppKit.h>

#include <algorithm>

#include "platform/macos/conversions/straight_pixels.h"
#include "platform/macos/foundation/cf_ref.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

/// Twice the largest icon of a ring on a display of twice the density.
constexpr int kSide = 256;
constexpr std::size_t kBitsPerComponent = 8;
/// Premultiplied 0xAARRGGBB.
constexpr CGBitmapInfo kPixelFormat =
    static_cast<CGBitmapInfo>(kCGImageAlphaPremultipliedFirst) | static_cast<CGBitmapInfo>(kCGBitmapByteOrder32Little);

std::optional<ApplicationIconSource> sourceOf(NSImage* icon) {
  CGRect square = {{0, 0}, {kSide, kSide}};
  const CGImageRef image = [icon CGImageForProposedRect:&square context:nil hints:nil];
  if (image == nullptr) return std::nullopt;
  ApplicationIconSource source;
  source.pixelWidth = kSide;
  source.pixelHeight = kSide;
  source.pixels.resize(static_cast<std::size_t>(kSide) * kSide);
  const auto colors = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  const auto bitmap = CFRef<CGContextRef>::adopt(
      CGBitmapContextCreate(source.pixels.data(), kSide, kSide, kBitsPerComponent,
                            kSide * sizeof(source.pixels.front()), colors.get(), kPixelFormat));
  if (!bitmap) return std::nullopt;
  CGContextDrawImage(bitmap.get(), {{0, 0}, {kSide, kSide}}, image);
  std::transform(source.pixels.begin(), source.pixels.end(), source.pixels.begin(), straightPixel);
  return source;
}

}  // namespace

std::optional<ApplicationIconSource> AppKitApplicationIcons::iconSource(std::string_view bundleIdentifier) const {
  NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
  NSString* path = [workspace URLForApplicationWithBundleIdentifier:nsString(bundleIdentifier)].path;
  return path == nil ? std::nullopt : sourceOf([workspace iconForFile:path]);
}

std::optional<ApplicationIconSource> AppKitApplicationIcons::windowIconSource(std::string_view bundleIdentifier) const {
  NSRunningApplication* application =
      [NSRunningApplication runningApplicationsWithBundleIdentifier:nsString(bundleIdentifier)].firstObject;
  return application == nil ? std::nullopt : sourceOf(application.icon);
}

}  // namespace rondora::macos

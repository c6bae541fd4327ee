#include "ui/appkit/painting/symbol_images.h"

#include <AppKit/AppKit.h>

#include <algorithm>

#include "model/symbol_name.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::appkit {
namespace {

NSImage* findSymbol(std::string_view name) {
  for (const std::string& candidate : symbolCandidates(name)) {
    NSImage* symbol = [NSImage imageWithSystemSymbolName:macos::nsString(candidate) accessibilityDescription:nil];
    if (symbol != nil) return symbol;
  }
  return nil;
}

/// In the middle of a square, with the symbol's proportions.
CGRect placeOf(NSSize size, double side) {
  const double scale = side / std::max({size.width, size.height, 1.0});
  const CGSize fitted = {size.width * scale, size.height * scale};
  return {{(side - fitted.width) / 2, (side - fitted.height) / 2}, fitted};
}

}  // namespace

Image symbolImage(std::string_view name, int side, Color tint) {
  NSImageSymbolConfiguration* large = [NSImageSymbolConfiguration configurationWithPointSize:side
                                                                                      weight:NSFontWeightRegular];
  NSImage* symbol = [findSymbol(name) imageWithSymbolConfiguration:large];
  if (symbol == nil) return {};
  const CGRect place = placeOf(symbol.size, side);
  CGRect proposed = {{0, 0}, place.size};
  const Image drawn = Image::share([symbol CGImageForProposedRect:&proposed context:nil hints:nil]);
  Bitmap bitmap(side, side);
  drawImage(bitmap.context(), drawn, place);
  CGContextSetBlendMode(bitmap.context(), kCGBlendModeSourceIn);
  CGContextSetRGBFillColor(bitmap.context(), tint.red, tint.green, tint.blue, tint.alpha);
  CGContextFillRect(bitmap.context(), toCGRect(bitmap.bounds()));
  return bitmap.image();
}

}  // namespace rondora::appkit

#include "platform/macos/pictures/vector_drawings.h"

#include <AppKit/AppKit.h>

#include <algorithm>
#include <filesystem>

#include "base/unicode.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {

CFRef<CGImageRef> readDrawing(const std::string& path, int side) {
  if (lowerCased(std::filesystem::path(path).extension().native()) != ".svg") return {};
  NSImage* drawing = [[NSImage alloc] initWithContentsOfFile:nsString(path)];
  const NSSize size = drawing.size;
  if (size.width <= 0 || size.height <= 0) return {};
  const double scale = side / std::max(size.width, size.height);
  NSRect place = {{0, 0}, {size.width * scale, size.height * scale}};
  return CFRef<CGImageRef>::share([drawing CGImageForProposedRect:&place context:nil hints:nil]);
}

}  // namespace rondora::macos

#include "platform/macos/events/screen_points.h"

#include <AppKit/AppKit.h>

#include "platform/macos/conversions/screen_coordinates.h"

namespace rondora::macos {
namespace {

double firstScreenHeight() { return NSScreen.screens.firstObject.frame.size.height; }

}  // namespace

Point portPoint(NSPoint point) { return flipped(Point{point.x, point.y}, firstScreenHeight()); }

Rect portRect(NSRect rect) {
  return flipped(Rect{{rect.origin.x, rect.origin.y}, {rect.size.width, rect.size.height}}, firstScreenHeight());
}

NSRect screenRect(const Rect& rect) {
  const Rect result = flipped(rect, firstScreenHeight());
  return {{result.left(), result.top()}, {result.size.width, result.size.height}};
}

double pixelsPerPointAt(Point point) {
  for (NSScreen* screen in NSScreen.screens) {
    if (portRect(screen.frame).contains(point)) return screen.backingScaleFactor;
  }
  NSScreen* main = NSScreen.mainScreen;
  return main == nil ? 1 : main.backingScaleFactor;
}

}  // namespace rondora::macos

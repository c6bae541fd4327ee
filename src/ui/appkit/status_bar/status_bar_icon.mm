#include "ui/appkit/status_bar/status_bar_icon.h"

namespace rondora::appkit {
namespace {

// Points, in a square with the origin at its lower left corner; the proportions are those of the program's icon.
constexpr CGFloat kSide = 18;
constexpr CGFloat kRingRadius = 6.4;
constexpr CGFloat kRingWidth = 3.2;
constexpr CGFloat kHubRadius = 1.7;
constexpr CGFloat kPointerWidth = 1.2;
/// The pointer's end, towards the first sector's neighbour.
constexpr NSPoint kPointerEnd{11.4, 13.2};
// Degrees.
constexpr CGFloat kSector = 60;
constexpr CGFloat kGap = 12;

void drawRing(NSPoint center) {
  for (CGFloat start = 0; start < 360; start += kSector) {
    NSBezierPath* sector = [NSBezierPath bezierPath];
    sector.lineWidth = kRingWidth;
    [sector appendBezierPathWithArcWithCenter:center
                                       radius:kRingRadius
                                   startAngle:start + kGap / 2 - kSector / 2
                                     endAngle:start - kGap / 2 + kSector / 2];
    [sector stroke];
  }
}

void drawHub(NSPoint center) {
  const NSRect hub{{center.x - kHubRadius, center.y - kHubRadius}, {2 * kHubRadius, 2 * kHubRadius}};
  [[NSBezierPath bezierPathWithOvalInRect:hub] fill];
  NSBezierPath* pointer = [NSBezierPath bezierPath];
  pointer.lineWidth = kPointerWidth;
  [pointer moveToPoint:center];
  [pointer lineToPoint:kPointerEnd];
  [pointer stroke];
}

}  // namespace

NSImage* makeStatusBarIcon() {
  NSImage* image = [NSImage imageWithSize:NSSize{kSide, kSide}
                                  flipped:NO
                           drawingHandler:^BOOL(NSRect area) {
                             const NSPoint center{area.size.width / 2, area.size.height / 2};
                             [NSColor.blackColor set];
                             drawRing(center);
                             drawHub(center);
                             return YES;
                           }];
  [image setTemplate:YES];
  return image;
}

}  // namespace rondora::appkit

#include "ui/appkit/overlay/tracking_view.h"

#include <cstddef>
#include <cstdint>

#include "base/pixel_rect.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/appkit/painting/core_graphics_shapes.h"

namespace {

using rondora::PixelRect;
using rondora::appkit::ContextState;
using rondora::appkit::drawImage;
using rondora::appkit::makeImage;
using rondora::appkit::toPixelRect;

/// Moves, whichever application is active. It brings no requests for the cursor, so there is a second area for these.
constexpr NSTrackingAreaOptions kMoves = static_cast<NSTrackingAreaOptions>(NSTrackingMouseEnteredAndExited) |
                                         static_cast<NSTrackingAreaOptions>(NSTrackingMouseMoved) |
                                         static_cast<NSTrackingAreaOptions>(NSTrackingActiveAlways) |
                                         static_cast<NSTrackingAreaOptions>(NSTrackingInVisibleRect);
constexpr NSTrackingAreaOptions kCursor = static_cast<NSTrackingAreaOptions>(NSTrackingCursorUpdate) |
                                          static_cast<NSTrackingAreaOptions>(NSTrackingActiveInKeyWindow) |
                                          static_cast<NSTrackingAreaOptions>(NSTrackingInVisibleRect);

}  // namespace

// A report may end the panel, so it comes last.
@implementation RondoraTrackingView {
  rondora::OverlayPanelSink* sink_;
  rondora::PixelBuffer pixels_;
}

- (void)setSink:(rondora::OverlayPanelSink*)sink {
  sink_ = sink;
}

- (void)setPixels:(rondora::PixelBuffer)pixels {
  pixels_ = pixels;
}

- (rondora::Point)locationOf:(NSEvent*)event {
  const NSPoint location = [self convertPoint:event.locationInWindow fromView:nil];
  return {location.x, location.y};
}

- (BOOL)isFlipped {
  return YES;
}

- (BOOL)acceptsFirstResponder {
  return YES;
}

- (BOOL)acceptsFirstMouse:(NSEvent*)__unused event {
  return YES;
}

- (void)updateTrackingAreas {
  [super updateTrackingAreas];
  for (NSTrackingArea* area in self.trackingAreas) [self removeTrackingArea:area];
  for (const NSTrackingAreaOptions options : {kMoves, kCursor}) {
    [self addTrackingArea:[[NSTrackingArea alloc] initWithRect:self.bounds options:options owner:self userInfo:nil]];
  }
}

- (void)mouseMoved:(NSEvent*)event {
  if (sink_ != nullptr) sink_->pointerMoved([self locationOf:event]);
}

- (void)mouseEntered:(NSEvent*)__unused event {
  if (sink_ != nullptr) sink_->pointerEntered();
}

- (void)mouseExited:(NSEvent*)__unused event {
  if (sink_ != nullptr) sink_->pointerExited();
}

- (void)mouseDown:(NSEvent*)event {
  if (sink_ != nullptr) sink_->mouseDown([self locationOf:event]);
}

// The cursor stays as the last move has set it; the system would show the arrow.
- (void)cursorUpdate:(NSEvent*)__unused event {
}

// The system would beep at a key that no monitor consumed.
- (void)keyDown:(NSEvent*)__unused event {
}

- (void)drawRect:(NSRect)dirtyRect {
  const double pixelsPerPoint = pixels_.width / self.bounds.size.width;
  // Whole rows: an image of a part would read a whole row beyond its last pixels. The system clips to what is dirty.
  const PixelRect dirty = intersection(
      toPixelRect({{0, dirtyRect.origin.y}, {self.bounds.size.width, dirtyRect.size.height}}, pixelsPerPoint),
      {0, 0, pixels_.width, pixels_.height});
  if (dirty.isEmpty()) return;
  std::uint32_t* const first = pixels_.pixels + static_cast<std::ptrdiff_t>(dirty.y) * pixels_.stride;
  CGContextRef context = NSGraphicsContext.currentContext.CGContext;
  const ContextState state(context);
  CGContextSetBlendMode(context, kCGBlendModeCopy);
  drawImage(context, makeImage({first, dirty.width, dirty.height, pixels_.stride}),
            {{0, dirty.y / pixelsPerPoint}, {dirty.width / pixelsPerPoint, dirty.height / pixelsPerPoint}});
}

@end

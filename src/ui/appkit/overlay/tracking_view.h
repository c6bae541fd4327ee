#pragma once

#include <AppKit/AppKit.h>

#include "platform/overlay_panel.h"
#include "platform/picture_rasterizer.h"

/// Shows pixels and reports the pointer, in points from its top left corner.
@interface RondoraTrackingView : NSView

/// Null ends the reports.
- (void)setSink:(rondora::OverlayPanelSink*)sink;
/// Borrowed until others are set; the view fills its bounds with them. They may change; `setNeedsDisplayInRect:` has
/// them read again.
- (void)setPixels:(rondora::PixelBuffer)pixels;

@end

#pragma once

#include <AppKit/AppKit.h>

/// A window of a page with a foot below it, which Escape closes. Where the screen is too small for it, the page
/// scrolls.
@interface RondoraPageWindow : NSWindow

- (instancetype)initWithPage:(NSView*)page foot:(NSView*)foot;
/// Gives the window the size that its contents need now; its upper edge stays.
- (void)fitContents;

@end

// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsview.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSAccessibility.h>
#include <AppKit/NSLayoutConstraint.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSTrackingArea.h>
#include <AppKit/NSUserInterfaceLayout.h>

@class NSWindow;

@interface NSView : NSResponder <NSAccessibility>
@property(readonly, assign) NSWindow* window;
@property(copy) NSArray<NSView*>* subviews;
@property(getter=isHidden) BOOL hidden;
@property(copy) NSString* toolTip;
@property NSUserInterfaceLayoutDirection userInterfaceLayoutDirection;
@property BOOL translatesAutoresizingMaskIntoConstraints;
@property(readonly) NSSize fittingSize;
@property(readonly, strong) NSLayoutXAxisAnchor* leadingAnchor;
@property(readonly, strong) NSLayoutXAxisAnchor* trailingAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* topAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor* bottomAnchor;
@property(readonly, strong) NSLayoutDimension* widthAnchor;
@property(readonly, strong) NSLayoutDimension* heightAnchor;
@property NSRect bounds;
@property BOOL needsDisplay;
@property(getter=isFlipped, readonly) BOOL flipped;
@property(readonly, copy) NSArray<NSTrackingArea*>* trackingAreas;
- (instancetype)initWithFrame:(NSRect)frameRect;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView*)view;
- (void)addTrackingArea:(NSTrackingArea*)trackingArea;
- (void)removeTrackingArea:(NSTrackingArea*)trackingArea;
- (void)updateTrackingAreas;
- (BOOL)acceptsFirstMouse:(NSEvent*)event;
- (void)setNeedsDisplayInRect:(NSRect)invalidRect;
- (void)displayIfNeeded;
- (BOOL)scrollRectToVisible:(NSRect)rect;
- (void)drawRect:(NSRect)dirtyRect;
@end

// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nswindow.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSAppearance.h>
#include <AppKit/NSColor.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSScreen.h>
#include <AppKit/NSView.h>

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
  NSWindowStyleMaskBorderless = 0,
  NSWindowStyleMaskTitled = 1 << 0,
  NSWindowStyleMaskClosable = 1 << 1,
  NSWindowStyleMaskNonactivatingPanel = 1 << 7
};
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
  NSWindowCollectionBehaviorMoveToActiveSpace = 1 << 1,
  NSWindowCollectionBehaviorTransient = 1 << 3,
  NSWindowCollectionBehaviorIgnoresCycle = 1 << 6,
  NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8
};
typedef NS_ENUM(NSInteger, NSWindowAnimationBehavior) {
  NSWindowAnimationBehaviorDefault = 0,
  NSWindowAnimationBehaviorNone = 2
};
typedef NSInteger NSWindowLevel;
typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
typedef NSInteger NSModalResponse;

@protocol NSWindowDelegate <NSObject>
@optional
- (void)windowWillClose:(NSNotification*)notification;
@end

@interface NSWindow : NSResponder <NSAccessibility>
@property(copy) NSString* title;
@property(weak) id<NSWindowDelegate> delegate;
@property(strong) NSView* contentView;
@property(weak) NSView* initialFirstResponder;
@property BOOL autorecalculatesKeyViewLoop;
@property(readonly, strong) NSScreen* screen;
@property(readonly) NSRect frame;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property NSWindowAnimationBehavior animationBehavior;
@property BOOL hasShadow;
@property(getter=isOpaque) BOOL opaque;
@property(copy) NSColor* backgroundColor;
@property BOOL hidesOnDeactivate;
@property BOOL canHide;
@property BOOL ignoresMouseEvents;
@property(strong) NSAppearance* appearance;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly) BOOL canBecomeMainWindow;
@property(getter=isVisible, readonly) BOOL visible;
@property(readonly) NSPoint mouseLocationOutsideOfEventStream;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag;
- (NSRect)frameRectForContentRect:(NSRect)contentRect;
- (void)center;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)close;
- (void)performClose:(id)sender;
- (void)setFrame:(NSRect)frameRect display:(BOOL)flag;
- (void)makeKeyWindow;
- (void)resignKeyWindow;
- (BOOL)makeFirstResponder:(NSResponder*)responder;
- (void)orderFrontRegardless;
- (void)orderOut:(id)sender;
- (void)displayIfNeeded;
- (void)invalidateShadow;
@end

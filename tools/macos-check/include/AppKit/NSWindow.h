// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nswindow.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSResponder.h>
#include <AppKit/NSScreen.h>
#include <AppKit/NSView.h>

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
  NSWindowStyleMaskTitled = 1 << 0,
  NSWindowStyleMaskClosable = 1 << 1
};
typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
typedef NSInteger NSModalResponse;

@protocol NSWindowDelegate <NSObject>
@optional
- (void)windowWillClose:(NSNotification*)notification;
@end

@interface NSWindow : NSResponder
@property(copy) NSString* title;
@property(weak) id<NSWindowDelegate> delegate;
@property(strong) NSView* contentView;
@property(readonly, strong) NSScreen* screen;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag;
- (void)setContentSize:(NSSize)size;
- (void)center;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)orderFront:(id)sender;
- (void)close;
@end

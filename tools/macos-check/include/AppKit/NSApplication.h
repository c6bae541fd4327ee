// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsapplication.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSImage.h>
#include <AppKit/NSMenu.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSRunningApplication.h>
#include <AppKit/NSUserInterfaceLayout.h>
#include <AppKit/NSWindow.h>
#include <Foundation/Foundation.h>

@protocol NSApplicationDelegate;

@interface NSApplication : NSResponder
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(weak) id<NSApplicationDelegate> delegate;
@property(strong) NSMenu* mainMenu;
@property(readonly, weak) NSWindow* keyWindow;
@property(strong) NSImage* applicationIconImage;
@property(getter=isActive, readonly) BOOL active;
@property(readonly, copy) NSArray<NSWindow*>* windows;
@property(readonly) NSUserInterfaceLayoutDirection userInterfaceLayoutDirection;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
- (void)activateIgnoringOtherApps:(BOOL)flag;
- (void)run;
- (void)terminate:(id)sender;
- (id)targetForAction:(SEL)action;
- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender;
@end

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
- (void)applicationWillTerminate:(NSNotification*)notification;
- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)sender;
- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)flag;
@end

FOUNDATION_EXPORT NSNotificationName NSApplicationDidBecomeActiveNotification;
FOUNDATION_EXPORT NSNotificationName NSApplicationDidChangeScreenParametersNotification;
FOUNDATION_EXPORT NSNotificationName NSApplicationDidResignActiveNotification;

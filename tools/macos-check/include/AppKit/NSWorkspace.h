// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nsworkspace.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSRunningApplication.h>
#include <Foundation/Foundation.h>

@interface NSWorkspaceOpenConfiguration : NSObject <NSCopying>
+ (instancetype)configuration;
@property BOOL activates;
@property BOOL createsNewApplicationInstance;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@property(readonly, strong) NSRunningApplication* frontmostApplication;
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@property(readonly, getter=isVoiceOverEnabled) BOOL voiceOverEnabled;
- (BOOL)openURL:(NSURL*)url;
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs;
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (NSImage*)iconForFile:(NSString*)fullPath;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication* app, NSError* error))completionHandler;
@end

FOUNDATION_EXPORT NSNotificationName NSWorkspaceDidActivateApplicationNotification;
FOUNDATION_EXPORT NSString* const NSWorkspaceApplicationKey;
FOUNDATION_EXPORT NSNotificationName NSWorkspaceWillSleepNotification;
FOUNDATION_EXPORT NSNotificationName NSWorkspaceDidWakeNotification;
FOUNDATION_EXPORT NSNotificationName NSWorkspaceScreensDidSleepNotification;
FOUNDATION_EXPORT NSNotificationName NSWorkspaceSessionDidResignActiveNotification;

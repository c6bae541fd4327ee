// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nssavepanel.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <AppKit/NSPanel.h>

@class UTType;

// NSModalResponse; NSSavePanel, NSOpenPanel
static const NSModalResponse NSModalResponseOK = 1;

@interface NSSavePanel : NSPanel
@property(readonly, copy) NSURL* URL;
@property(copy) NSURL* directoryURL;
@property(copy) NSArray<UTType*>* allowedContentTypes;
@property(copy) NSString* message;
@property(copy) NSString* nameFieldStringValue;
+ (NSSavePanel*)savePanel;
- (void)beginSheetModalForWindow:(NSWindow*)window completionHandler:(void (^)(NSModalResponse result))handler;
- (void)beginWithCompletionHandler:(void (^)(NSModalResponse result))handler;
- (void)cancel:(id)sender;
@end

@interface NSOpenPanel : NSSavePanel
+ (NSOpenPanel*)openPanel;
@end

// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/appkit/nspasteboard.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NSString* NSPasteboardType;
FOUNDATION_EXPORT NSPasteboardType const NSPasteboardTypeString;

@interface NSPasteboard : NSObject
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
- (NSInteger)clearContents;
- (BOOL)setString:(NSString*)string forType:(NSPasteboardType)dataType;
- (BOOL)setData:(NSData*)data forType:(NSPasteboardType)dataType;
- (NSData*)dataForType:(NSPasteboardType)dataType;
@end

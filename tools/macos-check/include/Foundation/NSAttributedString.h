// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/foundation/nsattributedstring.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSDictionary.h>
#include <Foundation/NSString.h>

typedef NSString* NSAttributedStringKey;

@interface NSAttributedString : NSObject
- (instancetype)initWithString:(NSString*)str attributes:(NSDictionary<NSAttributedStringKey, id>*)attrs;
@end

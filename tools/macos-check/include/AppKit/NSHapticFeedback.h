// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/appkit/nshapticfeedbackmanager.
#pragma once

// Library: /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, NSHapticFeedbackPattern) {
  NSHapticFeedbackPatternGeneric = 0,
  NSHapticFeedbackPatternAlignment,
  NSHapticFeedbackPatternLevelChange
};
typedef NS_ENUM(NSUInteger, NSHapticFeedbackPerformanceTime) { NSHapticFeedbackPerformanceTimeDefault = 0 };

@protocol NSHapticFeedbackPerformer <NSObject>
- (void)performFeedbackPattern:(NSHapticFeedbackPattern)pattern
               performanceTime:(NSHapticFeedbackPerformanceTime)performanceTime;
@end

@interface NSHapticFeedbackManager : NSObject
@property(class, readonly, strong) id<NSHapticFeedbackPerformer> defaultPerformer;
@end

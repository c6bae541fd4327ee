// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/foundation/nsnotificationcenter.
#pragma once

// Library: /System/Library/Frameworks/Foundation.framework/Versions/C/Foundation

#include <Foundation/NSDictionary.h>
#include <Foundation/NSOperation.h>
#include <Foundation/NSString.h>

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@property(readonly, strong) id object;
@property(readonly, copy) NSDictionary* userInfo;
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)obj
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

// NSDistributedNotificationCenter
typedef NS_ENUM(NSUInteger, NSNotificationSuspensionBehavior) {
  NSNotificationSuspensionBehaviorDeliverImmediately = 4
};
@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSNotificationName)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)suspensionBehavior;
@end

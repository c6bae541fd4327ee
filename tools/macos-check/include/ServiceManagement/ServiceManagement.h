// Declarations for tools/check-macos, written by hand from
// developer.apple.com/documentation/servicemanagement/smappservice.
#pragma once

// Library: /System/Library/Frameworks/ServiceManagement.framework/Versions/A/ServiceManagement

#include <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
  SMAppServiceStatusNotRegistered,
  SMAppServiceStatusEnabled,
  SMAppServiceStatusRequiresApproval,
  SMAppServiceStatusNotFound
};

@interface SMAppService : NSObject
@property(class, readonly) SMAppService* mainAppService;
@property(readonly) SMAppServiceStatus status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

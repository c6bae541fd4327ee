#include "platform/macos/session/workspace_session_events.h"

#include <AppKit/AppKit.h>

#include <array>
#include <functional>
#include <memory>
#include <utility>

#include "platform/macos/foundation/notification_subscription.h"

@interface RondoraScreenLockObserver : NSObject
- (instancetype)initWithFunction:(std::function<void()>)function;
- (void)screenIsLocked:(NSNotification*)notification;
@end

@implementation RondoraScreenLockObserver {
  std::function<void()> function_;
}

- (instancetype)initWithFunction:(std::function<void()>)function {
  self = [super init];
  if (self != nil) function_ = std::move(function);
  return self;
}

- (void)screenIsLocked:(NSNotification*)__unused notification {
  // A copy: it may end the subscription that keeps this object.
  const auto function = function_;
  function();
}

@end

namespace rondora::macos {
namespace {

NSNotificationName const kScreenIsLocked = @"com.apple.screenIsLocked";

using Observer = std::shared_ptr<const std::function<void()>>;

Subscription observeEach(NSNotificationCenter* center, NSNotificationName name, const Observer& observer) {
  return observe(center, name, ^(NSNotification*) {
    (*observer)();
  });
}

/// Also while the program is not active, when the system would hold such notifications back.
Subscription observeScreenLock(const Observer& observer) {
  NSDistributedNotificationCenter* center = NSDistributedNotificationCenter.defaultCenter;
  RondoraScreenLockObserver* target =
      [[RondoraScreenLockObserver alloc] initWithFunction:[observer] { (*observer)(); }];
  [center addObserver:target
                selector:@selector(screenIsLocked:)
                    name:kScreenIsLocked
                  object:nil
      suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
  return Subscription([center, target] { [center removeObserver:target]; });
}

}  // namespace

Subscription WorkspaceSessionEvents::onLockOrSleep(std::function<void()> observer) {
  const auto shared = std::make_shared<const std::function<void()>>(std::move(observer));
  NSNotificationCenter* workspace = NSWorkspace.sharedWorkspace.notificationCenter;
  using Parts = std::array<Subscription, 4>;
  const auto parts = std::make_shared<Parts>(
      Parts{observeEach(workspace, NSWorkspaceWillSleepNotification, shared),
            observeEach(workspace, NSWorkspaceScreensDidSleepNotification, shared),
            observeEach(workspace, NSWorkspaceSessionDidResignActiveNotification, shared), observeScreenLock(shared)});
  return Subscription([parts] {
    for (Subscription& part : *parts) part.reset();
  });
}

Subscription WorkspaceSessionEvents::onDidWake(std::function<void()> observer) {
  return observeEach(NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceDidWakeNotification,
                     std::make_shared<const std::function<void()>>(std::move(observer)));
}

}  // namespace rondora::macos

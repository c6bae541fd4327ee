#include "platform/macos/session/workspace_session_events.h"

#include <AppKit/AppKit.h>

#include <array>
#include <memory>
#include <utility>

#include "platform/macos/foundation/notification_subscription.h"

namespace rondora::macos {
namespace {

NSNotificationName const kScreenIsLocked = @"com.apple.screenIsLocked";

using Observer = std::shared_ptr<const std::function<void()>>;

Subscription observeEach(NSNotificationCenter* center, NSNotificationName name, const Observer& observer) {
  return observe(center, name, ^(NSNotification*) {
    (*observer)();
  });
}

}  // namespace

Subscription WorkspaceSessionEvents::onLockOrSleep(std::function<void()> observer) {
  const auto shared = std::make_shared<const std::function<void()>>(std::move(observer));
  NSNotificationCenter* workspace = NSWorkspace.sharedWorkspace.notificationCenter;
  using Parts = std::array<Subscription, 4>;
  const auto parts = std::make_shared<Parts>(
      Parts{observeEach(workspace, NSWorkspaceWillSleepNotification, shared),
            observeEach(workspace, NSWorkspaceScreensDidSleepNotification, shared),
            observeEach(workspace, NSWorkspaceSessionDidResignActiveNotification, shared),
            observeEach(NSDistributedNotificationCenter.defaultCenter, kScreenIsLocked, shared)});
  return Subscription([parts] {
    for (Subscription& part : *parts) part.reset();
  });
}

Subscription WorkspaceSessionEvents::onDidWake(std::function<void()> observer) {
  return observeEach(NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceDidWakeNotification,
                     std::make_shared<const std::function<void()>>(std::move(observer)));
}

}  // namespace rondora::macos

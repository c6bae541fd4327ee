#pragma once

#include <optional>

#include "base/observable.h"
#include "base/weak_self.h"
#include "permissions/permissions_snapshot.h"
#include "platform/application_shell.h"
#include "platform/main_queue.h"
#include "platform/permission_service.h"

namespace rondora {

/// Publishes a current snapshot of the permissions: reads them when the program becomes active and when the system says
/// that they may have changed. On a system that does not say so it reads them periodically, more often while one is
/// missing. Main thread.
class PermissionsMonitor {
 public:
  static constexpr double kPendingInterval = 1.0;  // seconds
  static constexpr double kGrantedInterval = 5.0;  // seconds

  /// The news of the system must have paused for this long, so that a device that comes and goes changes nothing.
  static constexpr double kSettleTime = 0.5;  // seconds

  PermissionsMonitor(PermissionService& permissions, MainQueue& mainQueue, ApplicationShell& shell);

  /// Publishes changes only.
  CurrentValue<PermissionsSnapshot>& snapshot() { return snapshot_; }
  const CurrentValue<PermissionsSnapshot>& snapshot() const { return snapshot_; }
  /// Reads both permissions now.
  void refresh();

 private:
  void refreshOnceSettled();
  void scheduleTimer();

  const PermissionService& permissions_;
  MainQueue& mainQueue_;
  CurrentValue<PermissionsSnapshot> snapshot_;
  Subscription activationObserver_;
  /// Nothing when the system tells of no changes.
  std::optional<Subscription> news_;
  Subscription settling_;
  Subscription timer_;
  WeakSelf<PermissionsMonitor> weakSelf_{this};
};

}  // namespace rondora

#pragma once

#include "base/observable.h"
#include "base/weak_self.h"
#include "permissions/permissions_snapshot.h"
#include "platform/application_shell.h"
#include "platform/main_queue.h"
#include "platform/permission_service.h"

namespace rondora {

/// Publishes a current snapshot of the permissions: reads them when the program becomes active and periodically, more
/// often while one is missing. Main thread.
class PermissionsMonitor {
 public:
  static constexpr double kPendingInterval = 1.0;  // seconds
  static constexpr double kGrantedInterval = 5.0;  // seconds

  PermissionsMonitor(const PermissionService& permissions, MainQueue& mainQueue, ApplicationShell& shell);

  /// Publishes changes only.
  CurrentValue<PermissionsSnapshot>& snapshot() { return snapshot_; }
  const CurrentValue<PermissionsSnapshot>& snapshot() const { return snapshot_; }
  /// Reads both permissions now.
  void refresh();

 private:
  void scheduleTimer();

  const PermissionService& permissions_;
  MainQueue& mainQueue_;
  CurrentValue<PermissionsSnapshot> snapshot_;
  Subscription activationObserver_;
  Subscription timer_;
  WeakSelf<PermissionsMonitor> weakSelf_{this};
};

}  // namespace rondora

#pragma once

#include <string_view>

#include "platform/main_queue.h"
#include "platform/permission_service.h"
#include "platform/workspace.h"

namespace rondora {

/// The permissions of the program at one moment, and the requests for those that are missing. Main thread.
struct PermissionsSnapshot {
  bool accessibilityTrusted = false;
  bool inputMonitoringGranted = false;
  friend bool operator==(const PermissionsSnapshot&, const PermissionsSnapshot&) = default;

  bool allGranted() const { return accessibilityTrusted && inputMonitoringGranted; }

  static PermissionsSnapshot read(const PermissionService& permissions) {
    return {permissions.isProcessTrusted(), permissions.preflightListenEventAccess()};
  }

  /// All must outlive the delayed check of a request.
  struct Ports {
    PermissionService& permissions;
    Workspace& workspace;
    MainQueue& mainQueue;
  };
  /// From the system's own request to the check whether the pane must be opened, in seconds.
  static constexpr double kPaneDelay = 0.6;

  /// Shows the system's request unless the permission is granted already, and the pane of the settings if it is not
  /// granted after `kPaneDelay`.
  static void requestAccessibility(const Ports& ports);
  static void requestInputMonitoring(const Ports& ports);
  /// Opens the pane of the system's settings for privacy at that place, by its older address, else by its newer one.
  static void openSettingsPane(Workspace& workspace, std::string_view anchor);
};

}  // namespace rondora

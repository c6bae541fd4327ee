#pragma once

#include "platform/permission_service.h"

namespace rondora {

/// The permissions of the program at one moment.
struct PermissionsSnapshot {
  bool accessibilityTrusted = false;
  bool inputMonitoringGranted = false;
  friend bool operator==(const PermissionsSnapshot&, const PermissionsSnapshot&) = default;

  bool allGranted() const { return accessibilityTrusted && inputMonitoringGranted; }

  static PermissionsSnapshot read(const PermissionService& permissions) {
    return {permissions.isProcessTrusted(), permissions.preflightListenEventAccess()};
  }
};

}  // namespace rondora

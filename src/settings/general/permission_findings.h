#pragma once

#include "localization/localization_store.h"
#include "permissions/permissions_snapshot.h"
#include "platform/trackpads.h"
#include "settings/findings_watch.h"

namespace rondora {

/// What the findings about the permissions depend on besides the permissions.
struct PermissionFacts {
  /// See PermissionService::asksUser.
  bool asksUser = false;
  /// A menu opens with a tap.
  bool wantsTrackpad = false;
  TrackpadAccess trackpads = TrackpadAccess::none;
};

/// A finding for each permission that this system has, with a button that asks for it where the system does so, else
/// with what an administrator can do.
SessionFindings permissionFindings(const PermissionsSnapshot& permissions, const PermissionFacts& facts,
                                   const LocalizationStore& localization);

}  // namespace rondora

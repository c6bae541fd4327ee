#pragma once

#include "platform/permission_service.h"

namespace rondora::macos {

/// What the user permits in the privacy settings. The system does not tell of changes.
class PrivacyPermissions final : public PermissionService {
 public:
  bool asksUser() const override { return true; }
  bool isProcessTrusted() const override;
  void promptForTrust() override;
  bool preflightListenEventAccess() const override;
  void requestListenEventAccess() override;
  [[nodiscard]] std::optional<Subscription> onMayHaveChanged(std::function<void()> observer) override;
};

}  // namespace rondora::macos

#pragma once

#include "platform/permission_service.h"

namespace rondora::x11 {

/// X11 needs no permission for listening; synthetic input needs XTEST. Neither changes while a server runs.
class XTestPermissions final : public PermissionService {
 public:
  explicit XTestPermissions(bool hasXTest) : hasXTest_(hasXTest) {}

  bool isProcessTrusted() const override { return hasXTest_; }
  bool preflightListenEventAccess() const override { return true; }
  void promptForTrust() override {}
  void requestListenEventAccess() override {}
  std::optional<Subscription> onMayHaveChanged(std::function<void()> /*observer*/) override { return Subscription(); }

 private:
  const bool hasXTest_;
};

}  // namespace rondora::x11

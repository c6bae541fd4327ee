#pragma once

#include "platform/permission_service.h"

namespace rondora::x11 {

/// X11 needs no permission for listening; synthetic input needs XTEST.
class XTestPermissions final : public PermissionService {
 public:
  explicit XTestPermissions(bool hasXTest) : hasXTest_(hasXTest) {}

  bool isProcessTrusted() const override { return hasXTest_; }
  bool preflightListenEventAccess() const override { return true; }
  void requestListenEventAccess() override {}

 private:
  const bool hasXTest_;
};

}  // namespace rondora::x11

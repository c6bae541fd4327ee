#pragma once

namespace rondora {

/// Permissions that the user grants the program. Main thread.
class PermissionService {
 public:
  virtual ~PermissionService() = default;

  /// True when the program may send keys to other applications and control their windows. Any thread.
  virtual bool isProcessTrusted() const = 0;
  /// True when the program may listen to input devices.
  virtual bool preflightListenEventAccess() const = 0;
  virtual void requestListenEventAccess() = 0;
};

}  // namespace rondora

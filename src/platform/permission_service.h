#pragma once

namespace rondora {

/// What the user has allowed the program. Main thread.
class PermissionService {
 public:
  virtual ~PermissionService() = default;

  /// May send keys to other applications and drive their windows. Any thread.
  virtual bool isProcessTrusted() const = 0;
  /// May listen to input devices.
  virtual bool preflightListenEventAccess() const = 0;
  virtual void requestListenEventAccess() = 0;
};

}  // namespace rondora

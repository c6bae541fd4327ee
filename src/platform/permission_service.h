#pragma once

#include <functional>
#include <optional>

#include "base/observable.h"

namespace rondora {

/// Permissions that the user grants the program. Main thread.
class PermissionService {
 public:
  virtual ~PermissionService() = default;

  /// True on a system that asks the user for permissions and has pages of settings for them. On others an administrator
  /// grants them, and the requests below have no effect.
  virtual bool asksUser() const = 0;
  /// True when the program may send keys to other applications and control their windows. Any thread.
  virtual bool isProcessTrusted() const = 0;
  /// Shows the system's own request for that permission, on systems that have one.
  virtual void promptForTrust() = 0;
  /// True when the program may listen to input devices.
  virtual bool preflightListenEventAccess() const = 0;
  virtual void requestListenEventAccess() = 0;
  /// The observer is called when one of them may have changed. Nothing on systems that do not tell: the permissions
  /// must then be read periodically.
  [[nodiscard]] virtual std::optional<Subscription> onMayHaveChanged(std::function<void()> observer) = 0;
};

}  // namespace rondora

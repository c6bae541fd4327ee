#pragma once

#include "platform/login_item.h"

namespace rondora {

/// Switches the program's start at login on and off. Main thread.
class LaunchAtLoginService {
 public:
  explicit LaunchAtLoginService(LoginItem& item) : item_(item) {}

  /// The system's error when it failed; nothing changed then.
  [[nodiscard]] LoginItemError setOpenAtLogin(bool opens) { return opens ? item_.add() : item_.remove(); }
  bool opensAtLogin() const { return item_.isListed(); }

 private:
  LoginItem& item_;
};

}  // namespace rondora

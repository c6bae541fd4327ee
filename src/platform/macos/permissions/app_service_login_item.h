#pragma once

#include "platform/login_item.h"

namespace rondora::macos {

/// The program as a service of its own that starts at login.
class AppServiceLoginItem final : public LoginItem {
 public:
  LoginItemError add() override;
  LoginItemError remove() override;
  /// False also while the user has switched it off in the system's settings.
  bool isListed() const override;
};

}  // namespace rondora::macos

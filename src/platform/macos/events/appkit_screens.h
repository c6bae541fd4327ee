#pragma once

#include "platform/screens.h"

namespace rondora::macos {

class AppKitScreens final : public Screens {
 public:
  std::vector<Screen> all() const override;
  /// The one with the window that receives the keyboard.
  std::optional<Screen> main() const override;
  bool shareWindows() const override;
  [[nodiscard]] Subscription onParametersChanged(std::function<void()> observer) override;
};

}  // namespace rondora::macos

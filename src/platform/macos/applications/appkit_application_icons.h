#pragma once

#include "platform/application_icons.h"

namespace rondora::macos {

/// Icons as pixels: the system keeps them in formats of its own. Main thread.
class AppKitApplicationIcons final : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override;
  /// The icon that a running application shows in the Dock.
  std::optional<ApplicationIconSource> windowIconSource(std::string_view bundleIdentifier) const override;
};

}  // namespace rondora::macos

#pragma once

#include "platform/application_icons.h"
#include "platform/linux/application_catalogue.h"
#include "platform/linux/x11/windows/x11_client_windows.h"
#include "platform/workspace.h"

namespace rondora::x11 {

class X11ApplicationIcons final : public ApplicationIcons {
 public:
  /// Arguments must outlive the object.
  X11ApplicationIcons(const ApplicationCatalogue& catalogue, const X11ClientWindows& windows,
                      const Workspace& workspace)
      : catalogue_(catalogue), windows_(windows), workspace_(workspace) {}

  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override;
  std::optional<ApplicationIconSource> windowIconSource(std::string_view bundleIdentifier) const override;

 private:
  const ApplicationCatalogue& catalogue_;
  const X11ClientWindows& windows_;
  const Workspace& workspace_;
};

}  // namespace rondora::x11

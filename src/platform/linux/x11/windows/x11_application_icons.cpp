#include "platform/linux/x11/windows/x11_application_icons.h"

namespace rondora::x11 {

std::optional<ApplicationIconSource> X11ApplicationIcons::iconSource(std::string_view bundleIdentifier) const {
  return catalogue_.iconSource(catalogue_.resolve(bundleIdentifier));
}

std::optional<ApplicationIconSource> X11ApplicationIcons::windowIconSource(std::string_view bundleIdentifier) const {
  const std::string id = catalogue_.resolve(bundleIdentifier);
  for (const RunningApplication& application : workspace_.runningApplications(id)) {
    auto icon = windows_.icon(static_cast<xcb_window_t>(application.window));
    if (!icon) continue;
    ApplicationIconSource source;
    source.pixels = std::move(icon->pixels);
    source.pixelWidth = icon->width;
    source.pixelHeight = icon->height;
    return source;
  }
  return std::nullopt;
}

}  // namespace rondora::x11

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// Source of an application's icon; the first non-empty field counts.
struct ApplicationIconSource {
  /// A name in the user's icon theme.
  std::string themeName;
  /// An absolute path of an image file.
  std::string filePath;
  /// Non-premultiplied 0xAARRGGBB pixels, row by row, from the application's own window.
  std::vector<std::uint32_t> pixels;
  int pixelWidth = 0;
  int pixelHeight = 0;
};

class ApplicationIcons {
 public:
  virtual ~ApplicationIcons() = default;

  /// The icon that the application is installed with; nothing when there is none.
  virtual std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const = 0;
  /// The icon of a running application's window, for when the installed icon is missing or unreadable. May query the
  /// display server.
  virtual std::optional<ApplicationIconSource> windowIconSource(std::string_view bundleIdentifier) const = 0;
};

}  // namespace rondora

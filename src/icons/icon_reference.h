#pragma once

#include <string>
#include <string_view>

#include "base/display_list.h"

namespace rondora {

/// What an item's `icon` text stands for.
struct IconReference {
  IconKind kind = IconKind::none;
  /// The symbol's name, the emoji itself, the application's identifier or the absolute path.
  std::string name;
  friend bool operator==(const IconReference&, const IconReference&) = default;

  /// Every text stands for something: "" for no icon, "/…" for an image file, "app:<identifier>" for an application's
  /// icon, a text that begins with an emoji for that emoji alone, and whatever is left for a symbol of that name.
  static IconReference parse(std::string_view icon);

  /// The text that stands for the icon of an application.
  static std::string application(std::string_view bundleIdentifier);
};

}  // namespace rondora

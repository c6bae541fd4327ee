#pragma once

#include <string>
#include <string_view>

#include "base/display_list.h"
#include "model/pie_menu_item.h"

namespace rondora {

/// What an item's `icon` text stands for.
struct IconReference {
  IconKind kind = IconKind::none;
  /// The symbol's name, the emoji itself, the application's identifier, the absolute path or the site's origin.
  std::string name;
  friend bool operator==(const IconReference&, const IconReference&) = default;

  /// Every text stands for something: "" for no icon, "/…" for an image file, "app:<identifier>" for an application's
  /// icon, "favicon:<address or host>" for the picture of that web site, a text that begins with an emoji for that
  /// emoji alone, and whatever is left for a symbol of that name.
  static IconReference parse(std::string_view icon);
  /// As `parse`, but "favicon:" alone stands for the site of the address that the item opens.
  static IconReference of(const PieMenuItem& item);

  /// The text that stands for the icon of an application.
  static std::string application(std::string_view bundleIdentifier);
};

}  // namespace rondora

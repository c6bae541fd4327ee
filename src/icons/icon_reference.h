#pragma once

#include <string>
#include <string_view>

#include "base/display_list.h"
#include "model/pie_menu_item.h"

namespace rondora {

/// The meaning of an item's `icon` text.
struct IconReference {
  IconKind kind = IconKind::none;
  /// The symbol's name, the emoji itself, the application's identifier, the absolute path or the site's origin.
  std::string name;
  friend bool operator==(const IconReference&, const IconReference&) = default;

  /// Accepts every text: "" is no icon, "/…" an image file, "app:<identifier>" an application's icon, "favicon:<address
  /// or host>" the picture of that web site, a text that begins with an emoji that emoji alone, and any other text the
  /// symbol of that name.
  static IconReference parse(std::string_view icon);
  /// Like `parse`, but "favicon:" alone is the site of the address that the item opens.
  static IconReference of(const PieMenuItem& item);

  /// The `icon` text of an application's icon.
  static std::string application(std::string_view bundleIdentifier);
};

}  // namespace rondora

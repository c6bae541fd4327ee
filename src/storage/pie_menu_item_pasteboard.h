#pragma once

#include <optional>
#include <string_view>

#include "model/pie_menu_item.h"
#include "platform/pasteboard.h"
#include "platform/random_source.h"

namespace rondora {

/// Copies one item between menus through the general pasteboard. Main thread.
class PieMenuItemPasteboard {
 public:
  static constexpr std::string_view kType = "application/x-rondora.menu-item-v1";

  PieMenuItemPasteboard(Pasteboard& pasteboard, RandomSource& random) : pasteboard_(pasteboard), random_(random) {}

  /// Leaves the pasteboard unchanged if the item cannot be encoded.
  void copy(const PieMenuItem& item);
  std::optional<PieMenuItem> read() const;

 private:
  Pasteboard& pasteboard_;
  RandomSource& random_;
};

}  // namespace rondora

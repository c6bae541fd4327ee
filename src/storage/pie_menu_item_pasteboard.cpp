#include "storage/pie_menu_item_pasteboard.h"

#include "storage/configuration_json.h"

namespace rondora {

void PieMenuItemPasteboard::copy(const PieMenuItem& item) {
  const auto encoded = encodeMenuItem(item);
  const auto* text = std::get_if<std::string>(&encoded);
  if (text == nullptr) return;
  pasteboard_.clearContents();
  pasteboard_.setData(kType, *text);
}

std::optional<PieMenuItem> PieMenuItemPasteboard::read() const {
  const auto bytes = pasteboard_.data(kType);
  if (!bytes) return std::nullopt;
  auto decoded = decodeMenuItem(*bytes, random_);
  auto* item = std::get_if<PieMenuItem>(&decoded);
  return item == nullptr ? std::nullopt : std::optional(std::move(*item));
}

}  // namespace rondora

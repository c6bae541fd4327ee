#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/pie_menu_item.h"

namespace rondora {

/// The label of a sector without a label of its own; none from position 36 on.
std::optional<std::string_view> defaultShortcutLabel(std::size_t position);

/// One label or none an item, in item order: the item's own as typed, else the default one of its position unless
/// another item took it.
std::vector<std::optional<std::string>> resolvedShortcutLabels(const std::vector<PieMenuItem>& items);

/// The first label that equals the typed text without regard to case and surrounding blanks.
std::optional<std::size_t> itemIndex(std::string_view forPressedKey,
                                     const std::vector<std::optional<std::string>>& resolvedLabels);

/// The position that a physical key (virtual key code) stands for, whatever the layout types with it.
std::optional<std::size_t> quickSelectIndexByKeyCode(std::uint16_t keyCode);

/// Resolved labels, made ready so that matching a key allocates nothing.
class ShortcutLabels {
 public:
  ShortcutLabels() = default;
  explicit ShortcutLabels(std::vector<std::optional<std::string>> resolvedLabels);

  const std::vector<std::optional<std::string>>& labels() const { return labels_; }
  std::optional<std::size_t> indexForPressedKey(std::string_view text) const;
  /// The key's position, if there is a label at it.
  std::optional<std::size_t> indexForKeyCode(std::uint16_t keyCode) const;

 private:
  std::vector<std::optional<std::string>> labels_;
  std::vector<std::optional<std::string>> upperCased_;
  /// Of each upper-cased label, so that most labels are passed over without a look at them.
  std::string firstBytes_;
};

}  // namespace rondora

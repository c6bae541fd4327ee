#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/pie_menu_item.h"

namespace rondora {

/// The default label of a position; none from position 36 on.
std::optional<std::string_view> defaultShortcutLabel(std::size_t position);

/// At most one label per item, in item order: the item's own as typed, otherwise the default of its position unless
/// another item has it as its own.
std::vector<std::optional<std::string>> resolvedShortcutLabels(const std::vector<PieMenuItem>& items);

/// The first label that equals the typed text, ignoring case (full mapping) and surrounding blanks.
std::optional<std::size_t> itemIndex(std::string_view forPressedKey,
                                     const std::vector<std::optional<std::string>>& resolvedLabels);

/// The position that a physical key (virtual key code) stands for, independent of the layout.
std::optional<std::size_t> quickSelectIndexByKeyCode(std::uint16_t keyCode);

/// Resolved labels, prepared so that matching a key allocates nothing.
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
  /// First byte of each upper-cased label, to skip most labels quickly.
  std::string firstBytes_;
};

}  // namespace rondora

#include "pie/labels/quick_select.h"

#include <array>
#include <set>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr std::string_view kDefaultLabels = "0123456789QWERTYUIOPASDFGHJKLZXCVBNM";

constexpr std::int8_t kNoPosition = -1;
using PositionByKeyCode = std::array<std::int8_t, 128>;

constexpr PositionByKeyCode makePositionByKeyCode() {
  constexpr int kKeys[] = {29, 18, 19, 20, 21, 23, 22, 26, 28, 25,  // 0 … 9
                           12, 13, 14, 15, 17, 16, 32, 34, 31, 35,  // Q … P
                           0,  1,  2,  3,  5,  4,  38, 40, 37,      // A … L
                           6,  7,  8,  9,  11, 45, 46};             // Z … M
  constexpr int kKeypadDigits[] = {82, 83, 84, 85, 86, 87, 88, 89, 91, 92};
  PositionByKeyCode positions{};
  positions.fill(kNoPosition);
  std::int8_t position = 0;
  for (const int key : kKeys) positions[static_cast<std::size_t>(key)] = position++;
  position = 0;
  for (const int key : kKeypadDigits) positions[static_cast<std::size_t>(key)] = position++;
  return positions;
}

constexpr PositionByKeyCode kPositionByKeyCode = makePositionByKeyCode();

bool hasOwnLabel(const PieMenuItem& item) { return item.customShortcut && !item.customShortcut->empty(); }

std::vector<std::optional<std::string>> upperCasedLabels(const std::vector<std::optional<std::string>>& labels) {
  std::vector<std::optional<std::string>> result;
  result.reserve(labels.size());
  for (const auto& label : labels) result.push_back(label ? std::optional(upperCased(*label)) : std::nullopt);
  return result;
}

}  // namespace

std::optional<std::string_view> defaultShortcutLabel(std::size_t position) {
  if (position >= kDefaultLabels.size()) return std::nullopt;
  return kDefaultLabels.substr(position, 1);
}

std::vector<std::optional<std::string>> resolvedShortcutLabels(const std::vector<PieMenuItem>& items) {
  std::set<std::string, std::less<>> taken;
  for (const PieMenuItem& item : items) {
    if (hasOwnLabel(item)) taken.insert(upperCased(*item.customShortcut));
  }
  std::vector<std::optional<std::string>> labels(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (hasOwnLabel(items[i])) {
      labels[i] = items[i].customShortcut;
    } else if (const auto label = defaultShortcutLabel(i); label && !taken.contains(*label)) {
      labels[i] = std::string(*label);
    }
  }
  return labels;
}

std::optional<std::size_t> itemIndex(std::string_view forPressedKey,
                                     const std::vector<std::optional<std::string>>& resolvedLabels) {
  return ShortcutLabels(resolvedLabels).indexForPressedKey(forPressedKey);
}

std::optional<std::size_t> quickSelectIndexByKeyCode(std::uint16_t keyCode) {
  if (keyCode >= kPositionByKeyCode.size() || kPositionByKeyCode[keyCode] == kNoPosition) return std::nullopt;
  return static_cast<std::size_t>(kPositionByKeyCode[keyCode]);
}

ShortcutLabels::ShortcutLabels(std::vector<std::optional<std::string>> resolvedLabels)
    : labels_(std::move(resolvedLabels)), upperCased_(upperCasedLabels(labels_)) {
  for (const auto& label : upperCased_) firstBytes_ += label && !label->empty() ? label->front() : '\0';
}

std::optional<std::size_t> ShortcutLabels::indexForPressedKey(std::string_view text) const {
  const std::string typed = upperCased(trimmed(text));
  if (typed.empty()) return std::nullopt;
  const auto next = [&](std::size_t from) { return firstBytes_.find(typed.front(), from); };
  for (std::size_t at = next(0); at != std::string::npos; at = next(at + 1)) {
    if (upperCased_[at] == typed) return at;
  }
  return std::nullopt;
}

std::optional<std::size_t> ShortcutLabels::indexForKeyCode(std::uint16_t keyCode) const {
  const auto position = quickSelectIndexByKeyCode(keyCode);
  return position && *position < labels_.size() && labels_[*position] ? position : std::nullopt;
}

}  // namespace rondora

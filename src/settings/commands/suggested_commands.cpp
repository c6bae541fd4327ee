#include "settings/commands/suggested_commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "settings/commands/command_catalog.h"

namespace rondora {
namespace {

using Command = AppMenuCatalog::Command;
using Kind = AppSubMenuEntry::Kind;

constexpr std::size_t kMaxMenuCommands = 8;
constexpr std::array kPlacements = {Kind::tileLeft, Kind::tileRight, Kind::fillScreen, Kind::toggleFullScreen};

constexpr std::int64_t kShift = 1;
constexpr std::int64_t kCommandAlone = 0;
constexpr std::int64_t kControlAlone = 4 + 8;

struct Key {
  std::string_view character;
  bool hasShift = false;
};

/// The keys on which applications agree, most used first.
constexpr auto kCommonKeys = std::to_array<Key>({
    {"T", false}, {"N", false}, {"S", false}, {"O", false}, {"F", false}, {"Z", false}, {"R", false},
    {"Z", true},  {"Y", false}, {"P", false}, {"+", false}, {"-", false}, {"W", false}, {"N", true},
    {"S", true},  {"T", true},  {"G", false}, {"H", false}, {"D", false}, {"L", false}, {",", false},
});
/// Quit, and the clipboard with all that is selected for it.
constexpr auto kLeftOutKeys =
    std::to_array<Key>({{"Q", false}, {"X", false}, {"C", false}, {"V", false}, {"A", false}});

template <std::size_t count>
std::size_t placeAmong(const std::array<Key, count>& keys, const MenuShortcut& shortcut) {
  const std::int64_t base = shortcut.modifiers & ~kShift;
  if (base != kCommandAlone && base != kControlAlone) return count;
  const bool hasShift = (shortcut.modifiers & kShift) != 0;
  const auto* found = std::find_if(keys.begin(), keys.end(), [&](const Key& key) {
    return key.character == shortcut.character && key.hasShift == hasShift;
  });
  return static_cast<std::size_t>(found - keys.begin());
}

/// A command with its place in the listing and its rank; the lower, the better.
struct Candidate {
  std::size_t place = 0;
  std::size_t rank = 0;
};

/// The candidates of one menu of the menu bar, best first.
struct Menu {
  std::string_view title;
  std::vector<Candidate> candidates;
};

std::vector<Menu> candidatesByMenu(const std::vector<Command>& commands) {
  std::vector<Menu> menus;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const auto& shortcut = commands[i].shortcut;
    if (!shortcut || placeAmong(kLeftOutKeys, *shortcut) < kLeftOutKeys.size()) continue;
    const std::string& title = commands[i].path.front();
    auto menu = std::find_if(menus.begin(), menus.end(), [&title](const Menu& each) { return each.title == title; });
    if (menu == menus.end()) menu = menus.insert(menus.end(), Menu{title, {}});
    menu->candidates.push_back({i, placeAmong(kCommonKeys, *shortcut)});
  }
  for (Menu& menu : menus) {
    std::stable_sort(menu.candidates.begin(), menu.candidates.end(),
                     [](const Candidate& one, const Candidate& other) { return one.rank < other.rank; });
  }
  return menus;
}

/// Takes from each menu in turn, of those candidates that are common or of the others.
void take(const std::vector<Menu>& menus, bool common, std::vector<std::pair<std::size_t, std::size_t>>& taken) {
  bool isLeft = true;
  for (std::size_t round = 0; isLeft; ++round) {
    isLeft = false;
    for (std::size_t menu = 0; menu < menus.size(); ++menu) {
      const auto& candidates = menus[menu].candidates;
      const auto first = std::partition_point(candidates.begin(), candidates.end(), [common](const Candidate& each) {
        return !common && each.rank < kCommonKeys.size();
      });
      const auto index = static_cast<std::size_t>(first - candidates.begin()) + round;
      if (index >= candidates.size() || (common && candidates[index].rank >= kCommonKeys.size())) continue;
      if (taken.size() == kMaxMenuCommands) return;
      taken.emplace_back(menu, candidates[index].place);
      isLeft = true;
    }
  }
}

}  // namespace

std::vector<AppSubMenuEntry> suggestedCommands(const std::vector<Command>& commands) {
  const std::vector<Menu> menus = candidatesByMenu(commands);
  std::vector<std::pair<std::size_t, std::size_t>> taken;
  take(menus, true, taken);
  take(menus, false, taken);
  std::sort(taken.begin(), taken.end());
  std::vector<AppSubMenuEntry> entries;
  entries.reserve(taken.size() + kPlacements.size());
  for (const auto& [menu, place] : taken) entries.push_back(entryOf(commands[place]));
  if (entries.empty()) return entries;
  for (const Kind kind : kPlacements) entries.push_back(entryOf(kind));
  return entries;
}

}  // namespace rondora

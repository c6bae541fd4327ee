#include "app/menu_directory.h"

#include <algorithm>
#include <cstddef>

#include "base/unicode.h"

namespace rondora {
namespace {

bool isRegistered(const PieMenu& menu, const HotkeyManager& hotkeys) {
  if (hotkeys.liveRegistration(menu.hotkey.keyCode, menu.hotkey.carbonModifiers) != nullptr) return true;
  const HotkeyHIDTap* tap = hotkeys.hidTap();
  return tap != nullptr && tap->delivers(menu.hotkey);
}

TriggerReply replyFor(const PieMenu& menu) {
  if (!menu.isEnabled()) return TriggerReply::switchedOff;
  // The other kinds fill themselves.
  const bool isEmpty = menu.kind == PieMenuKind::standard && menu.items.empty();
  return isEmpty ? TriggerReply::empty : TriggerReply::opens;
}

MenuToTrigger answer(const PieMenu& menu) {
  const TriggerReply reply = replyFor(menu);
  return {reply, reply == TriggerReply::opens ? &menu : nullptr};
}

}  // namespace

const PieMenu& firstWithHotkeyOf(const PieMenu& menu, const std::vector<PieMenu>& menus) {
  const auto first = std::find_if(menus.begin(), menus.end(), [&](const PieMenu& other) {
    return other.hasLiveHotkey() && other.hotkey == menu.hotkey;
  });
  return first == menus.end() ? menu : *first;
}

bool opensWithHotkey(const PieMenu& menu, const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys) {
  return menu.hasLiveHotkey() && isRegistered(menu, hotkeys) && &firstWithHotkeyOf(menu, menus) == &menu &&
         !hotkeys.optionAgainst(menu.hotkey);
}

std::vector<MenuListing> listMenus(const std::vector<PieMenu>& menus, const HotkeyManager* hotkeys,
                                   AppLanguage language, const ModifierNames& modifierNames) {
  std::vector<MenuListing> listings;
  listings.reserve(menus.size());
  for (const PieMenu& menu : menus) {
    listings.push_back({.id = menu.id.string(),
                        .name = menu.name,
                        .hotkey = menu.hotkey.isAssigned() ? displayString(menu.hotkey, language, modifierNames) : "",
                        .isLive = hotkeys != nullptr && opensWithHotkey(menu, menus, *hotkeys)});
  }
  return listings;
}

std::string workingHotkeys(const std::vector<PieMenu>& menus, const HotkeyManager& hotkeys, AppLanguage language,
                           const ModifierNames& modifierNames) {
  constexpr int kMaxLines = 12;
  std::string lines;
  int count = 0;
  for (const PieMenu& menu : menus) {
    if (!opensWithHotkey(menu, menus, hotkeys)) continue;
    if (++count > kMaxLines) return lines + "\n…";
    if (!lines.empty()) lines += '\n';
    if (!menu.name.empty()) lines += displayName(menu) + ": ";
    lines += displayString(menu.hotkey, language, modifierNames);
  }
  return lines;
}

MenuToTrigger menuToTrigger(const std::vector<PieMenu>& menus, std::string_view idOrName) {
  if (const auto id = Uuid::parse(idOrName)) {
    const auto byId = std::find_if(menus.begin(), menus.end(), [&](const PieMenu& menu) { return menu.id == *id; });
    if (byId != menus.end()) return answer(*byId);
  }
  const auto hasName = [&](const PieMenu& menu) { return menu.name == idOrName; };
  const auto first = std::find_if(menus.begin(), menus.end(), hasName);
  if (first == menus.end()) return {};
  if (std::any_of(first + 1, menus.end(), hasName)) return {TriggerReply::ambiguous, nullptr};
  return answer(*first);
}

}  // namespace rondora

#include "commands/sub_action_list.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "commands/application_snapshot_reader.h"
#include "commands/command_symbol.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;
using Availability = ApplicationSnapshot::Availability;

/// A title or a symbol of each kind.
struct Look {
  Kind kind = Kind::menuItem;
  StringKey title = StringKey::settings;
  std::string_view symbol;
};

/// Without menu commands.
constexpr auto kLooks = std::to_array<Look>({
    {Kind::hideApp, StringKey::commandHideApp, "eye.slash.fill"},
    {Kind::minimizeWindow, StringKey::commandMinimizeWindow, "minus"},
    {Kind::toggleFullScreen, StringKey::commandEnterFullScreen, "arrow.up.left.and.arrow.down.right"},
    {Kind::tileLeft, StringKey::commandTileLeft, "rectangle.lefthalf.filled"},
    {Kind::tileRight, StringKey::commandTileRight, "rectangle.righthalf.filled"},
    {Kind::tileTop, StringKey::commandTileTop, "rectangle.tophalf.filled"},
    {Kind::tileBottom, StringKey::commandTileBottom, "rectangle.bottomhalf.filled"},
    {Kind::fillScreen, StringKey::commandFillScreen, "rectangle.inset.filled"},
    {Kind::centerWindow, StringKey::commandCenterWindow, "rectangle.center.inset.filled"},
    {Kind::closeWindow, StringKey::commandCloseWindow, "xmark"},
    {Kind::quitApp, StringKey::commandQuitApp, "power"},
});

const Look& lookOf(Kind kind) {
  return *std::find_if(kLooks.begin(), kLooks.end(), [kind](const Look& look) { return look.kind == kind; });
}

bool isOffered(Kind kind, const ApplicationSnapshot& snapshot) {
  const bool alwaysOffered = kind == Kind::menuItem || kind == Kind::hideApp || kind == Kind::quitApp;
  if (alwaysOffered || !snapshot.isWindowRead) return true;
  if (!snapshot.window) return false;
  if (kind == Kind::closeWindow) return true;
  if (kind == Kind::minimizeWindow) return snapshot.window->canMinimize;
  if (kind == Kind::toggleFullScreen) return snapshot.window->fullScreen != FullScreenState::unsupported;
  return snapshot.window->canMoveAndResize;
}

std::string noteOf(Availability availability, const std::optional<MenuShortcut>& shortcut,
                   const SubActionTexts& texts) {
  switch (availability) {
    case Availability::disabled:
      return std::string(texts.localization.text(StringKey::commandOffNow));
    case Availability::missing:
      return std::string(texts.localization.text(StringKey::commandGone));
    case Availability::unknown:
    case Availability::enabled:
      break;
  }
  return shortcut && texts.keyEquivalent ? texts.keyEquivalent(*shortcut) : "";
}

/// A document may say "" for no icon.
std::string iconOf(const AppSubMenuEntry& entry, std::string_view otherwise) {
  return entry.icon.value_or("").empty() ? std::string(otherwise) : *entry.icon;
}

PieSubAction menuCommand(const AppSubMenuEntry& entry, const ApplicationSnapshot& snapshot,
                         const SubActionTexts& texts) {
  const ApplicationSnapshot::Command* found = snapshot.command(entry.menuPath);
  const Availability availability = found ? found->availability : Availability::unknown;
  const bool isUnknown = availability == Availability::unknown;
  PieSubAction action;
  action.title = entry.menuPath.empty() ? "" : entry.menuPath.back();
  action.shortcut = storedShortcut(entry);
  const auto& shortcut = isUnknown ? action.shortcut : found->shortcut;
  action.icon = iconOf(entry, commandSymbol(shortcut));
  action.isAvailable = isUnknown || availability == Availability::enabled;
  action.note = noteOf(availability, shortcut, texts);
  return action;
}

PieSubAction generalCommand(const AppSubMenuEntry& entry, const ApplicationSnapshot& snapshot,
                            const SubActionTexts& texts) {
  const Look& look = lookOf(entry.kind);
  const bool isFullScreen = snapshot.window && snapshot.window->fullScreen == FullScreenState::on;
  const bool leaves = entry.kind == Kind::toggleFullScreen && isFullScreen;
  PieSubAction action;
  action.title = texts.localization.text(leaves ? StringKey::commandLeaveFullScreen : look.title);
  action.icon = iconOf(entry, look.symbol);
  return action;
}

}  // namespace

std::vector<PieSubAction> makeSubActions(const std::vector<AppSubMenuEntry>& entries,
                                         const ApplicationSnapshot& snapshot, const SubActionTexts& texts) {
  std::vector<PieSubAction> actions;
  actions.reserve(entries.size());
  std::set<std::pair<Kind, std::vector<std::string>>> made;
  for (const AppSubMenuEntry& entry : entries) {
    if (!isOffered(entry.kind, snapshot) || !made.insert({entry.kind, entry.menuPath}).second) continue;
    const bool isMenuItem = entry.kind == Kind::menuItem;
    PieSubAction action = isMenuItem ? menuCommand(entry, snapshot, texts) : generalCommand(entry, snapshot, texts);
    action.kind = entry.kind;
    action.menuPath = entry.menuPath;
    actions.push_back(std::move(action));
  }
  return actions;
}

}  // namespace rondora

#include "settings/menus/menu_editor.h"

#include <algorithm>
#include <utility>

#include "base/unicode.h"
#include "model/menu_name.h"
#include "model/ring_order.h"
#include "pie/labels/quick_select.h"
#include "settings/editing/menu_edits.h"

namespace rondora {

void MenuEditor::edit(const std::function<void(PieMenu&)>& edit, std::string_view field) {
  if (menu() == nullptr) return;
  const Uuid id = menu()->id;
  const std::string burst = field.empty() ? "" : id.string() + std::string(field);
  services_.history.edit(
      [&](PieConfiguration& document) {
        const auto found = std::ranges::find(document.menus, id, &PieMenu::id);
        if (found != document.menus.end()) edit(*found);
      },
      burst);
}

std::string MenuEditor::description() const {
  if (menu() == nullptr || isStandard()) return {};
  return std::string(services_.localization.text(
      menu()->kind == PieMenuKind::runningApps ? StringKey::menuRunningApps : StringKey::menuAppCommands));
}

void MenuEditor::setName(const std::string& name) {
  edit([&](PieMenu& menu) { menu.name = name; }, "name");
}

void MenuEditor::setEnabled(bool isEnabled) {
  if (isStandard()) return;
  edit([&](PieMenu& menu) { menu.runningAppsMenuEnabled = isEnabled; });
}

void MenuEditor::setColor(const std::string& color) {
  if (!isStandard()) return;
  edit([&](PieMenu& menu) { menu.globalSidebarIconColorHex = color; }, "color");
}

void MenuEditor::setRotation(double degrees) {
  edit([&](PieMenu& menu) { menu.rotationDegrees = degrees; }, "rotation");
}

void MenuEditor::setFingerCount(std::int64_t count) {
  if (menu() == nullptr || menu()->trackpadFingerCount == count) return;
  const Uuid id = menu()->id;
  const auto& menus = services_.history.document().menus;
  const auto other = std::ranges::find_if(
      menus, [&](const PieMenu& each) { return count != 0 && each.id != id && each.trackpadFingerCount == count; });
  const std::string loser = other == menus.end() ? "" : displayName(*other);
  services_.history.edit([&](PieConfiguration& document) { document.assignTrackpadFingerCount(count, id); });
  if (loser.empty()) return;
  services_.navigation.tell(services_.localization.text(StringKey::fingersMoved, std::to_string(count), loser));
}

std::string MenuEditor::fingerCountText(std::int64_t count) const {
  return count == 0 ? std::string(services_.localization.text(StringKey::fingersNone))
                    : services_.localization.text(StringKey::fingersCount, std::to_string(count));
}

/// Of a menu that waits for taps.
std::string MenuEditor::trackpadNote() const {
  const bool waits = menu() != nullptr && menu()->trackpadFingerCount != 0 && menu()->isEnabled();
  return waits && services_.trackpadNote ? services_.trackpadNote() : "";
}

std::vector<MenuEditor::ItemRow> MenuEditor::items() const {
  std::vector<ItemRow> rows;
  if (!isStandard()) return rows;
  std::vector<PieMenuItem> items = inRingOrder(menu()->items);
  const auto labels = resolvedShortcutLabels(items);
  for (std::size_t i = 0; i < items.size(); ++i) {
    std::string itemTitle = title(items[i]);
    rows.push_back({std::move(items[i]), std::move(itemTitle), labels[i].value_or("")});
  }
  return rows;
}

std::string MenuEditor::title(const PieMenuItem& item) const {
  std::string title = services_.itemTitle(item);
  return trimmed(title).empty() ? std::string(services_.localization.text(StringKey::itemUntitled)) : title;
}

std::optional<std::size_t> MenuEditor::place(const Uuid& item) const {
  if (menu() == nullptr) return std::nullopt;
  const auto items = inRingOrder(menu()->items);
  const auto found = std::ranges::find(items, item, &PieMenuItem::id);
  if (found == items.end()) return std::nullopt;
  return static_cast<std::size_t>(found - items.begin());
}

std::size_t MenuEditor::placeBehindChosen() const {
  const PieMenuItem* chosen = services_.navigation.item();
  const auto at = chosen == nullptr ? std::nullopt : place(chosen->id);
  return at ? *at + 1 : menu()->items.size();
}

void MenuEditor::insert(PieMenuItem item, std::size_t place) {
  Uuid id;
  edit([&](PieMenu& menu) { id = ItemEdits::insert(menu, place, std::move(item), services_.random); });
  services_.navigation.choose(id);
}

void MenuEditor::addItem() {
  if (!isStandard()) return;
  services_.navigation.nameNext();
  insert(ItemEdits::make(*menu(), services_.random), placeBehindChosen());
}

void MenuEditor::duplicateItem(const Uuid& item) {
  const auto at = place(item);
  if (!at || !isStandard()) return;
  PieMenuItem copy = *std::ranges::find(menu()->items, item, &PieMenuItem::id);
  copy.customShortcut.reset();
  insert(std::move(copy), *at + 1);
}

bool MenuEditor::canPaste() const { return isStandard() && pasteboard_.read().has_value(); }

void MenuEditor::pasteItem() {
  if (!isStandard()) return;
  if (auto item = pasteboard_.read()) insert(*std::move(item), placeBehindChosen());
}

void MenuEditor::copyItem(const Uuid& item) {
  if (place(item)) pasteboard_.copy(*std::ranges::find(menu()->items, item, &PieMenuItem::id));
}

void MenuEditor::removeItem(const Uuid& item) {
  if (!place(item)) return;
  const std::string removed = title(*std::ranges::find(menu()->items, item, &PieMenuItem::id));
  edit([&](PieMenu& menu) { ItemEdits::remove(menu, item); });
  services_.navigation.tell(services_.localization.text(StringKey::settingsDeleted, removed));
}

void MenuEditor::moveItem(const Uuid& item, std::size_t place) {
  edit([&](PieMenu& menu) { ItemEdits::move(menu, item, place); });
}

}  // namespace rondora

#include "settings/menus/menu_list.h"

#include <algorithm>

#include "base/unicode.h"
#include "base/word_query.h"
#include "model/menu_name.h"
#include "model/ring_order.h"
#include "settings/editing/menu_edits.h"

namespace rondora {
namespace {

bool finds(const WordQuery& query, std::string_view text) { return query.finds({searchKey(text)}); }

}  // namespace

std::vector<MenuList::Row> MenuList::rows() const {
  std::vector<Row> rows;
  for (const PieMenu& menu : services_.history.document().menus) {
    rows.push_back({.id = menu.id,
                    .name = listedName(menu),
                    .kind = menu.kind,
                    .color = menu.globalSidebarIconColorHex.value_or(""),
                    .trigger = services_.trigger ? services_.trigger(menu) : "",
                    .isOff = !menu.isEnabled()});
  }
  return rows;
}

std::vector<MenuList::Hit> MenuList::search(std::string_view query) const {
  const WordQuery wanted(query, WordQuery::Match::anywhere);
  std::vector<Hit> menus;
  std::vector<Hit> items;
  if (wanted.isEmpty()) return menus;
  for (const PieMenu& menu : services_.history.document().menus) {
    const std::string name = listedName(menu);
    if (finds(wanted, name)) menus.push_back({.menu = menu.id, .item = std::nullopt, .title = name, .place = ""});
    for (PieMenuItem& item : inRingOrder(menu.items)) {
      const std::string title = services_.itemTitle(item);
      if (finds(wanted, title)) items.push_back({menu.id, std::move(item), title, name});
    }
  }
  menus.insert(menus.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
  return menus;
}

void MenuList::add() {
  Uuid id;
  services_.history.edit([&](PieConfiguration& document) {
    const auto name = freeName(services_.localization.text(StringKey::menusAdd));
    id = MenuEdits::add(document, name, services_.random);
  });
  services_.navigation.nameNext();
  services_.navigation.openMenu(id);
}

void MenuList::duplicate(const Uuid& menu) {
  const PieMenu* original = services_.history.document().menu(menu);
  if (original == nullptr) return;
  const std::string name = freeName(services_.localization.text(StringKey::menuCopyName, original->name));
  std::optional<Uuid> id;
  services_.history.edit(
      [&](PieConfiguration& document) { id = MenuEdits::duplicate(document, menu, name, services_.random); });
  if (!id) return;
  services_.navigation.nameNext();
  services_.navigation.openMenu(*id);
}

/// "Name", "Name 2", "Name 3" …: the first that no menu has.
std::string MenuList::freeName(std::string_view name) const {
  const auto& menus = services_.history.document().menus;
  std::string free(name);
  for (int number = 2; std::ranges::find(menus, free, &PieMenu::name) != menus.end(); ++number) {
    free = std::string(name) + " " + std::to_string(number);
  }
  return free;
}

void MenuList::remove(const Uuid& menu) {
  const PieMenu* removed = services_.history.document().menu(menu);
  if (removed == nullptr || !isStandard(menu)) return;
  const std::string name = displayName(*removed);
  services_.history.edit([&](PieConfiguration& document) { MenuEdits::remove(document, menu); });
  services_.navigation.tell(services_.localization.text(StringKey::settingsDeleted, name));
}

void MenuList::move(const Uuid& menu, std::size_t place) {
  services_.history.edit([&](PieConfiguration& document) { MenuEdits::move(document, menu, place); });
}

bool MenuList::isStandard(const Uuid& menu) const {
  const PieMenu* found = services_.history.document().menu(menu);
  return found != nullptr && found->kind == PieMenuKind::standard;
}

}  // namespace rondora

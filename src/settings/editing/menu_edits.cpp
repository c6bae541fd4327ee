#include "settings/editing/menu_edits.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

#include "pie/geometry/sector_geometry.h"
#include "settings/editing/elements_by_id.h"

namespace rondora {
namespace {

using editing::find;
using editing::moveTo;

bool isStandard(const PieMenu& menu) { return menu.kind == PieMenuKind::standard; }

/// A rotation that was tidy with another number of sectors.
void snap(PieMenu& menu) {
  menu.rotationDegrees = snappedAestheticRotationDegrees(menu.rotationDegrees, std::ssize(menu.items));
}

void number(PieMenu& menu) {
  for (std::size_t i = 0; i < menu.items.size(); ++i) menu.items[i].sectorIndex = static_cast<std::int64_t>(i);
}

void putInRingOrder(PieMenu& menu) {
  std::stable_sort(menu.items.begin(), menu.items.end(), [](const PieMenuItem& one, const PieMenuItem& other) {
    return one.sectorIndex < other.sectorIndex;
  });
  number(menu);
}

}  // namespace

Uuid MenuEdits::add(PieConfiguration& document, std::string name, RandomSource& random) {
  auto& menus = document.menus;
  PieMenu menu;
  menu.id = random.uuid();
  menu.name = std::move(name);
  if (!menus.empty()) menu.applySharedVisualSettings(menus.front());
  const auto last = std::find_if(menus.rbegin(), menus.rend(), isStandard);
  return menus.insert(last.base(), std::move(menu))->id;
}

std::optional<Uuid> MenuEdits::duplicate(PieConfiguration& document, const Uuid& menu, std::string name,
                                         RandomSource& random) {
  const auto original = find(document.menus, menu);
  if (original == document.menus.end() || !isStandard(*original)) return std::nullopt;
  PieMenu copy = *original;
  copy.id = random.uuid();
  copy.name = std::move(name);
  copy.hotkey = {};
  copy.trackpadFingerCount = 0;
  for (PieMenuItem& item : copy.items) item.id = random.uuid();
  return document.menus.insert(std::next(original), std::move(copy))->id;
}

bool MenuEdits::rename(PieConfiguration& document, const Uuid& menu, std::string name) {
  const auto found = find(document.menus, menu);
  if (found == document.menus.end()) return false;
  found->name = std::move(name);
  return true;
}

bool MenuEdits::move(PieConfiguration& document, const Uuid& menu, std::size_t place) {
  return moveTo(document.menus, menu, place);
}

bool MenuEdits::remove(PieConfiguration& document, const Uuid& menu) {
  const auto found = find(document.menus, menu);
  if (found == document.menus.end() || !isStandard(*found)) return false;
  document.menus.erase(found);
  return true;
}

bool MenuEdits::copyAppearanceToAll(PieConfiguration& document, const Uuid& menu) {
  const PieMenu* source = document.menu(menu);
  if (source == nullptr) return false;
  for (PieMenu& each : document.menus) {
    if (each.id != menu) each.applySharedVisualSettings(*source);
  }
  return true;
}

PieMenuItem ItemEdits::make(const PieMenu& menu, RandomSource& random) {
  std::set<std::string, std::less<>> shown;
  for (const PieMenuItem& item : menu.items) shown.insert(item.icon);
  PieMenuItem item;
  item.icon = PieMenuItem::randomUnassignedSymbol(shown, random);
  item.color = kItemColorPalette[menu.items.size() % kItemColorPalette.size()];
  return item;
}

Uuid ItemEdits::insert(PieMenu& menu, std::size_t place, PieMenuItem item, RandomSource& random) {
  item.id = random.uuid();
  item.sectorIndex = static_cast<std::int64_t>(menu.items.size());
  const Uuid id = item.id;
  putInRingOrder(menu);
  menu.items.push_back(std::move(item));
  move(menu, id, place);
  snap(menu);
  return id;
}

bool ItemEdits::replace(PieMenu& menu, const PieMenuItem& item) {
  const auto found = find(menu.items, item.id);
  if (found == menu.items.end()) return false;
  const std::int64_t place = found->sectorIndex;
  *found = item;
  found->sectorIndex = place;
  return true;
}

bool ItemEdits::move(PieMenu& menu, const Uuid& item, std::size_t place) {
  if (find(menu.items, item) == menu.items.end()) return false;
  putInRingOrder(menu);
  moveTo(menu.items, item, place);
  number(menu);
  return true;
}

bool ItemEdits::remove(PieMenu& menu, const Uuid& item) {
  const auto found = find(menu.items, item);
  if (found == menu.items.end()) return false;
  menu.items.erase(found);
  putInRingOrder(menu);
  snap(menu);
  return true;
}

const PieMenuItem* ItemEdits::withLabel(const PieMenu& menu, std::string_view label, const Uuid& except) {
  const auto found = std::find_if(menu.items.begin(), menu.items.end(), [&](const PieMenuItem& item) {
    return item.id != except && item.customShortcut == label;
  });
  return found == menu.items.end() ? nullptr : &*found;
}

}  // namespace rondora

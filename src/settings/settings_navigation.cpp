#include "settings/settings_navigation.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/ring_order.h"

namespace rondora {
namespace {

/// The element with this id, else the one that has taken its place, else the last one; null if there are none. Updates
/// the place.
template <class Elements>
auto keep(const Elements& elements, const Uuid& id, std::size_t& place) -> decltype(elements.data()) {
  if (elements.empty()) return nullptr;
  const auto found = std::ranges::find_if(elements, [&id](const auto& each) { return each.id == id; });
  place = found == elements.end() ? std::min(place, elements.size() - 1)
                                  : static_cast<std::size_t>(found - elements.begin());
  return &elements[place];
}

}  // namespace

SettingsNavigation::SettingsNavigation(EditHistory& history) : history_(history) {
  follow();
  documents_ = history.onChanged([this] { documentChanged(); });
}

void SettingsNavigation::documentChanged() {
  notice_.clear();
  if (!vanished_.empty() && isThere(vanished_.back())) {
    menu_ = vanished_.back().menu;
    item_ = vanished_.back().item;
    vanished_.pop_back();
  }
  follow();
  changed_.send();
}

bool SettingsNavigation::isThere(const Place& place) const {
  const PieMenu* menu = history_.document().menu(place.menu);
  return menu != nullptr &&
         (!place.item || std::ranges::find(menu->items, *place.item, &PieMenuItem::id) != menu->items.end());
}

void SettingsNavigation::remember(Place place) {
  constexpr std::size_t kMost = 50;
  if (vanished_.size() == kMost) vanished_.erase(vanished_.begin());
  vanished_.push_back(place);
}

void SettingsNavigation::follow() {
  if (menu_ != Uuid() && !isThere({menu_, item_})) remember({menu_, item_});
  const PieMenu* menu = keep(history_.document().menus, menu_, menuPlace_);
  if (menu == nullptr || menu->id != menu_) item_.reset();
  menu_ = menu == nullptr ? Uuid() : menu->id;
  if (!item_) return;
  const auto items = inRingOrder(menu->items);
  const PieMenuItem* item = keep(items, *item_, itemPlace_);
  item_ = item == nullptr ? std::nullopt : std::optional(item->id);
}

void SettingsNavigation::open(SettingsPage page) {
  if (page_ == page) return;
  page_ = page;
  notice_.clear();
  changed_.send();
}

void SettingsNavigation::step(int entries) {
  const auto& menus = history_.document().menus;
  const auto menuCount = std::ssize(menus);
  const auto count = menuCount + std::ssize(kSettingsPages);
  const auto page = std::ranges::find(kSettingsPages, page_) - kSettingsPages.begin();
  const auto from = page_ == SettingsPage::menu ? static_cast<std::ptrdiff_t>(menuPlace_) : menuCount + page;
  const auto to = ((from + entries) % count + count) % count;
  if (to >= menuCount) return open(kSettingsPages[static_cast<std::size_t>(to - menuCount)]);
  openMenu(menus[static_cast<std::size_t>(to)].id);
}

void SettingsNavigation::openMenu(const Uuid& menu, std::optional<Uuid> item) {
  if (page_ == SettingsPage::menu && menu_ == menu && item_ == item) return;
  page_ = SettingsPage::menu;
  if (menu_ != menu) notice_.clear();
  menu_ = menu;
  item_ = item;
  follow();
  changed_.send();
}

void SettingsNavigation::showMenu(const Uuid& menu) {
  if (menu_ == menu) return;
  notice_.clear();
  menu_ = menu;
  item_.reset();
  follow();
  changed_.send();
}

void SettingsNavigation::choose(std::optional<Uuid> item) { openMenu(menu_, item); }

const PieMenuItem* SettingsNavigation::item() const {
  const PieMenu* shown = menu();
  if (shown == nullptr || !item_) return nullptr;
  const auto found = std::ranges::find(shown->items, *item_, &PieMenuItem::id);
  return found == shown->items.end() ? nullptr : &*found;
}

void SettingsNavigation::tell(std::string notice) {
  notice_ = std::move(notice);
  changed_.send();
}

void SettingsNavigation::dismissNotice() {
  if (!notice_.empty()) tell({});
}

}  // namespace rondora

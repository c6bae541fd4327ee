#include "platform/linux/menus/published_menus.h"

#include <algorithm>
#include <utility>

#include "platform/linux/menus/atspi_menu_source.h"
#include "platform/linux/menus/atspi_search.h"
#include "platform/linux/menus/dbus_menu_source.h"
#include "platform/linux/menus/gtk_menu_source.h"
#include "platform/linux/menus/menu_elements.h"

namespace rondora::menus {
namespace {

/// The search on the accessibility bus takes several requests, each of which a busy application may answer slowly; the
/// first without an answer ends it.
constexpr double kMaxSearchSeconds = 2 * kMaxRequestSeconds;
/// What the other sources get at least; they need little, unless the application hangs.
constexpr double kReservedSeconds = 0.05;

bool namesGtkMenus(const MenuBarOwner& owner) { return !owner.busName.empty() && !owner.menuBarPath.empty(); }

}  // namespace

PublishedMenus::PublishedMenus() : accessibilityBus_([this] { return accessibilityBusAddress(session_); }) {}

/// The richest source first: only the accessibility bus tells the keys that a GTK application sets outside its menus.
AXElementRef PublishedMenus::menuBar(const MenuBarOwner& owner) {
  accessibilityBus_.get();  // connects, which has a limit of its own
  const Deadline whole(kMaxRequestSeconds);
  if (AXElementRef bar = accessibleMenuBar(owner, Deadline(kMaxSearchSeconds))) return bar;
  const Deadline deadline(std::max(whole.secondsLeft(), kReservedSeconds));
  if (AXElementRef bar = gtkMenuBar(owner, deadline)) return bar;
  return registeredMenuBar(owner, deadline);
}

void PublishedMenus::prepareToRead(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                                   double seconds) {
  prepareMenus(elements, attributes, seconds);
}

AXElementRef PublishedMenus::gtkMenuBar(const MenuBarOwner& owner, const Deadline& deadline) {
  if (!namesGtkMenus(owner)) return nullptr;
  GtkMenuSource::Objects objects{owner.busName, owner.menuBarPath, {}};
  for (const auto& [prefix, path] : {std::pair("app", owner.applicationPath), std::pair("win", owner.windowPath)}) {
    if (!path.empty()) objects.actions[prefix] = path;
  }
  auto source = std::make_shared<GtkMenuSource>(session_, std::move(objects));
  MenuNodeRef bar = source->menuBar();
  source->expand(std::span(&bar, 1), deadline.secondsLeft());
  return bar->items->empty() ? nullptr : makeMenuBarElement(std::move(source), std::move(bar));
}

AXElementRef PublishedMenus::registeredMenuBar(const MenuBarOwner& owner, const Deadline& deadline) {
  auto object = registeredMenu(session_, owner.window, deadline.secondsLeft());
  if (!object) return nullptr;
  auto source = std::make_shared<DbusMenuSource>(session_, *std::move(object));
  MenuNodeRef bar = source->menuBar();
  return makeMenuBarElement(std::move(source), std::move(bar));
}

AXElementRef PublishedMenus::accessibleMenuBar(const MenuBarOwner& owner, const Deadline& deadline) {
  auto found = findMenuBar(accessibilityBus_, owner.processIdentifier, owner.titles, deadline);
  if (!found) return nullptr;
  auto source = std::make_shared<AtspiMenuSource>(accessibilityBus_, std::move(found->service));
  MenuNodeRef bar = source->menuBar(std::move(found->path));
  const bool isBare = namesGtkMenus(owner) && !source->holdsMenus(bar, deadline);
  return isBare ? nullptr : makeMenuBarElement(std::move(source), std::move(bar));
}

}  // namespace rondora::menus

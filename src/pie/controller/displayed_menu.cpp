#include "pie/controller/displayed_menu.h"

#include <utility>

#include "model/ring_order.h"

namespace rondora {

DisplayedMenu DisplayedMenu::make(const PieMenu& menu, std::optional<std::vector<PieMenuItem>> itemsOverride,
                                  std::optional<AppCommands> appCommands, double maxRadius) {
  DisplayedMenu displayed;
  double rotationDegrees = menu.rotationDegrees;
  displayed.menuId = menu.id;
  displayed.kind = menu.kind;
  if (appCommands) {
    displayed.items = std::move(appCommands->items);
    displayed.commands = std::move(appCommands->commands);
    displayed.application = std::move(appCommands->application);
    rotationDegrees = appCommands->rotationDegrees.value_or(rotationDegrees);
  } else {
    displayed.items = inRingOrder(itemsOverride ? *std::move(itemsOverride) : menu.items);
  }
  displayed.shortcutLabels = ShortcutLabels(resolvedShortcutLabels(displayed.items));
  displayed.layout = RingLayout::make(menu, rotationDegrees, displayed.items.size(), maxRadius);
  return displayed;
}

}  // namespace rondora

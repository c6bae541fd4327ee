#include "commands/app_commands_menu_items.h"

#include <cstdint>

#include "base/content_uuid.h"
#include "model/palette.h"

namespace rondora {

/// From kind and path alone, which neither the language nor the application's state changes.
Uuid AppCommandsMenuItems::stableID(const PieSubAction& command) {
  ContentUuid content;
  content.add(rawValue(command.kind)).add(std::uint64_t{command.menuPath.size()});
  for (const std::string& title : command.menuPath) content.add(title);
  return content.uuid();
}

std::vector<PieMenuItem> AppCommandsMenuItems::build(const std::vector<PieSubAction>& commands) {
  std::vector<PieMenuItem> items;
  items.reserve(commands.size());
  for (std::size_t i = 0; i < commands.size(); ++i) {
    PieMenuItem item;
    item.id = stableID(commands[i]);
    item.title = commands[i].title;
    item.icon = commands[i].icon;
    item.color = kItemColorPalette[i % kItemColorPalette.size()];
    item.sectorIndex = static_cast<std::int64_t>(i);
    items.push_back(std::move(item));
  }
  return items;
}

}  // namespace rondora

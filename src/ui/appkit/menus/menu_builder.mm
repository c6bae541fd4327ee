#include "ui/appkit/menus/menu_builder.h"

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

NSMenuItem* makeItem(const MenuEntry& entry) {
  if (entry.isSeparator) return [NSMenuItem separatorItem];
  RondoraControlAction* action = [[RondoraControlAction alloc] initWithFunction:entry.action];
  NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:nsString(entry.title)
                                                action:@selector(perform)
                                         keyEquivalent:@""];
  item.target = action;
  item.representedObject = action;  // the target is weak
  if (!entry.symbol.empty()) {
    item.image = [NSImage imageWithSystemSymbolName:nsString(entry.symbol) accessibilityDescription:nil];
  }
  return item;
}

}  // namespace

NSMenu* makeMenu(const std::string& title, const std::vector<MenuEntry>& entries) {
  NSMenu* menu = [[NSMenu alloc] initWithTitle:nsString(title)];
  for (const MenuEntry& entry : entries) [menu addItem:makeItem(entry)];
  return menu;
}

}  // namespace rondora::appkit

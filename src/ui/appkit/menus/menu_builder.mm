#include "ui/appkit/menus/menu_builder.h"

#include <functional>

#include "platform/macos/foundation/ns_text.h"

/// What choosing an entry does.
@interface RondoraMenuAction : NSObject
- (instancetype)initWithAction:(std::function<void()>)action;
- (void)perform;
@end

@implementation RondoraMenuAction {
  std::function<void()> action_;
}

- (instancetype)initWithAction:(std::function<void()>)action {
  self = [super init];
  if (self != nil) action_ = std::move(action);
  return self;
}

- (void)perform {
  // A copy: it may replace the menu.
  const auto action = action_;
  if (action) action();
}

@end

namespace rondora::appkit {
namespace {

using macos::nsString;

NSMenuItem* makeItem(const MenuEntry& entry) {
  if (entry.isSeparator) return [NSMenuItem separatorItem];
  RondoraMenuAction* action = [[RondoraMenuAction alloc] initWithAction:entry.action];
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

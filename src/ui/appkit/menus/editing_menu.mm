#include "ui/appkit/menus/editing_menu.h"

/// Sends an action of editing to the responder that has a method for it. A view of another toolkit claims these actions
/// without one, and hears their keys as keys.
@interface RondoraEditingCommand : NSObject <NSMenuItemValidation>
- (instancetype)initWithAction:(SEL)action;
- (void)perform:(id)sender;
@end

@implementation RondoraEditingCommand {
  SEL action_;
}

- (instancetype)initWithAction:(SEL)action {
  self = [super init];
  if (self != nil) action_ = action;
  return self;
}

- (id)responder {
  const id claimant = [NSApplication.sharedApplication targetForAction:action_];
  return [[claimant class] instancesRespondToSelector:action_] ? claimant : nil;
}

- (BOOL)validateMenuItem:(NSMenuItem*)__unused menuItem {
  return [self responder] != nil;
}

- (void)perform:(id)sender {
  [NSApplication.sharedApplication sendAction:action_ to:[self responder] from:sender];
}

@end

namespace rondora::appkit {
namespace {

// Whether the system matches the keys of an item without a title is not documented.
NSMenuItem* makeItem(SEL action, NSString* key) {
  return [[NSMenuItem alloc] initWithTitle:NSStringFromSelector(action) action:action keyEquivalent:key];
}

NSMenuItem* makeTextItem(SEL action, NSString* key) {
  NSMenuItem* item = makeItem(action, key);
  RondoraEditingCommand* command = [[RondoraEditingCommand alloc] initWithAction:action];
  item.target = command;
  item.action = @selector(perform:);
  item.representedObject = command;  // the target is weak
  return item;
}

}  // namespace

NSMenu* makeEditingMenu() {
  NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
  [menu addItem:makeItem(@selector(undo:), @"z")];
  [menu addItem:makeItem(@selector(redo:), @"Z")];
  [menu addItem:makeTextItem(@selector(cut:), @"x")];
  [menu addItem:makeTextItem(@selector(copy:), @"c")];
  [menu addItem:makeTextItem(@selector(paste:), @"v")];
  [menu addItem:makeTextItem(@selector(selectAll:), @"a")];
  [menu addItem:makeItem(@selector(performClose:), @"w")];
  return menu;
}

}  // namespace rondora::appkit

#include "ui/appkit/application/appkit_application_shell.h"

#include <string>
#include <utility>

#include "base/program_identity.h"
#include "platform/macos/foundation/notification_subscription.h"
#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/menus/editing_menu.h"
#include "ui/appkit/menus/menu_builder.h"

@interface RondoraApplicationDelegate : NSObject <NSApplicationDelegate>
@end

@implementation RondoraApplicationDelegate {
 @public
  std::function<void()> didFinishLaunching_;
  std::function<void()> willTerminate_;
  std::function<bool()> shouldTerminateAfterLastWindowClosed_;
  std::function<void()> reopened_;
}

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification {
  if (didFinishLaunching_) didFinishLaunching_();
}

- (void)applicationWillTerminate:(NSNotification*)__unused notification {
  if (willTerminate_) willTerminate_();
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)__unused sender {
  return shouldTerminateAfterLastWindowClosed_ && shouldTerminateAfterLastWindowClosed_();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused sender hasVisibleWindows:(BOOL)__unused flag {
  if (reopened_) reopened_();
  return YES;
}

@end

namespace rondora::appkit {
namespace {

NSApplicationActivationPolicy policyOf(ActivationPolicy policy) {
  switch (policy) {
    case ActivationPolicy::regular:
      return NSApplicationActivationPolicyRegular;
    case ActivationPolicy::accessory:
      return NSApplicationActivationPolicyAccessory;
    case ActivationPolicy::prohibited:
      return NSApplicationActivationPolicyProhibited;
  }
}

void addSubmenu(NSMenu* menu, NSMenu* submenu) {
  NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:@"" action:nil keyEquivalent:@""];
  item.submenu = submenu;
  [menu addItem:item];
}

}  // namespace

AppKitApplicationShell::AppKitApplicationShell() : delegate_([[RondoraApplicationDelegate alloc] init]) {
  NSApplication.sharedApplication.delegate = delegate_;
}

AppKitApplicationShell::~AppKitApplicationShell() { NSApplication.sharedApplication.delegate = nil; }

void AppKitApplicationShell::run(std::function<void()> didFinishLaunching, std::function<void()> willTerminate) {
  delegate_->didFinishLaunching_ = std::move(didFinishLaunching);
  delegate_->willTerminate_ = std::move(willTerminate);
  [NSApplication.sharedApplication run];
}

void AppKitApplicationShell::setReopened(std::function<void()> reopened) { delegate_->reopened_ = std::move(reopened); }

void AppKitApplicationShell::setActivationPolicy(ActivationPolicy policy) {
  [NSApplication.sharedApplication setActivationPolicy:policyOf(policy)];
}

// The first menu of the menu bar is the application's own, whose title the system sets.
void AppKitApplicationShell::setMainMenu(std::vector<MenuEntry> entries) {
  NSMenu* own = makeMenu(std::string(program_identity::kName), entries);
  if (!entries.empty()) {
    [own itemAtIndex:0].keyEquivalent = @",";
    [own itemAtIndex:own.numberOfItems - 1].keyEquivalent = @"q";
  }
  NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
  addSubmenu(menu, own);
  addSubmenu(menu, makeEditingMenu());
  NSApplication.sharedApplication.mainMenu = menu;
}

void AppKitApplicationShell::activateIgnoringOtherApps() {
  [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
}

void AppKitApplicationShell::terminate() { [NSApplication.sharedApplication terminate:nil]; }

void AppKitApplicationShell::openOwnApplication(const OpenConfiguration& configuration, std::function<void()> opened) {
  NSWorkspaceOpenConfiguration* wish = [NSWorkspaceOpenConfiguration configuration];
  wish.createsNewApplicationInstance = configuration.createsNewApplicationInstance;
  wish.activates = configuration.activates;
  [NSWorkspace.sharedWorkspace openApplicationAtURL:NSBundle.mainBundle.bundleURL
                                      configuration:wish
                                  completionHandler:^(NSRunningApplication*, NSError*) {
                                    opened();
                                  }];
}

void AppKitApplicationShell::setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) {
  delegate_->shouldTerminateAfterLastWindowClosed_ = std::move(shouldTerminate);
}

Subscription AppKitApplicationShell::onDidBecomeActive(std::function<void()> observer) {
  return macos::observe(NSNotificationCenter.defaultCenter, NSApplicationDidBecomeActiveNotification,
                        ^(NSNotification*) {
                          observer();
                        });
}

}  // namespace rondora::appkit

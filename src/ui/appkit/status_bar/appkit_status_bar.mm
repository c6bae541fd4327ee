#include "ui/appkit/status_bar/appkit_status_bar.h"

#include <AppKit/AppKit.h>

#include "base/program_identity.h"
#include "platform/macos/foundation/notification_subscription.h"
#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/menus/menu_builder.h"
#include "ui/appkit/status_bar/status_bar_icon.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

NSAccessibilityRole roleOf(StatusItemRole role) {
  return role == StatusItemRole::menuButton ? NSAccessibilityMenuButtonRole : NSAccessibilityButtonRole;
}

void describe(NSStatusBarButton* button, const StatusItemDescription& description) {
  button.image = makeStatusBarIcon();
  button.imagePosition = description.imagePosition == StatusItemImagePosition::imageOnly ? NSImageOnly : NSImageLeading;
  button.toolTip = nsString(description.toolTip);
  button.accessibilityLabel = nsString(description.accessibilityLabel);
  button.accessibilityRole = roleOf(description.role);
}

/// Whether the item lies, in part, beneath the camera housing. The areas beside it are empty where there is none.
bool isCovered(NSRect item, NSScreen* screen) {
  const NSRect left = screen.auxiliaryTopLeftArea;
  const NSRect right = screen.auxiliaryTopRightArea;
  if (right.size.width <= 0) return false;
  return item.origin.x + item.size.width > left.origin.x + left.size.width && item.origin.x < right.origin.x;
}

/// An item for which the menu bar has no room is on no screen, or beneath the camera housing.
class AppKitStatusItem final : public StatusItem {
 public:
  explicit AppKitStatusItem(const StatusItemDescription& description)
      : item_([NSStatusBar.systemStatusBar statusItemWithLength:description.length == StatusItemLength::square
                                                                    ? NSSquareStatusItemLength
                                                                    : NSVariableStatusItemLength]) {
    item_.autosaveName = nsString(description.autosaveName);
    item_.visible = YES;
    describe(item_.button, description);
    item_.menu = makeMenu(std::string(program_identity::kName), description.menu);
  }
  ~AppKitStatusItem() override { [NSStatusBar.systemStatusBar removeStatusItem:item_]; }
  AppKitStatusItem(const AppKitStatusItem&) = delete;
  AppKitStatusItem& operator=(const AppKitStatusItem&) = delete;

  void setMenuTitle(std::size_t index, const std::string& title) override {
    const auto place = static_cast<NSInteger>(index);
    if (place < item_.menu.numberOfItems) [item_.menu itemAtIndex:place].title = nsString(title);
  }

  void setToolTip(const std::string& toolTip) override { item_.button.toolTip = nsString(toolTip); }

  StatusItemVisibility visibility() const override {
    if (!item_.visible) return StatusItemVisibility::notTaken;
    NSWindow* window = item_.button.window;
    const bool hasRoom = window.screen != nil && !isCovered(window.frame, window.screen);
    return hasRoom ? StatusItemVisibility::visible : StatusItemVisibility::noRoom;
  }

  Subscription onVisibilityMayHaveChanged(std::function<void()> observer) const override {
    return macos::observe(NSNotificationCenter.defaultCenter, NSApplicationDidChangeScreenParametersNotification,
                          ^(NSNotification*) {
                            observer();
                          });
  }

 private:
  NSStatusItem* item_;
};

}  // namespace

std::unique_ptr<StatusItem> AppKitStatusBar::makeStatusItem(const StatusItemDescription& description) {
  return std::make_unique<AppKitStatusItem>(description);
}

}  // namespace rondora::appkit

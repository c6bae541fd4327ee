#include "platform/macos/events/appkit_screens.h"

#include <AppKit/AppKit.h>

#include "platform/macos/events/screen_points.h"
#include "platform/macos/foundation/notification_subscription.h"

namespace rondora::macos {
namespace {

Screen screenOf(NSScreen* screen) { return {portRect(screen.frame), portRect(screen.visibleFrame)}; }

}  // namespace

std::vector<Screen> AppKitScreens::all() const {
  std::vector<Screen> screens;
  for (NSScreen* screen in NSScreen.screens) screens.push_back(screenOf(screen));
  return screens;
}

std::optional<Screen> AppKitScreens::main() const {
  NSScreen* screen = NSScreen.mainScreen;
  return screen == nil ? std::nullopt : std::optional(screenOf(screen));
}

bool AppKitScreens::shareWindows() const { return !NSScreen.screensHaveSeparateSpaces; }

Subscription AppKitScreens::onParametersChanged(std::function<void()> observer) {
  return observe(NSNotificationCenter.defaultCenter, NSApplicationDidChangeScreenParametersNotification,
                 ^(NSNotification*) {
                   observer();
                 });
}

}  // namespace rondora::macos

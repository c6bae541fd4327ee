#include "platform/macos/events/voice_over_announcer.h"

#include <AppKit/AppKit.h>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {

bool VoiceOverAnnouncer::hasListeners() const { return NSWorkspace.sharedWorkspace.isVoiceOverEnabled; }

// High priority interrupts the sentence before. The window with the keyboard is the open ring.
void VoiceOverAnnouncer::announce(std::string sentence) {
  NSApplication* application = NSApplication.sharedApplication;
  NSWindow* window = application.keyWindow;
  const id source = window == nil ? static_cast<id>(application) : static_cast<id>(window);
  NSAccessibilityPostNotificationWithUserInfo(
      source, NSAccessibilityAnnouncementRequestedNotification, @{
        NSAccessibilityAnnouncementKey : nsString(sentence),
        NSAccessibilityPriorityKey : @(NSAccessibilityPriorityHigh)
      });
}

}  // namespace rondora::macos

#include "platform/macos/events/voice_over_announcer.h"

#include <AppKit/AppKit.h>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {

bool VoiceOverAnnouncer::hasListeners() const { return NSWorkspace.sharedWorkspace.isVoiceOverEnabled; }

// High priority interrupts the sentence before. The ring's window is no element that could announce.
void VoiceOverAnnouncer::announce(std::string sentence) {
  NSAccessibilityPostNotificationWithUserInfo(
      NSApplication.sharedApplication, NSAccessibilityAnnouncementRequestedNotification, @{
        NSAccessibilityAnnouncementKey : nsString(sentence),
        NSAccessibilityPriorityKey : @(NSAccessibilityPriorityHigh)
      });
}

}  // namespace rondora::macos

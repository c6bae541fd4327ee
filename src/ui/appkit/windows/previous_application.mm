#include "ui/appkit/windows/previous_application.h"

#include <unistd.h>

namespace rondora::appkit {
namespace {

/// The main window alone comes to the front.
constexpr NSApplicationActivationOptions kMainWindowOnly = 0;

bool hasWindowBesides(NSWindow* closing) {
  for (NSWindow* window in NSApplication.sharedApplication.windows) {
    if (window != closing && window.isVisible && window.canBecomeMainWindow) return true;
  }
  return false;
}

}  // namespace

void PreviousApplication::remember() {
  NSRunningApplication* front = NSWorkspace.sharedWorkspace.frontmostApplication;
  if (front.processIdentifier != getpid()) application_ = front;
}

void PreviousApplication::returnFrom(NSWindow* closing) const {
  if (!NSApplication.sharedApplication.isActive || hasWindowBesides(closing)) return;
  [application_ activateWithOptions:kMainWindowOnly];
}

}  // namespace rondora::appkit

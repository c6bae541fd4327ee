#include "platform/macos/events/symbolic_mode_recording_keyboard.h"

#include <AppKit/AppKit.h>
#include <Carbon/Carbon.h>

#include <memory>
#include <utility>

#include "platform/macos/foundation/notification_subscription.h"

namespace rondora::macos {
namespace {

constexpr NSEventMask kMouseDownMask = NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown | NSEventMaskOtherMouseDown;

using SharedObserver = std::shared_ptr<const RecordingKeyboard::Observer>;

// A callback may end the recording, and with it the block that calls it.
void tellClick(SharedObserver observer) {
  if (observer->onClick) observer->onClick();
}

void tellLoss(SharedObserver observer) {
  if (observer->onLost) observer->onLost();
}

}  // namespace

std::optional<Subscription> SymbolicModeRecordingKeyboard::take(Observer observer) {
  const auto shared = std::make_shared<const Observer>(std::move(observer));
  const id inside = [NSEvent addLocalMonitorForEventsMatchingMask:kMouseDownMask
                                                          handler:^NSEvent*(NSEvent* event) {
                                                            tellClick(shared);
                                                            return event;
                                                          }];
  const id outside = [NSEvent addGlobalMonitorForEventsMatchingMask:kMouseDownMask
                                                            handler:^(NSEvent*) {
                                                              tellClick(shared);
                                                            }];
  const auto leaving = std::make_shared<Subscription>(
      observe(NSNotificationCenter.defaultCenter, NSApplicationDidResignActiveNotification, ^(NSNotification*) {
        tellLoss(shared);
      }));
  void* const mode = PushSymbolicHotKeyMode(kHIHotKeyModeAllDisabled);
  return Subscription([inside, outside, leaving, mode] {
    if (mode != nullptr) PopSymbolicHotKeyMode(mode);
    leaving->reset();
    if (inside != nil) [NSEvent removeMonitor:inside];
    if (outside != nil) [NSEvent removeMonitor:outside];
  });
}

}  // namespace rondora::macos

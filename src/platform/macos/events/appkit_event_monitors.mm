#include "platform/macos/events/appkit_event_monitors.h"

#include <AppKit/AppKit.h>

#include <utility>

#include "platform/macos/conversions/key_event_flags.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

static_assert(kKeyDownMask == NSEventMaskKeyDown);
static_assert(kKeyDownAndKeyUpMask == (NSEventMaskKeyDown | NSEventMaskKeyUp));
static_assert(kFlagsChangedMask == NSEventMaskFlagsChanged);
static_assert(event_flags::kShift == NSEventModifierFlagShift);
static_assert(event_flags::kControl == NSEventModifierFlagControl);
static_assert(event_flags::kOption == NSEventModifierFlagOption);
static_assert(event_flags::kCommand == NSEventModifierFlagCommand);
static_assert(event_flags::kFunction == NSEventModifierFlagFunction);

KeyEventType typeOf(NSEvent* event) {
  if (event.type == NSEventTypeFlagsChanged) return KeyEventType::flagsChanged;
  return event.type == NSEventTypeKeyUp ? KeyEventType::keyUp : KeyEventType::keyDown;
}

/// A change of modifiers has no text; asking it for one is an error.
KeyEvent keyEventOf(NSEvent* event) {
  KeyEvent result;
  result.type = typeOf(event);
  result.keyCode = event.keyCode;
  result.modifierFlags = heldModifiers(event.modifierFlags, result.keyCode);
  if (result.type == KeyEventType::flagsChanged) return result;
  result.characters = textOf(event.characters);
  result.charactersIgnoringModifiers = textOf(event.charactersIgnoringModifiers);
  result.isRepeat = event.isARepeat;
  return result;
}

bool contains(std::uint32_t eventMask, KeyEventType type) {
  switch (type) {
    case KeyEventType::keyDown:
      return (eventMask & NSEventMaskKeyDown) != 0;
    case KeyEventType::keyUp:
      return (eventMask & NSEventMaskKeyUp) != 0;
    case KeyEventType::flagsChanged:
      return (eventMask & NSEventMaskFlagsChanged) != 0;
  }
}

}  // namespace

AppKitEventMonitors::~AppKitEventMonitors() {
  if (monitor_ != nil) [NSEvent removeMonitor:monitor_];
}

Subscription AppKitEventMonitors::addLocalMonitor(std::uint32_t eventMask, Handler handler) {
  install();
  if (monitor_ == nil) return {};
  return handlers_.add([eventMask, handler = std::move(handler)](const KeyEvent& event) {
    return contains(eventMask, event.type) && handler(event);
  });
}

void AppKitEventMonitors::install() {
  if (monitor_ != nil) return;
  const auto* handlers = &handlers_;
  monitor_ = [NSEvent addLocalMonitorForEventsMatchingMask:kKeyDownAndKeyUpMask | kFlagsChangedMask
                                                   handler:^NSEvent*(NSEvent* event) {
                                                     return handlers->offer(keyEventOf(event)) ? nil : event;
                                                   }];
}

std::uint64_t AppKitEventMonitors::currentModifierFlags() const {
  return heldModifiers(NSEvent.modifierFlags, std::nullopt);
}

}  // namespace rondora::macos

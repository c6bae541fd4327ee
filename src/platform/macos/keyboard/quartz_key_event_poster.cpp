#include "platform/macos/keyboard/quartz_key_event_poster.h"

#include <CoreGraphics/CoreGraphics.h>

#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {
namespace {

CGEventSourceStateID stateOf(KeyEventSourceState source) {
  return source == KeyEventSourceState::privateState ? kCGEventSourceStatePrivate : kCGEventSourceStateHIDSystemState;
}

CFRef<CGEventRef> makeEvent(const SyntheticKeyEvent& event) {
  const auto source = CFRef<CGEventSourceRef>::adopt(CGEventSourceCreate(stateOf(event.source)));
  return CFRef<CGEventRef>::adopt(CGEventCreateKeyboardEvent(source.get(), event.keyCode, event.isDown));
}

}  // namespace

std::optional<SyntheticKeyEvent> QuartzKeyEventPoster::makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode,
                                                                    bool isDown, const KeyFlags& flags) {
  const SyntheticKeyEvent event{
      .source = source, .keyCode = keyCode, .isDown = isDown, .flags = flags.all(), .nativeKeyCode = keyCode};
  if (!makeEvent(event)) return std::nullopt;
  return event;
}

void QuartzKeyEventPoster::post(const SyntheticKeyEvent& event, KeyEventTap tap) {
  const auto made = makeEvent(event);
  if (!made) return;
  CGEventSetFlags(made.get(), event.flags);
  CGEventPost(tap == KeyEventTap::session ? kCGSessionEventTap : kCGHIDEventTap, made.get());
}

}  // namespace rondora::macos

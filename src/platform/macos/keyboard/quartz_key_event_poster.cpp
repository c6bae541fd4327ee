#include "platform/macos/keyboard/quartz_key_event_poster.h"

namespace rondora::macos {
namespace {

CFRef<CGEventSourceRef> makeSource(CGEventSourceStateID state) {
  return CFRef<CGEventSourceRef>::adopt(CGEventSourceCreate(state));
}

}  // namespace

QuartzKeyEventPoster::QuartzKeyEventPoster()
    : private_(makeSource(kCGEventSourceStatePrivate)), hardware_(makeSource(kCGEventSourceStateHIDSystemState)) {}

CGEventSourceRef QuartzKeyEventPoster::sourceOf(KeyEventSourceState state) const {
  return (state == KeyEventSourceState::privateState ? private_ : hardware_).get();
}

CFRef<CGEventRef> QuartzKeyEventPoster::makeEvent(const SyntheticKeyEvent& event) const {
  return CFRef<CGEventRef>::adopt(CGEventCreateKeyboardEvent(sourceOf(event.source), event.keyCode, event.isDown));
}

std::optional<SyntheticKeyEvent> QuartzKeyEventPoster::makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode,
                                                                    bool isDown, const KeyFlags& flags) {
  const SyntheticKeyEvent event{
      .source = source, .keyCode = keyCode, .isDown = isDown, .flags = flags.all(), .nativeKeyCode = keyCode};
  if (!makeEvent(event)) return std::nullopt;
  return event;
}

bool QuartzKeyEventPoster::post(const SyntheticKeyEvent& event, KeyEventTap tap) {
  const auto made = makeEvent(event);
  if (!made) return false;
  CGEventSetFlags(made.get(), event.flags);
  CGEventPost(tap == KeyEventTap::session ? kCGSessionEventTap : kCGHIDEventTap, made.get());
  return true;
}

}  // namespace rondora::macos

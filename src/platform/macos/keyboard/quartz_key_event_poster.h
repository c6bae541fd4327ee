#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include "platform/key_event_poster.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// Synthetic events of the window server. Each has the flags that it is given, whatever keys the user holds; our panel
/// has left the screen before a key is posted.
class QuartzKeyEventPoster final : public KeyEventPoster {
 public:
  QuartzKeyEventPoster();

  std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode, bool isDown,
                                                const KeyFlags& flags) override;
  bool reachesApplications() const override { return true; }
  bool post(const SyntheticKeyEvent& event, KeyEventTap tap) override;

 private:
  CGEventSourceRef sourceOf(KeyEventSourceState state) const;
  CFRef<CGEventRef> makeEvent(const SyntheticKeyEvent& event) const;

  // Each is used on one thread: the first on the main thread, the second on the queue that presses shortcuts.
  CFRef<CGEventSourceRef> private_;
  CFRef<CGEventSourceRef> hardware_;
};

}  // namespace rondora::macos

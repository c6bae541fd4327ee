#pragma once

#include "platform/key_event_poster.h"

namespace rondora::macos {

/// Synthetic events of the window server. Each has the flags that it is given, whatever keys the user holds; our panel
/// has left the screen before a key is posted.
class QuartzKeyEventPoster final : public KeyEventPoster {
 public:
  std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode, bool isDown,
                                                const KeyFlags& flags) override;
  bool reachesApplications() const override { return true; }
  void post(const SyntheticKeyEvent& event, KeyEventTap tap) override;
};

}  // namespace rondora::macos

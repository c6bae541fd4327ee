#pragma once

#include <set>
#include <vector>

#include "platform/clock.h"
#include "platform/key_event_poster.h"

namespace rondora {

/// Records what was typed, and when.
class FakeKeyEvents final : public KeyEventPoster {
 public:
  struct Posted {
    SyntheticKeyEvent event;
    KeyEventTap tap = KeyEventTap::session;
    double uptime = 0;
  };

  explicit FakeKeyEvents(const Clock& clock) : clock_(clock) {}

  std::optional<SyntheticKeyEvent> makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode, bool isDown,
                                                const KeyFlags& flags) override {
    if (missingKeys.contains(keyCode) || (flags.modifiers & missingModifiers) != 0) return std::nullopt;
    return SyntheticKeyEvent{source, keyCode, isDown, flags.all()};
  }
  bool reachesApplications() const override { return !isTakenByOverlay; }
  bool post(const SyntheticKeyEvent& event, KeyEventTap tap) override {
    if (!refusesDown || !event.isDown) posted.push_back({event, tap, clock_.uptime()});
    return !refusesDown || !event.isDown;
  }

  std::set<std::uint16_t> missingKeys;
  /// Event flags of modifiers that the keyboard lacks.
  std::uint64_t missingModifiers = 0;
  bool isTakenByOverlay = false;
  /// The system takes no press.
  bool refusesDown = false;
  std::vector<Posted> posted;

 private:
  const Clock& clock_;
};

}  // namespace rondora

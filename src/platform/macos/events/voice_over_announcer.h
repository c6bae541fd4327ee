#pragma once

#include "platform/announcer.h"

namespace rondora::macos {

/// VoiceOver, of all assistive technology, is the one whose presence the system states.
class VoiceOverAnnouncer final : public Announcer {
 public:
  bool hasListeners() const override;
  void announce(std::string sentence) override;
  /// VoiceOver keeps no announcement: there is nothing to take back.
  void withdraw() override {}
};

}  // namespace rondora::macos

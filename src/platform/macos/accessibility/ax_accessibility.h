#pragma once

#include "platform/accessibility.h"
#include "platform/clock.h"

namespace rondora::macos {

/// The system's accessibility interface.
class AXAccessibility final : public Accessibility {
 public:
  /// The clock must outlive the object.
  explicit AXAccessibility(const Clock& clock) : clock_(clock) {}

  /// Null for this program: the system would answer for it on the calling thread, and its elements are the main
  /// thread's.
  AXElementRef application(std::int32_t processIdentifier) override;
  /// Asks the application about one element number after the other, for a limited time.
  AXElementRef windowByRemoteToken(std::int32_t ownerPID, std::uint32_t number) override;

 private:
  const Clock& clock_;
};

}  // namespace rondora::macos

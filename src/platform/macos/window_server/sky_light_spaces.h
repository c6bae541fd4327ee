#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "platform/spaces.h"

namespace rondora::macos {

/// The spaces as the window server's private library tells them; nothing is known where a function of it is missing.
class SkyLightSpaces final : public Spaces {
 public:
  SkyLightSpaces();

  std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t window) const override;
  std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const override;

 private:
  using Connection = int;
  using MainConnectionID = Connection (*)();
  using CopySpacesForWindows = CFArrayRef (*)(Connection connection, int mask, CFArrayRef windows);
  using CopyManagedDisplaySpaces = CFArrayRef (*)(Connection connection);

  MainConnectionID mainConnectionID_;
  CopySpacesForWindows copySpacesForWindows_;
  CopyManagedDisplaySpaces copyManagedDisplaySpaces_;
};

}  // namespace rondora::macos

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace rondora {

/// The desktops (spaces, workspaces) of one display, in their order.
struct DisplaySpaces {
  std::vector<std::optional<std::uint64_t>> spaces;  // an entry without an identifier has no value
  std::optional<std::uint64_t> currentSpace;
};

/// Any thread; calls must not overlap.
class Spaces {
 public:
  virtual ~Spaces() = default;

  /// The spaces that contain the window; nothing when unknown.
  virtual std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t window) const = 0;
  /// Nothing when unknown.
  virtual std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const = 0;
};

}  // namespace rondora

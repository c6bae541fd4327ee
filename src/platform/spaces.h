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

/// Any thread, one at a time.
class Spaces {
 public:
  virtual ~Spaces() = default;

  /// The spaces that hold the window; nothing when the system does not tell.
  virtual std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t window) const = 0;
  /// Nothing when the system does not tell.
  virtual std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const = 0;
};

}  // namespace rondora

#pragma once

#include <optional>
#include <string>

namespace rondora {

/// Empty on success, else the system's error message.
using LoginItemError = std::optional<std::string>;

/// The system's list of programs that it starts when the user logs in, and this program's place in it. Main thread.
class LoginItem {
 public:
  virtual ~LoginItem() = default;

  virtual LoginItemError add() = 0;
  /// Succeeds when it is not listed.
  virtual LoginItemError remove() = 0;
  /// The current state; queries the system.
  virtual bool isListed() const = 0;
};

}  // namespace rondora
